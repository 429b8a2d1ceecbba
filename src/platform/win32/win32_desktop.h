// SPDX-License-Identifier: MIT
// The Desktop implementation for Windows.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/win32/form_window.h"
#include "platform/win32/pictures.h"
#include "platform/win32/win32_registry.h"

namespace sorvex {

class Win32Desktop final : public Desktop {
 public:
  Win32Desktop() = default;

  void Show(Form& form, Form* owner) override;
  void DeliverEvents(int patience) override;
  void Refresh(PictureBox& surface, std::span<const Rectangle> changed) override;
  void ShowMessage(const std::string& text, const std::string& title, BoxIcon icon) override;
  std::string InputBox(const std::string& prompt, const std::string& title) override;

  Picture BuiltInPicture(BuiltIn which) override;
  Size MeasureText(const Font& font, const std::string& text, int wrapWidth) override;
  Pixel ResolveColor(Color color) override;
  TwipRatio TwipsPerPixel() override;

  Long TickCount() override;
  ScreenPoint PointerPosition() override;
  void PlayWave(const std::string& path) override;
  void PrepareWaves(std::span<const std::string> paths) override;
  void OpenAddress(const std::string& address) override;
  std::string ShortDate() override;
  std::string ProgramFolder() override;
  VersionInfo Version() override;
  void UpdateFile(const std::string& path, const FileContent& content) override;
  Registry& SystemRegistry() override { return registry_; }

 private:
  FormWindow* Find(const Form* form) const;
  void Remove(const Form& form);
  void Sync();
  void LosePointers();
  bool DeliverPending();
  void Deliver(const MSG& message);
  void WaitInBox(const std::function<void(HWND owner)>& show);

  OleSession ole_;
  Win32Registry registry_;
  HandlerRunner runner_{[this] { Sync(); }};
  std::vector<std::unique_ptr<FormWindow>> shown_;  // innermost last
};

}  // namespace sorvex
