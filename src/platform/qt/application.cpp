// SPDX-License-Identifier: MIT
// Catching exceptions from event delivery.
#include "platform/qt/application.h"

#include <QThread>

namespace sorvex {

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    // Other threads' events are delivered here too; their exceptions are dropped, because they belong to no handler.
    if (QThread::currentThread() == thread()) runner_.StoreException();
    return true;
  }
}

}  // namespace sorvex
