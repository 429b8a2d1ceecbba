// SPDX-License-Identifier: MIT
// Font families, measuring, palette colours.
#include "platform/qt/text.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>
#include <cmath>

namespace sorvex {
namespace {

struct Family {
  const char* name;
  QStringList instead;
  int weight = 0;  ///< of the families that stand in, 0: as asked for
};

// A family that is installed comes first by its own name. The metric-compatible family of Arial serves the system face
// as well; the heavy one has no heavier bold, so its weight is fixed.
const Family& FamilyNamed(const std::string& name) {
  static const QStringList plain{QStringLiteral("Liberation Sans"), QStringLiteral("Arimo")};
  static const Family families[] = {
      {"Arial Black", {QStringLiteral("Roboto"), QStringLiteral("Lato")}, QFont::Black},
      {"", plain},
  };
  return name == families[0].name ? families[0] : families[1];
}

}  // namespace

QString ToQt(const std::string& text) {
  QString converted = QString::fromStdString(text);
  converted.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return converted;
}

std::string FromQt(const QString& text) { return text.toStdString(); }

QFont ToQt(const Font& font) {
  const Family& family = FamilyNamed(font.family);
  QFont converted;
  converted.setFamilies(QStringList{QString::fromStdString(font.family)} + family.instead);
  converted.setPixelSize(static_cast<int>(std::lround(font.points * 96 / 72)));
  converted.setWeight(static_cast<QFont::Weight>(family.weight != 0 ? family.weight : font.weight));
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
