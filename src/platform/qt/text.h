// SPDX-License-Identifier: MIT
// The core's texts, fonts and colours as Qt's, and how large a text is painted.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <string>

#include "base/bitmap.h"
#include "platform/controls.h"

namespace sorvex {

/// UTF-8 with CR LF or LF line ends as Qt's text with LF.
QString ToQt(const std::string& text);
std::string FromQt(const QString& text);

inline QColor ToQt(Pixel pixel) { return QColor::fromRgb(pixel); }

/// The font as it is painted: a point is 4/3 logical pixels on every screen; a family that is missing gives way to one
/// of like measures or like look.
QFont ToQt(const Font& font);

/// Flags with which a text is measured and painted.
int TextFlags(Alignment alignment, bool wordWrap);

/// Logical pixels that `text` takes; wrapped to `wrapWidth` when that is above 0.
Size TextSize(const Font& font, const std::string& text, int wrapWidth);

/// What a colour is in the palette of the desktop.
Pixel Resolve(Color color);

}  // namespace sorvex
