// SPDX-License-Identifier: MIT
// The Desktop implementation for a browser's page.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/map_registry.h"
#include "platform/web/form_window.h"

namespace sorvex {

class WebDesktop final : public Desktop {
 public:
  void Show(Form& form, Form* owner) override;
  void DeliverEvents(int patience) override;
  void Refresh(PictureBox& surface, std::span<const Rectangle> changed) override;
  void ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) override;
  std::string InputBox(const std::string& prompt, const std::string& title) override;

  Picture BuiltInPicture(BuiltIn which) override;
  Size MeasureText(const Font& font, const std::string& text, int wrapWidth) override;
  Pixel ResolveColor(Color color) override;
  /// A pixel of a form is the page's own, 96 to the inch.
  TwipRatio TwipsPerPixel() override { return {15, 15}; }

  Long TickCount() override;
  ScreenPoint PointerPosition() override;
  void PlayWave(const std::string& path) override { PagePlayWave(path.c_str()); }
  void PrepareWaves(std::span<const std::string> paths) override;
  void OpenAddress(const std::string& address) override { PageOpenAddress(address.c_str()); }
  std::string ShortDate() override;
  std::string ProgramFolder() override { return "/themes"; }
  VersionInfo Version() override;
  void UpdateFile(const std::string& path, const FileContent& content) override;
  /// Nothing of it is kept: the only value that the program records is tested for being empty.
  Registry& SystemRegistry() override { return registry_; }

 private:
  bool Handle(int patience);
  void Wait(const std::function<bool()>& done, const std::function<void()>& begin);
  std::optional<std::string> RunBox(const std::string& text, const std::string& title, BoxIcon icon, int mostTyped);
  int NewNumber();
  void Sync();
  void RunTimers();

  HandlerRunner runner_{[this] { Sync(); }};
  std::vector<std::unique_ptr<FormWindow>> shown_;  // innermost last
  std::vector<int> boxes_;                          // those that are open, innermost last
  std::map<int, std::optional<std::string>> answers_;
  int lastNumber_ = 0;
  MapRegistry registry_;
};

}  // namespace sorvex
