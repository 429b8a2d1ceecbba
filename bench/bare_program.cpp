// SPDX-License-Identifier: MIT
// A minimal Qt program with one button, the reference for the game's start-up time and memory use.
#include <QApplication>
#include <QPushButton>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QPushButton button(QStringLiteral("Bare"));
  button.setWindowTitle(QStringLiteral("Bare"));
  button.show();
  return QApplication::exec();
}
