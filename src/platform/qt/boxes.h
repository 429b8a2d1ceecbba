// SPDX-License-Identifier: MIT
// The program's two modal boxes: a message, and a question with an entry field.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <string>

#include "platform/desktop.h"

namespace sorvex {

/// A message with one OK button.
class MessageDialog final : public QMessageBox {
 public:
  MessageDialog(const std::string& text, const std::string& title, BoxIcon icon, QWidget* parent);
};

/// A prompt, an empty entry field, OK and Cancel.
class InputDialog final : public QDialog {
 public:
  InputDialog(const std::string& prompt, const std::string& title, QWidget* parent);

  /// The text that was typed or pasted; empty unless OK was chosen.
  std::string Answer() const;

 private:
  QLineEdit* field_;
};

}  // namespace sorvex
