// SPDX-License-Identifier: MIT
// Windows, event delivery and modal waits.
#include "platform/win32/win32_desktop.h"

#include <algorithm>

#include "base/finally.h"
#include "platform/win32/boxes.h"
#include "platform/win32/built_ins.h"
#include "platform/win32/text.h"
#include "platform/win32/version_resource.h"
#include "platform/win32/write_whole_file.h"

namespace sorvex {

FormWindow* Win32Desktop::Find(const Form* form) const {
  const auto found =
      std::ranges::find_if(shown_, [form](const auto& shown) { return &shown->Controller().ShownForm() == form; });
  return found == shown_.end() ? nullptr : found->get();
}

void Win32Desktop::Remove(const Form& form) {
  std::erase_if(shown_, [&form](const auto& shown) { return &shown->Controller().ShownForm() == &form; });
}

void Win32Desktop::Show(Form& form, Form* owner) {
  FormWindow* window = Find(&form);
  if (window == nullptr) {
    auto context = std::make_unique<FormContext>(FormContext{form, *this, runner_});
    window = shown_.emplace_back(std::make_unique<FormWindow>(std::move(context), Find(owner))).get();
  }
  const Finally close([&] {
    // After an exception the main form stays loaded: keep its window, so that the error is shown above it.
    if (owner != nullptr || !form.Loaded || runner_.Ended()) Remove(form);
  });
  // An exception from losing the pointer is rethrown after the box, which may report an earlier error.
  const std::exception_ptr late = runner_.Attempt([this] { LosePointers(); });
  runner_.Serve([&] {
    Sync();
    window->Open();
    while (form.Loaded && !runner_.Leaving()) {
      if (DeliverPending()) continue;
      Sync();
      ::WaitMessage();
    }
  });
  if (late) std::rethrow_exception(late);
}

void Win32Desktop::DeliverEvents(int patience) {
  runner_.Serve([&] {
    Sync();
    for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->Controller().RunTimers();
    if (DeliverPending() || patience == 0 || runner_.Leaving()) return;
    ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(patience), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    DeliverPending();
  });
}

// Returns whether any event was pending.
bool Win32Desktop::DeliverPending() {
  bool any = false;
  MSG message;
  while (!runner_.Leaving() && ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    any = true;
    Deliver(message);
  }
  return any;
}

void Win32Desktop::Deliver(const MSG& message) {
  const HWND root = message.hwnd == nullptr ? nullptr : ::GetAncestor(message.hwnd, GA_ROOT);
  const auto form = std::ranges::find_if(shown_, [root](const auto& shown) { return shown->Handle() == root; });
  if (form != shown_.end() && root != nullptr && (*form)->TakeKey(message)) return;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
}

void Win32Desktop::Refresh(PictureBox& surface, std::span<const Rectangle> changed) {
  Sync();
  for (const auto& shown : shown_) shown->Show(surface, changed);
}

void Win32Desktop::WaitInBox(const std::function<void(HWND owner)>& show) {
  const std::exception_ptr late = runner_.Attempt([this] { LosePointers(); });
  const auto wait = [&] {
    Sync();
    if (!runner_.Leaving()) show(shown_.empty() ? nullptr : shown_.back()->Handle());
  };
  const Finally forget([] {
    // Remove the WM_QUIT that ended the box's loop, so that it does not end another one.
    MSG message;
    while (::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0) {
    }
  });
  runner_.Serve(wait, [] { ::PostQuitMessage(0); });
  if (late) std::rethrow_exception(late);
}

void Win32Desktop::ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) {
  WaitInBox([&](HWND owner) { ShowMessageBox(owner, text, title, icon); });
}

std::string Win32Desktop::InputBox(const std::string& prompt, const std::string& title) {
  std::string answer;
  WaitInBox([&](HWND owner) { answer = ShowInputBox(owner, prompt, title); });
  return answer;
}

void Win32Desktop::Sync() {
  for (const auto& shown : shown_) shown->Controller().Sync();
}

void Win32Desktop::LosePointers() {
  for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->LosePointer();
}

Picture Win32Desktop::BuiltInPicture(BuiltIn which) { return sorvex::BuiltInPicture(which); }

Size Win32Desktop::MeasureText(const Font& font, const std::string& text, int wrapWidth) {
  return TextSize(font, text, wrapWidth);
}

Pixel Win32Desktop::ResolveColor(Color color) { return Resolve(color); }

TwipRatio Win32Desktop::TwipsPerPixel() {
  constexpr float kTwipsPerInch = 1440;
  const HDC screen = ::GetDC(nullptr);
  const TwipRatio twips{kTwipsPerInch / static_cast<float>(::GetDeviceCaps(screen, LOGPIXELSX)),
                        kTwipsPerInch / static_cast<float>(::GetDeviceCaps(screen, LOGPIXELSY))};
  ::ReleaseDC(nullptr, screen);
  return twips;
}

void Win32Desktop::PrepareWaves(std::span<const std::string> /*paths*/) {}  // Windows reads a file when it is played

VersionInfo Win32Desktop::Version() { return ReadVersionResource(); }

void Win32Desktop::UpdateFile(const std::string& path, const FileContent& content) {
  sorvex::UpdateFile(path, content);
}

std::unique_ptr<Desktop> MakeDesktop(int& /*argc*/, char** /*argv*/) { return std::make_unique<Win32Desktop>(); }

}  // namespace sorvex
