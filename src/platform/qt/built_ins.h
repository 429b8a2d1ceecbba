// SPDX-License-Identifier: MIT
// The pictures that ship inside the program, as Qt reads them.
#pragma once

#include <QCursor>
#include <QIcon>
#include <QImage>
#include <QSize>

#include "platform/picture.h"

namespace sorvex {

/// Of the picture's images the one that stands `size` device pixels best: the smallest that is not smaller, else the
/// largest.
QImage BuiltInImage(BuiltIn which, QSize size);
QIcon BuiltInIcon(BuiltIn which);
/// The pointer shape with its hot spot; None is the arrow.
QCursor BuiltInCursor(BuiltIn which);

}  // namespace sorvex
