// SPDX-License-Identifier: MIT
// Event delivery, modal waits and services.
#include "platform/web/web_desktop.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/files.h"
#include "base/finally.h"
#include "base/limits.h"
#include "base/runtime_error.h"
#include "platform/version.h"
#include "platform/web/built_ins.h"

namespace sorvex {
namespace {

constexpr int kWithoutAsking = -1;

// The next event; nullopt if none came in time.
std::optional<PageEvent> NextEvent(int patience) {
  PageEvent event;
  if (PageAwait(PageRequest::NextEvent, nullptr, patience, &event) == 0) return std::nullopt;
  return event;
}

Replaced ReplaceFile(const std::string& path, const std::string& bytes, const std::optional<std::string>& before) {
  struct {
    const char* path;
    const char* bytes;
    const char* before;
    std::int32_t sizeBefore;
  } const request{path.c_str(), bytes.data(), before ? before->data() : nullptr,
                  before ? static_cast<std::int32_t>(before->size()) : -1};
  return static_cast<Replaced>(PageAwait(PageRequest::ReplaceFile, &request, static_cast<int>(bytes.size()), nullptr));
}

}  // namespace

void WebDesktop::Show(Form& form, Form* owner) {
  const auto same = [&form](const auto& window) { return &window->Controller().ShownForm() == &form; };
  auto found = std::find_if(shown_.begin(), shown_.end(), same);
  const bool isNew = found == shown_.end();
  if (isNew) {
    shown_.push_back(std::make_unique<FormWindow>(NewNumber(), form, owner != nullptr, *this, runner_));
    found = std::prev(shown_.end());
  }
  FormController& controller = (*found)->Controller();
  const Finally close([&] {
    // After an exception the main form stays loaded: its window stays, so that the error is shown above it.
    if (owner != nullptr || !form.Loaded || runner_.Ended())
      shown_.erase(std::remove_if(shown_.begin(), shown_.end(), same), shown_.end());
  });
  Wait([&form] { return !form.Loaded; },
       [&] {
         controller.Sync();
         if (isNew) controller.FocusFirst();
       });
}

void WebDesktop::DeliverEvents(int patience) {
  runner_.Serve([&] {
    Sync();
    RunTimers();
    if (runner_.Leaving() || !Handle(patience)) return;
    while (!runner_.Leaving() && Handle(kWithoutAsking)) {
    }
  });
}

// Handles one event, and the timers that became due while it was waited for; false if none came in time.
bool WebDesktop::Handle(int patience) {
  for (const auto& window : shown_)
    if (const std::optional<int> timer = NextTimer(window->Controller().ShownForm(), TickCount()))
      patience = std::min(patience, *timer);
  const std::optional<PageEvent> event = NextEvent(patience);
  if (patience > 0) RunTimers();
  if (!event) return false;
  const Allocated<char> freed(event->text);
  if (event->kind == PageEventKind::BoxClosed) {
    answers_[event->window] = event->text == nullptr ? std::nullopt : std::optional<std::string>(event->text);
    return true;
  }
  // Input that was on its way to a window when a box or another window opened before it has no effect.
  for (const auto& window : shown_) {
    const bool taken = boxes_.empty() && window == shown_.back();
    if (window->Id() == event->window && (taken || event->kind == PageEventKind::Moved)) {
      window->Handle(*event);
      break;
    }
  }
  return true;
}

void WebDesktop::Wait(const std::function<bool()>& done, const std::function<void()>& begin) {
  // An exception from losing the pointer is rethrown after the wait, which may report an earlier error.
  const std::exception_ptr late = runner_.Attempt([this] {
    for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->LosePointer();
  });
  runner_.Serve([&] {
    Sync();
    if (!runner_.Leaving()) begin();
    while (!runner_.Leaving() && !done()) {
      RunTimers();
      if (!runner_.Leaving() && !done()) Handle(kUntilAnEvent);
    }
  });
  if (late) std::rethrow_exception(late);
}

std::optional<std::string> WebDesktop::RunBox(const std::string& text, const std::string& title, BoxIcon icon,
                                              int mostTyped) {
  const int box = NewNumber();
  const Finally close([&] {
    PageCloseBox(box);
    boxes_.erase(std::remove(boxes_.begin(), boxes_.end(), box), boxes_.end());
    answers_.erase(box);
  });
  std::optional<std::string> answer;
  Wait(
      [&] {
        const auto found = answers_.find(box);
        if (found != answers_.end()) answer = found->second;
        return found != answers_.end();
      },
      [&] {
        boxes_.push_back(box);
        PageOpenBox(box, text.c_str(), title.c_str(), static_cast<int>(icon), mostTyped);
      });
  return answer;
}

void WebDesktop::ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) {
  RunBox(text, title, icon, 0);
}

std::string WebDesktop::InputBox(const std::string& prompt, const std::string& title) {
  return RunBox(prompt, title, BoxIcon::None, kLongestEntry).value_or("");
}

// Windows and boxes, and the elements of a window after its own number.
int WebDesktop::NewNumber() {
  constexpr int mostElements = 1 << 16;
  return lastNumber_ += mostElements;
}

void WebDesktop::Sync() {
  for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->Controller().Sync();
}

void WebDesktop::RunTimers() {
  for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->Controller().RunTimers();
}

void WebDesktop::Refresh(PictureBox& surface, std::span<const Rectangle> changed) {
  Sync();
  for (const auto& window : shown_) window->Paint(surface, changed);
}

Picture WebDesktop::BuiltInPicture(BuiltIn which) {
  const std::string bytes = ReadFile(FileOf(which), kLargestSound).value_or("");
  return MakePicture(DecodedByPage(bytes.data(), bytes.size()));
}

Size WebDesktop::MeasureText(const Font& font, const std::string& text, int wrapWidth) {
  const unsigned size = PageMeasure(text.c_str(), font.family.c_str(), PixelsOf(font), font.weight, wrapWidth);
  return {static_cast<int>(size >> 16), static_cast<int>(size & 0xFFFF)};
}

Pixel WebDesktop::ResolveColor(Color color) {
  if (!color.IsSystem()) return kBlack | color.value;
  if (color == kWindowColor) return kWhite;
  return color == kWindowTextColor ? kBlack : 0xFFF0F0F0;
}

Long WebDesktop::TickCount() {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
  return static_cast<Long>(static_cast<std::uint32_t>(milliseconds));
}

ScreenPoint WebDesktop::PointerPosition() {
  const unsigned place = PagePointer();
  return {static_cast<std::int16_t>(place >> 16), static_cast<std::int16_t>(place & 0xFFFF)};
}

void WebDesktop::PrepareWaves(std::span<const std::string> paths) {
  std::string lines;
  for (const std::string& path : paths) lines += path + '\n';
  PagePrepareWaves(lines.c_str());
}

std::string WebDesktop::ShortDate() { return Allocated<char>(PageShortDate()).get(); }

VersionInfo WebDesktop::Version() {
  return {version::kTitle,    version::kMajor,    version::kMinor,
          version::kRevision, version::kComments, version::kLegalCopyright};
}

// Another tab may store the same file at any time: then the content is made again from what it stored.
void WebDesktop::UpdateFile(const std::string& path, const FileContent& content) {
  for (;;) {
    const std::optional<std::string> before = ReadFile(path, kLongestText);
    const std::optional<std::string> bytes = content();
    if (!bytes) return;
    switch (ReplaceFile(path, *bytes, before)) {
      case Replaced::Done: return;
      case Replaced::ChangedMeanwhile: break;
      case Replaced::Full: throw DiskFull();
      case Replaced::Refused: throw PathAccessError();
    }
  }
}

std::unique_ptr<Desktop> MakeDesktop(int& /*argc*/, char** /*argv*/) { return std::make_unique<WebDesktop>(); }

}  // namespace sorvex
