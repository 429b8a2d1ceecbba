// SPDX-License-Identifier: MIT
// sorvex-message TEXT: shows the launcher's message to a player who has no terminal.
#include <QApplication>
#include <QMessageBox>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QGuiApplication::setDesktopFileName(QStringLiteral("sorvex"));
  QMessageBox::critical(nullptr, QStringLiteral("Sorvex"), application.arguments().value(1));
}
