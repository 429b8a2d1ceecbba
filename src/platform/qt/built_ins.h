// SPDX-License-Identifier: MIT
// The program's built-in pictures, icons and cursors as Qt objects.
#pragma once

#include <QCursor>
#include <QIcon>
#include <QImage>
#include <QSize>

#include "platform/picture.h"

namespace sorvex {

/// The picture's best image for `size` (device pixels): the smallest that is not smaller than `size`, else the largest.
QImage BuiltInImage(BuiltIn which, QSize size);
QIcon BuiltInIcon(BuiltIn which);
/// The cursor with its hot spot; for None the arrow.
QCursor BuiltInCursor(BuiltIn which);

}  // namespace sorvex
