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
  const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
  Bitmap copy({opaque.width(), opaque.height()});
  for (int y = 0; y < copy.Height(); ++y) {
    const auto* row = reinterpret_cast<const Pixel*>(opaque.constScanLine(y));
    std::transform(row, row + copy.Width(), copy.Row(y), [](Pixel pixel) { return kBlack | pixel; });
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

// Run-length encoding may skip pixels, which the decoder does not write. To find them, decode twice, onto zeros and
// onto ones: pixels that differ were skipped, and become black.
std::optional<Bitmap> ReadRuns(std::string_view bytes, QSize size) {
  QImage onZeros(size, QImage::Format_Indexed8);
  QImage onOnes(size, QImage::Format_Indexed8);
  onZeros.fill(0);
  onOnes.fill(0xFF);
  if (!BmpReader(bytes).Read(onZeros) || !BmpReader(bytes).Read(onOnes)) return std::nullopt;
  Bitmap pixels = CopyOf(onZeros);
  for (int y = 0; y < pixels.Height(); ++y) {
    const uchar* zeros = onZeros.constScanLine(y);
    const uchar* ones = onOnes.constScanLine(y);
    for (int x = 0; x < pixels.Width(); ++x)
      if (zeros[x] != ones[x]) pixels.Row(y)[x] = kBlack;
  }
  return pixels;
}

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
  if (IsRunLengthEncoded(bytes)) return ReadRuns(bytes, size);
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
