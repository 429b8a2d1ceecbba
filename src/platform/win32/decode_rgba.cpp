// SPDX-License-Identifier: MIT
// Decoding pictures with GDI+.
#include "platform/decode_rgba.h"

#include <windows.h>
#include <objidl.h>
#include <ole2.h>
#include <shlwapi.h>
#include <gdiplus.h>

#include <memory>

#include "platform/win32/pictures.h"

namespace sorvex {
namespace {

// A PNG file's size stands in its first chunk (IHDR). GDI+ may take memory for the pixels before it tells the size.
void CheckPng(std::string_view bytes, std::int64_t mostPixels) {
  constexpr std::size_t widthAt = 16;
  constexpr std::size_t heightAt = 20;
  if (!bytes.starts_with("\x89PNG") || bytes.size() < heightAt + 4) return;
  const auto side = [&](std::size_t at) {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
  };
  AllowedSize(side(widthAt), side(heightAt), mostPixels);
}

}  // namespace

Bitmap DecodeRgba(std::string_view bytes, std::int64_t mostPixels) {
  if (LooksLikeSvg(bytes)) throw PictureError("SVG pictures can be read on Linux only; save it as PNG");
  CheckPng(bytes, mostPixels);
  StartGdiPlus();
  const std::unique_ptr<IStream, Releaser> stream(
      ::SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
  if (!stream) ThrowUndecodable();
  Gdiplus::Bitmap image(stream.get());
  if (image.GetLastStatus() != Gdiplus::Ok) ThrowUndecodable();
  const Size size = AllowedSize(image.GetWidth(), image.GetHeight(), mostPixels);
  Bitmap picture = Bitmap::Uninitialized(size);
  const Gdiplus::Rect whole(0, 0, size.width, size.height);
  Gdiplus::BitmapData rows{};
  rows.Width = image.GetWidth();
  rows.Height = image.GetHeight();
  rows.Stride = size.width * static_cast<int>(sizeof(Pixel));
  rows.PixelFormat = PixelFormat32bppARGB;
  rows.Scan0 = picture.Row(0);
  if (image.LockBits(&whole, Gdiplus::ImageLockModeRead | Gdiplus::ImageLockModeUserInputBuf, PixelFormat32bppARGB,
                     &rows) != Gdiplus::Ok)
    ThrowUndecodable();
  image.UnlockBits(&rows);
  return picture;
}

}  // namespace sorvex
