// SPDX-License-Identifier: MIT
// The one entry of the toolkit into this program.
#pragma once

#include <QApplication>

#include "platform/handlers.h"

namespace sorvex {

/// No exception crosses the toolkit's frames: what leaves an event's delivery is the handlers' to report.
class Application final : public QApplication {
 public:
  Application(int& argc, char** argv, Handlers& handlers) : QApplication(argc, argv), handlers_(handlers) {}

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Handlers& handlers_;
};

}  // namespace sorvex
