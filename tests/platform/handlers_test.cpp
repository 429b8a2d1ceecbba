// SPDX-License-Identifier: MIT
// What several failing handlers of one delivery come to.
#include "platform/handlers.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "platform/desktop.h"

namespace sorvex {
namespace {

TEST(FailingHandlers, AreReportedByTheFirstButForTheEndOfTheProgram) {
  Handlers handlers([] {});
  const auto serve = [&](const std::function<void()>& last) {
    handlers.Serve([&] {
      for (const std::function<void()>& handler : {std::function<void()>([] { throw Overflow(); }),
                                                   std::function<void()>([] { throw SubscriptOutOfRange(); }), last})
        handlers.Run(handler);
    });
  };
  try {
    serve([] {});
    FAIL() << "nothing was thrown";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), Overflow().Number());
  }
  EXPECT_THROW(serve([] { throw ProgramEnded{}; }), ProgramEnded);
}

}  // namespace
}  // namespace sorvex
