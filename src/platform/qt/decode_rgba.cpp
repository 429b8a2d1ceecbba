// SPDX-License-Identifier: MIT
// Decoding pictures with Qt's readers, SVG with librsvg.
#include "platform/decode_rgba.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

#include "platform/qt/svg.h"

namespace sorvex {

Bitmap DecodeRgba(std::string_view bytes, std::int64_t mostPixels) {
  if (LooksLikeSvg(bytes)) return RenderSvg(bytes, mostPixels);
  QByteArray array = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&array);
  QImageReader reader(&buffer);
  // Bitmaps from the top have a negative height. Readers that tell no size before they read keep to Qt's own limit.
  if (const QSize declared = reader.size(); declared.isValid() || declared.height() < -1)
    AllowedSize(declared.width(), std::abs(declared.height()), mostPixels);
  const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
  const Size size = AllowedSize(image.width(), image.height(), mostPixels);
  Bitmap picture = Bitmap::Uninitialized(size);
  for (int y = 0; y < size.height; ++y)
    std::copy_n(reinterpret_cast<const Pixel*>(image.constScanLine(y)), size.width, picture.Row(y));
  return picture;
}

}  // namespace sorvex
