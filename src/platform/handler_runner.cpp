// SPDX-License-Identifier: MIT
// Stores handlers' exceptions until the window system's stack frames have been left.
#include "platform/handler_runner.h"

#include "base/finally.h"
#include "platform/desktop.h"

namespace sorvex {

void HandlerRunner::Serve(const std::function<void()>& deliver, const std::function<void()>& leave) {
  if (ended_) throw ProgramEnded{};
  Call call{leave, innermost_, nullptr};
  innermost_ = &call;
  const Finally left([this] { innermost_ = innermost_->outer; });
  deliver();
  if (ended_) throw ProgramEnded{};
  if (call.error) std::rethrow_exception(call.error);
}

std::exception_ptr HandlerRunner::Attempt(const std::function<void()>& deliver) {
  try {
    Serve(deliver);
    return nullptr;
  } catch (const ProgramEnded&) {
    throw;
  } catch (...) {
    return std::current_exception();
  }
}

void HandlerRunner::Run(const std::function<void()>& handler) {
  if (!handler || !MayRun()) return;
  try {
    handler();
    afterwards_();
  } catch (...) {
    StoreException();
  }
}

void HandlerRunner::StoreException() {
  if (innermost_ == nullptr) return;
  try {
    throw;
  } catch (const ProgramEnded&) {
    EndProgram();
  } catch (...) {
    if (!innermost_->error) innermost_->error = std::current_exception();
    if (innermost_->leave) innermost_->leave();
  }
}

void HandlerRunner::EndProgram() {
  ended_ = true;
  for (const Call* call = innermost_; call != nullptr; call = call->outer)
    if (call->leave) call->leave();
}

}  // namespace sorvex
