// SPDX-License-Identifier: MIT
// Scripted event delivery, recorded boxes, generated pictures.
#include "platform/headless/headless_desktop.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include "base/finally.h"
#include "base/text.h"

namespace sorvex {
namespace {

constexpr int kCharacterWidth = 8;
constexpr int kLineHeight = 17;  // differs from the designed labels' height, so that no layout depends on it

Size SizeOf(BuiltIn which) {
  switch (which) {
    case BuiltIn::Canvas: return {320, 240};
    case BuiltIn::HighScoresPanel: return {317, 281};
    default: return {32, 32};
  }
}

}  // namespace

void HeadlessDesktop::Show(Form& form, Form* /*owner*/) {
  shown_.push_back(std::make_unique<HeadlessWindow>(form, *this, runner_));
  const Finally hide([this] { shown_.pop_back(); });
  Sync();
  FrontWindow().Controller.FocusFirst();
  while (form.Loaded) DeliverEvents();
}

void HeadlessDesktop::DeliverEvents(int patience) {
  ++Deliveries;
  Patience = patience;
  Now += MillisecondsPerDelivery;
  runner_.Serve([this] {
    Sync();
    RunTimers();
    if (shown_.empty() || runner_.Leaving()) return;
    if (Script.empty()) throw ScriptEnded{};
    const std::function<void()> step = std::move(Script.front());
    Script.pop_front();
    runner_.Run(step);
  });
}

void HeadlessDesktop::Sync() {
  for (const auto& window : shown_) window->Controller.Sync();
}

void HeadlessDesktop::RunTimers() {
  for (std::size_t i = 0; i < shown_.size(); ++i) shown_[i]->Controller.RunTimers();
}

void HeadlessDesktop::Refresh(PictureBox& surface, std::span<const Rectangle> /*changed*/) {
  ++FramesShown;
  if (KeepFrames) Frames.push_back(surface.Image());
}

void HeadlessDesktop::ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) {
  const Box box{text, title, icon};
  Boxes.push_back(box);
  runner_.Serve([&] {
    if (WhileBoxOpen) runner_.Run([&] { WhileBoxOpen(box); });
    RunTimers();
  });
}

std::string HeadlessDesktop::InputBox(const std::string& prompt, const std::string& title) {
  Prompts.push_back({prompt, title});
  std::string name;
  runner_.Serve([&] {
    runner_.Run([&] { name = TypeName(); });
    RunTimers();
  });
  return name;
}

Picture HeadlessDesktop::BuiltInPicture(BuiltIn which) {
  Bitmap pattern(SizeOf(which));
  const auto shade = static_cast<Pixel>(which) * 0x10;
  for (int y = 0; y < pattern.Height(); ++y)
    for (int x = 0; x < pattern.Width(); ++x)
      pattern.Row(y)[x] = kBlack | (static_cast<Pixel>(x) & 0xFF) << 16 | (static_cast<Pixel>(y) & 0xFF) << 8 | shade;
  return MakePicture(std::move(pattern));
}

Size HeadlessDesktop::MeasureText(const Font& /*font*/, const std::string& text, int wrapWidth) {
  int widest = 0;
  int lines = 0;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const int width =
        kCharacterWidth * static_cast<int>(Utf16Length(std::string_view(text).substr(begin, end - begin)));
    const bool wraps = wrapWidth > 0 && width > wrapWidth;
    widest = std::max(widest, wraps ? wrapWidth : width);
    lines += wraps ? (width + wrapWidth - 1) / wrapWidth : 1;
    begin = end + 1;
  }
  return {widest, lines * kLineHeight};
}

Pixel HeadlessDesktop::ResolveColor(Color color) {
  if (color == kWindowColor) return kWhite;
  if (color == kWindowTextColor) return kBlack;
  return color.IsSystem() ? 0xFFF0F0F0 : kBlack | color.value;
}

VersionInfo HeadlessDesktop::Version() {
  return {Title, 1, 0, 0, "A game to test how accurate you are with the mouse", "Headless build"};
}

void HeadlessDesktop::UpdateFile(const std::string& path, const FileContent& content) {
  const std::optional<std::string> bytes = content();
  if (WriteFailure) throw *WriteFailure;
  if (!bytes) return;
  std::ofstream file(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
  file << *bytes;
  if (!file.flush()) throw PathAccessError();
}

}  // namespace sorvex
