// SPDX-License-Identifier: MIT
// A front end without windows, for tests: a test scripts time, event deliveries and answers to boxes, and can inspect
// what the game requested.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/bitmap.h"
#include "base/runtime_error.h"
#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/headless/headless_window.h"
#include "platform/map_registry.h"

namespace sorvex {

/// Thrown by event delivery when the script is at its end; unwinds whatever was waiting.
struct ScriptEnded {};

class HeadlessDesktop : public Desktop {
 public:
  /// `programFolder` is returned by ProgramFolder.
  explicit HeadlessDesktop(std::string programFolder) : programFolder_(std::move(programFolder)) {}

  // Set by tests
  /// While a window is shown, each event delivery removes and calls the first of these.
  std::deque<std::function<void()>> Script;
  Long Now = 1000000;                ///< the tick count
  Long MillisecondsPerDelivery = 0;  ///< by how much each delivery first advances Now
  TwipRatio Twips;
  MapRegistry StoredRegistry;
  std::string Today = "03/14/26";
  std::string Title = "Sorvex";  ///< the title in Version
  ScreenPoint Pointer;
  bool KeepFrames = false;                   ///< collect Frames
  std::optional<RuntimeError> WriteFailure;  ///< what UpdateFile throws instead of writing

  struct Box {
    std::string text;
    std::string title;
    BoxIcon icon = BoxIcon::None;
    bool operator==(const Box&) const = default;
  };
  struct Prompt {
    std::string prompt;
    std::string title;
  };
  struct Wave {
    std::string path;
    int afterFrames;  ///< the number of frames shown before it
  };
  std::function<void(const Box&)> WhileBoxOpen;               ///< called while a message box is open
  std::function<std::string()> TypeName = [] { return ""; };  ///< returns the answer to an input box

  /// The window that takes input now, which must exist, and its form.
  HeadlessWindow& FrontWindow() const { return *shown_.back(); }
  Form& Front() const { return FrontWindow().Controller.ShownForm(); }

  // Recorded for tests
  std::vector<Box> Boxes;
  std::vector<Prompt> Prompts;
  std::vector<Wave> Waves;
  std::vector<std::string> PreparedWaves;
  std::vector<std::string> OpenedAddresses;
  int FramesShown = 0;
  std::vector<Bitmap> Frames;  ///< if KeepFrames: every image that was shown
  int Deliveries = 0;
  int Patience = 0;  ///< the last delivery's patience, milliseconds

  void Show(Form& form, Form* owner) override;
  void DeliverEvents(int patience = 0) override;
  void Refresh(PictureBox& surface, std::span<const Rectangle> changed) override;
  void ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) override;
  std::string InputBox(const std::string& prompt, const std::string& title) override;

  Picture BuiltInPicture(BuiltIn which) override;
  Size MeasureText(const Font& font, const std::string& text, int wrapWidth) override;
  Pixel ResolveColor(Color color) override;
  TwipRatio TwipsPerPixel() override { return Twips; }

  Long TickCount() override { return Now; }
  ScreenPoint PointerPosition() override { return Pointer; }
  void PlayWave(const std::string& path) override { Waves.push_back({path, FramesShown}); }
  void PrepareWaves(std::span<const std::string> paths) override { PreparedWaves.assign(paths.begin(), paths.end()); }
  void OpenAddress(const std::string& address) override { OpenedAddresses.push_back(address); }
  std::string ShortDate() override { return Today; }
  std::string ProgramFolder() override { return programFolder_; }
  VersionInfo Version() override;
  void UpdateFile(const std::string& path, const FileContent& content) override;
  Registry& SystemRegistry() override { return StoredRegistry; }

 private:
  void Sync();
  void RunTimers();

  std::string programFolder_;
  HandlerRunner runner_{[this] { Sync(); }};
  std::vector<std::unique_ptr<HeadlessWindow>> shown_;  // innermost last
};

}  // namespace sorvex
