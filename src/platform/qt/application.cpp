// SPDX-License-Identifier: MIT
// Delivering events.
#include "platform/qt/application.h"

#include <QThread>

namespace sorvex {

bool Application::notify(QObject* receiver, QEvent* event) {
  // Other threads deliver their events here too, and know no handlers.
  if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    handlers_.Failed();
    return true;
  }
}

}  // namespace sorvex
