// SPDX-License-Identifier: MIT
// Font families, measuring, palette colors.
#include "platform/qt/text.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>
#include <cmath>

namespace sorvex {
namespace {

constexpr char kHeavyFamily[] = "Arial Black";

// The family itself, then its replacements: Liberation Sans has Arial's metrics and also replaces MS Sans Serif;
// Inter's heaviest weight replaces Arial Black.
QStringList FamiliesFor(const std::string& name) {
  QStringList families{QString::fromStdString(name)};
  if (name == kHeavyFamily) families << QStringLiteral("Inter");
  return families << QStringLiteral("Liberation Sans");
}

}  // namespace

QString ToQt(const std::string& text) {
  QString converted = QString::fromStdString(text);
  converted.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return converted;
}

std::string FromQt(const QString& text) { return text.toStdString(); }

QFont ToQt(const Font& font) {
  QFont converted;
  converted.setFamilies(FamiliesFor(font.family));
  converted.setPixelSize(static_cast<int>(std::lround(font.points * 96 / 72)));
  converted.setWeight(font.family == kHeavyFamily ? QFont::Black : static_cast<QFont::Weight>(font.weight));
  converted.setUnderline(font.underlined);
  return converted;
}

int TextFlags(Alignment alignment, bool wordWrap) {
  int flags = Qt::AlignTop | Qt::TextExpandTabs | Qt::TextDontClip;
  if (wordWrap) flags |= Qt::TextWordWrap;
  switch (alignment) {
    case Alignment::Left: return flags | Qt::AlignLeft;
    case Alignment::Center: return flags | Qt::AlignHCenter;
    case Alignment::Right: return flags | Qt::AlignRight;
  }
  return flags;
}

Size TextSize(const Font& font, const std::string& text, int wrapWidth) {
  constexpr int kUnbounded = 1 << 20;
  const QRect room(0, 0, wrapWidth > 0 ? wrapWidth : kUnbounded, kUnbounded);
  const QRect needed =
      QFontMetrics(ToQt(font)).boundingRect(room, TextFlags(Alignment::Left, wrapWidth > 0), ToQt(text));
  return {needed.width(), needed.height()};
}

Pixel Resolve(Color color) {
  if (!color.IsSystem()) return kBlack | color.value;
  const QPalette palette = QGuiApplication::palette();
  if (color == kWindowColor) return palette.color(QPalette::Base).rgb();
  if (color == kWindowTextColor) return palette.color(QPalette::Text).rgb();
  return palette.color(QPalette::Button).rgb();
}

}  // namespace sorvex
