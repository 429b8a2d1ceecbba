// SPDX-License-Identifier: MIT
// Delivering events.
#include "platform/qt/application.h"

#include <QThread>

namespace sorvex {

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    // Other threads deliver their events here too, and know no handlers: of theirs nobody is told.
    if (QThread::currentThread() == thread()) handlers_.Failed();
    return true;
  }
}

}  // namespace sorvex
