// SPDX-License-Identifier: MIT
// Keeping what handlers throw until the toolkit's frames are left.
#include "platform/qt/handlers.h"

#include <QEventLoop>

#include "platform/desktop.h"

namespace sorvex {

void Handlers::Serve(QEventLoop* loop, const std::function<void()>& deliver) {
  if (ended_) throw ProgramEnded{};
  Call call{loop, innermost_, nullptr};
  const struct Entered {
    Entered(Call*& slot, Call& call) : slot(slot) { slot = &call; }
    ~Entered() { slot = slot->outer; }
    Call*& slot;
  } entered(innermost_, call);
  deliver();
  if (ended_) throw ProgramEnded{};
  if (call.error) std::rethrow_exception(call.error);
}

void Handlers::Run(const std::function<void()>& handler) {
  if (!handler || !MayRun()) return;
  try {
    handler();
    afterwards_();
  } catch (const ProgramEnded&) {
    EndProgram();
  } catch (...) {
    if (!innermost_->error) innermost_->error = std::current_exception();
    if (innermost_->loop != nullptr) innermost_->loop->quit();
  }
}

void Handlers::EndProgram() {
  ended_ = true;
  for (const Call* call = innermost_; call != nullptr; call = call->outer)
    if (call->loop != nullptr) call->loop->quit();
}

}  // namespace sorvex
