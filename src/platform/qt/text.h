// SPDX-License-Identifier: MIT
// Conversion of texts, fonts and colors to Qt's types, and text measuring.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <string>

#include "base/bitmap.h"
#include "platform/controls.h"

namespace sorvex {

/// UTF-8 with CR LF or LF as a QString with LF.
QString ToQt(const std::string& text);
std::string FromQt(const QString& text);

inline QColor ToQt(Pixel pixel) { return QColor::fromRgb(pixel); }

/// A point is 4/3 logical pixels at every resolution. A family that is not installed is replaced by one with the same
/// metrics or a similar look.
QFont ToQt(const Font& font);

/// Qt::TextFlag values for measuring and painting.
int TextFlags(Alignment alignment, bool wordWrap);

/// The size of `text` in logical pixels; wrapped to `wrapWidth` if that is above 0.
Size TextSize(const Font& font, const std::string& text, int wrapWidth);

/// A color as a pixel value; system colors come from the desktop's palette.
Pixel Resolve(Color color);

}  // namespace sorvex
