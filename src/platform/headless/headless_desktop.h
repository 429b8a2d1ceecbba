// SPDX-License-Identifier: MIT
// A front end without a window: time, deliveries, boxes and answers are what a test says, and what the game asked for
// can be looked at afterwards.
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
#include "platform/handlers.h"
#include "platform/headless/headless_window.h"
#include "platform/map_registry.h"

namespace sorvex {

/// Thrown by a delivery for which the script has nothing left: the story is over, whatever was waiting.
struct ScriptEnded {};

class HeadlessDesktop : public Desktop {
 public:
  /// `programFolder` is where the executable is said to lie.
  explicit HeadlessDesktop(std::string programFolder) : programFolder_(std::move(programFolder)) {}

  // What a test sets
  /// While a window is shown, each delivery runs the first of these and drops it.
  std::deque<std::function<void()>> Script;
  Long Now = 1000000;                ///< the tick count
  Long MillisecondsPerDelivery = 0;  ///< how far each delivery moves the tick count, before anything else
  TwipRatio Twips;
  MapRegistry StoredRegistry;
  std::string Today = "03/14/26";
  std::string Title = "Sorvex";  ///< the program's, in its version
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
    int afterFrames;  ///< how many frames had been shown by then
  };
  std::function<void(const Box&)> WhileBoxOpen;               ///< what happens before the box is closed
  std::function<std::string()> TypeName = [] { return ""; };  ///< what the player types into an input box

  /// The window and the form that take input now; there must be one.
  HeadlessWindow& FrontWindow() const { return *shown_.back(); }
  Form& Front() const { return FrontWindow().Controller.ShownForm(); }

  // What the game did
  std::vector<Box> Boxes;
  std::vector<Prompt> Prompts;
  std::vector<Wave> Waves;
  std::vector<std::string> PreparedWaves;
  std::vector<std::string> OpenedAddresses;
  int FramesShown = 0;
  std::vector<Bitmap> Frames;  ///< with KeepFrames: every image that was shown
  int Deliveries = 0;
  int Patience = 0;  ///< how long the last of them might have waited, milliseconds

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
  Handlers handlers_{[this] { Sync(); }};
  std::vector<std::unique_ptr<HeadlessWindow>> shown_;  // innermost last
};

}  // namespace sorvex
