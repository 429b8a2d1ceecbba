// SPDX-License-Identifier: MIT
// The application object, which catches exceptions from event delivery.
#pragma once

#include <QApplication>

#include "platform/handlers.h"

namespace sorvex {

/// Exceptions must not pass through Qt's stack frames: notify() catches them and passes them to the Handlers.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv, Handlers& handlers) : QApplication(argc, argv), handlers_(handlers) {}

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Handlers& handlers_;
};

}  // namespace sorvex
