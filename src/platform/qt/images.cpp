// SPDX-License-Identifier: MIT
// Conversion between Bitmap and QImage, decoding bitmap files and encoding PNG files.
#include "platform/qt/images.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "base/runtime_error.h"
#include "platform/decode_bitmap.h"
#include "platform/encode_png.h"

namespace sorvex {

QImage ViewOf(const Bitmap& bitmap) {
  return {reinterpret_cast<const uchar*>(bitmap.Pixels().data()), bitmap.Width(), bitmap.Height(),
          static_cast<qsizetype>(sizeof(Pixel)) * bitmap.Width(), QImage::Format_RGB32};
}

QImage ViewOf(Bitmap& bitmap) {
  return {reinterpret_cast<uchar*>(bitmap.Row(0)), bitmap.Width(), bitmap.Height(),
          static_cast<qsizetype>(sizeof(Pixel)) * bitmap.Width(), QImage::Format_RGB32};
}

Bitmap CopyOf(const QImage& image) {
  // Converted a few rows at a time, so that the pixels are not in memory twice.
  constexpr int kPixelsAtOnce = 1 << 16;
  Bitmap copy = Bitmap::Uninitialized({image.width(), image.height()});
  const int rowsAtOnce = std::max(1, kPixelsAtOnce / std::max(1, image.width()));
  for (int top = 0; top < copy.Height(); top += rowsAtOnce) {
    const int rows = std::min(rowsAtOnce, copy.Height() - top);
    const QImage opaque = image.copy(0, top, image.width(), rows).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < rows; ++y) {
      const auto* row = reinterpret_cast<const Pixel*>(opaque.constScanLine(y));
      std::transform(row, row + copy.Width(), copy.Row(top + y), [](Pixel pixel) { return kBlack | pixel; });
    }
  }
  return copy;
}

namespace {

std::uint32_t DoubleWord(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8 | static_cast<std::uint8_t>(bytes[at + i - 1]);
  return value;
}

// Fields of the info header (BITMAPINFOHEADER, wingdi.h); 0 in files without one.
struct InfoHeader {
  explicit InfoHeader(std::string_view bytes) {
    if (bytes.size() < kMasks || DoubleWord(bytes, 14) < 40) return;
    bitsPerPixel = DoubleWord(bytes, 28) & 0xFFFF;
    compression = DoubleWord(bytes, 30);
  }
  static constexpr std::size_t kMasks = 54;  // offset of the channels' bit masks
  std::uint32_t bitsPerPixel = 0;
  std::uint32_t compression = 0;
};

bool IsRunLengthEncoded(std::string_view bytes) {
  constexpr std::uint32_t kRle8 = 1;
  constexpr std::uint32_t kRle4 = 2;
  const std::uint32_t compression = InfoHeader(bytes).compression;
  return compression == kRle8 || compression == kRle4;
}

// The number of bits of each channel (red, green, blue) in a file with 16 bits per pixel; nullopt for other files.
std::optional<std::array<int, 3>> ChannelBits(std::string_view bytes) {
  constexpr std::uint32_t kBitFields = 3;
  const InfoHeader header(bytes);
  if (header.bitsPerPixel != 16) return std::nullopt;
  std::array bits{5, 5, 5};
  if (header.compression != kBitFields || bytes.size() < InfoHeader::kMasks + 12) return bits;
  for (std::size_t i = 0; i < bits.size(); ++i) bits[i] = std::popcount(DoubleWord(bytes, InfoHeader::kMasks + 4 * i));
  return bits;
}

// Qt expands the channels of 16-bit pixels to 8 bits with zeros, so that white would not stay white. Like Windows, this
// fills the low bits with copies of the high ones.
void WidenChannels(Bitmap& pixels, const std::array<int, 3>& bits) {
  std::for_each_n(pixels.Row(0), pixels.Pixels().size(), [&](Pixel& pixel) {
    Pixel widened = 0;
    for (int channel = 0, shift = 16; channel < 3; ++channel, shift -= 8) {
      Pixel value = pixel >> shift & 0xFF;
      for (int width = bits[static_cast<std::size_t>(channel)]; width > 0 && width < 8; width *= 2)
        value |= value >> width;
      widened |= value << shift;
    }
    pixel = kBlack | widened;
  });
}

// A bitmap decoder. It decodes into the given image if that has the decoder's size and format.
class BmpReader {
 public:
  explicit BmpReader(std::string_view bytes)
      : bytes_(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))), buffer_(&bytes_) {}

  // For top-down files QImageReader returns the header's negative height.
  QSize Size() const { return {reader_.size().width(), std::abs(reader_.size().height())}; }
  bool Read(QImage& image) { return reader_.read(&image); }

 private:
  QByteArray bytes_;
  QBuffer buffer_;
  QImageReader reader_{&buffer_, "BMP"};
};

// Decodes run-length encoded pixels (BI_RLE8, BI_RLE4) itself: Qt leaves pixels that the runs skip uninitialized, here
// they are black, and it takes seconds for long files.
class RunReader {
 public:
  RunReader(std::string_view bytes, QSize size)
      : halfBytes_(InfoHeader(bytes).compression == 2),
        topDown_(DoubleWord(bytes, 22) >> 31 != 0),
        data_(bytes.substr(std::min<std::size_t>(DoubleWord(bytes, 10), bytes.size()))),
        pixels_({size.width(), size.height()}) {
    const std::size_t palette = 14 + std::size_t{DoubleWord(bytes, 14)};
    const std::uint32_t used = DoubleWord(bytes, 46);  // 0: all that a pixel can name
    colors_.fill(kBlack);
    for (std::size_t i = 0; i < colors_.size() && (used == 0 || i < used) && palette + 4 * i + 4 <= bytes.size(); ++i)
      colors_[i] |= DoubleWord(bytes, palette + 4 * i) & 0xFFFFFF;
  }

  Bitmap Read() && {
    while (data_.size() >= 2 && y_ < pixels_.Height()) {
      const int count = Take();
      const int code = Take();
      if (count > 0) {
        Put(count, [this, code](int i) { return Index(code, i); });
      } else if (code == 0) {  // end of line
        x_ = 0;
        ++y_;
      } else if (code == 1) {  // end of bitmap
        break;
      } else if (code == 2) {  // delta
        if (data_.size() < 2) break;
        x_ = std::min(x_ + Take(), pixels_.Width());
        y_ += Take();
      } else {
        PutLiterals(code);
      }
    }
    return std::move(pixels_);
  }

 private:
  int Take() {
    const auto byte = static_cast<std::uint8_t>(data_.front());
    data_.remove_prefix(1);
    return byte;
  }
  int Index(int byte, int i) const { return !halfBytes_ ? byte : i % 2 == 0 ? byte >> 4 : byte & 0xF; }

  // Up to `count` pixels, as many as the row has room for.
  template <class IndexOf>
  void Put(int count, IndexOf indexOf) {
    Pixel* const row = pixels_.Row(topDown_ ? y_ : pixels_.Height() - 1 - y_);
    const int drawn = std::min(count, pixels_.Width() - x_);
    for (int i = 0; i < drawn; ++i) row[x_++] = colors_[static_cast<std::size_t>(indexOf(i))];
  }

  void PutLiterals(int count) {
    const auto bytes = static_cast<std::size_t>(halfBytes_ ? (count + 1) / 2 : count);
    const std::string_view literals = data_.substr(0, bytes);
    const int perByte = halfBytes_ ? 2 : 1;
    Put(std::min(count, static_cast<int>(literals.size()) * perByte),
        [&](int i) { return Index(static_cast<std::uint8_t>(literals[static_cast<std::size_t>(i / perByte)]), i); });
    data_.remove_prefix(std::min(bytes + bytes % 2, data_.size()));
  }

  bool halfBytes_;
  bool topDown_;
  std::string_view data_;
  Bitmap pixels_;
  std::array<Pixel, 256> colors_;
  int x_ = 0;
  int y_ = 0;
};

std::optional<Bitmap> ReadRows(std::string_view bytes, QSize size) {
  Bitmap pixels = Bitmap::Uninitialized({size.width(), size.height()});
  QImage image = ViewOf(pixels);
  if (!BmpReader(bytes).Read(image)) return std::nullopt;
  // If the file's format differs (it has a palette), the decoder replaced the image by one of its own.
  if (image.constBits() != reinterpret_cast<const uchar*>(pixels.Row(0))) return CopyOf(image);
  return pixels;
}

}  // namespace

std::optional<Bitmap> DecodeBitmap(std::string_view bytes) {
  const QSize size = BmpReader(bytes).Size();
  if (size.isEmpty()) return std::nullopt;
  if (IsRunLengthEncoded(bytes)) return RunReader(bytes, size).Read();
  std::optional<Bitmap> pixels = ReadRows(bytes, size);
  const auto bits = pixels ? ChannelBits(bytes) : std::nullopt;
  if (bits) WidenChannels(*pixels, *bits);
  return pixels;
}

std::string EncodePng(const Bitmap& bitmap) {
  QBuffer buffer;
  QImage image = ViewOf(bitmap);
  if (!IsOpaque(bitmap)) image.reinterpretAsFormat(QImage::Format_ARGB32);
  if (!QImageWriter(&buffer, "PNG").write(image)) throw OutOfMemory();
  return buffer.data().toStdString();
}

}  // namespace sorvex
