// SPDX-License-Identifier: MIT
// What several failing handlers of one delivery come to.
#include "platform/handler_runner.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "platform/desktop.h"

namespace sorvex {
namespace {

TEST(FailingHandlers, AreReportedByTheFirstButForTheEndOfTheProgram) {
  HandlerRunner runner([] {});
  const auto serve = [&](const std::function<void()>& last) {
    runner.Serve([&] {
      for (const std::function<void()>& handler : {std::function<void()>([] { throw Overflow(); }),
                                                   std::function<void()>([] { throw SubscriptOutOfRange(); }), last})
        runner.Run(handler);
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
