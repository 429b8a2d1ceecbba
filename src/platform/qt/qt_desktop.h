// SPDX-License-Identifier: MIT
// The Desktop implementation for Qt 6.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "platform/handler_runner.h"
#include "platform/qt/application.h"
#include "platform/qt/sounds.h"
#include "platform/qt/termination_signals.h"

class QDialog;

namespace sorvex {

class FormWindow;

class QtDesktop final : public Desktop {
 public:
  QtDesktop(int& argc, char** argv);
  ~QtDesktop() override;
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

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
  Registry& SystemRegistry() override { return *registry_; }

 private:
  class SessionEnd;
  struct ShownForm;

  ShownForm* Find(const Form* form) const;
  void Remove(const Form& form);
  void Sync();
  void Wait(QEventLoop& loop, const std::function<void()>& begin);
  void RunDialog(QDialog& dialog);
  void EndSession();
  QWidget* ActiveWindow() const;

  HandlerRunner runner_;
  Application application_;
  std::vector<std::unique_ptr<ShownForm>> shown_;  // innermost last
  QTimer patience_;                                // ends blocking event delivery
  Sounds sounds_;
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<SessionEnd> sessionEnd_;
  TerminationSignals signals_;
};

}  // namespace sorvex
