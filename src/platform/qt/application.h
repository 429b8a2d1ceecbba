// SPDX-License-Identifier: MIT
// The application object, which catches exceptions from event delivery.
#pragma once

#include <QApplication>

#include "platform/handler_runner.h"

namespace sorvex {

/// Exceptions must not pass through Qt's stack frames: notify() catches them and passes them to the HandlerRunner.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv, HandlerRunner& runner) : QApplication(argc, argv), runner_(runner) {}

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  HandlerRunner& runner_;
};

}  // namespace sorvex
