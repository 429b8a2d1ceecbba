// SPDX-License-Identifier: MIT
// Message and input box.
#include "platform/qt/boxes.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "platform/box_text.h"
#include "platform/qt/text.h"

namespace sorvex {
namespace {

QMessageBox::Icon ToQt(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None: return QMessageBox::NoIcon;
    case BoxIcon::Critical: return QMessageBox::Critical;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Information: return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

MessageDialog::MessageDialog(const std::string& text, const std::string& title, BoxIcon icon, QWidget* parent)
    : QMessageBox(ToQt(icon), sorvex::ToQt(title), QString(), Ok, parent) {
  setTextFormat(Qt::PlainText);
  const auto measure = [metrics = fontMetrics()](std::string_view line) {
    const QSize size = metrics.size(Qt::TextExpandTabs, sorvex::ToQt(std::string(line)));
    return Size{size.width(), size.height()};
  };
  // Qt itself wraps only lines longer than 390 pixels, but not as this program wants.
  const QSize room = screen()->availableSize();
  setText(sorvex::ToQt(BoxText(text, {std::min(room.width() / 3, 390), room.height()}, measure)));
  // Assistive technology gets the full text.
  if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) label->setAccessibleName(sorvex::ToQt(text));
  setWindowModality(Qt::ApplicationModal);
}

InputDialog::InputDialog(const std::string& prompt, const std::string& title, QWidget* parent)
    : QDialog(parent), field_(new QLineEdit(this)) {
  setWindowTitle(sorvex::ToQt(title));
  setWindowModality(Qt::ApplicationModal);
  auto* label = new QLabel(this);
  label->setTextFormat(Qt::PlainText);
  label->setText(sorvex::ToQt(prompt));
  field_->setAccessibleName(label->text());
  field_->setMaxLength(kLongestEntry);
  field_->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label);
  layout->addWidget(field_);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

std::string InputDialog::Answer() const { return result() == Accepted ? FromQt(field_->text()) : std::string(); }

}  // namespace sorvex
