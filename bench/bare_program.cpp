// SPDX-License-Identifier: MIT
// The least that a program with a window is: one button. What the game takes to start, and in memory, is held against
// it.
#include <QApplication>
#include <QPushButton>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QPushButton button(QStringLiteral("Bare"));
  button.setWindowTitle(QStringLiteral("Bare"));
  button.show();
  return QApplication::exec();
}
