// SPDX-License-Identifier: MIT
// Reference pictures as Qt reads them.
#include <QImage>
#include <stdexcept>

#include "bitmaps/png.h"
#include "platform/qt/images.h"

namespace sorvex {

Bitmap ReadPng(const std::filesystem::path& path) {
  const QImage image(QString::fromStdString(path.string()));
  if (image.isNull()) throw std::runtime_error("cannot read " + path.string());
  return CopyOf(image);
}

}  // namespace sorvex
