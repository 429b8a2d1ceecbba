// SPDX-License-Identifier: MIT
// Decoding with OLE's picture object, painting with GDI+.
#include "platform/win32/pictures.h"

#include <windows.h>
#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>
#include <shlwapi.h>
#include <gdiplus.h>

#include <algorithm>
#include <memory>
#include <type_traits>

#include "platform/decode_bitmap.h"

namespace sorvex {
namespace {

using Stream = std::unique_ptr<IStream, Releaser>;
using PictureObject = std::unique_ptr<IPicture, Releaser>;

struct ContextDeleter {
  void operator()(HDC context) const { ::DeleteDC(context); }
};

/// GDI+, which scales pictures smoothly and supports transparency.
class GdiPlus {
 public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;
  ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }

 private:
  ULONG_PTR token_ = 0;
};

void Paint(HDC context, const Rectangle& place, Gdiplus::Image& image) {
  Gdiplus::Graphics graphics(context);
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.DrawImage(&image, place.left, place.top, place.Width(), place.Height());
}

Stream StreamOf(std::string_view bytes) {
  return Stream(::SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
}

PictureObject Load(std::string_view bytes) {
  const Stream stream = StreamOf(bytes);
  void* picture = nullptr;
  if (!stream || FAILED(::OleLoadPicture(stream.get(), static_cast<LONG>(bytes.size()), FALSE, IID_IPicture, &picture)))
    return nullptr;
  return PictureObject(static_cast<IPicture*>(picture));
}

// The picture's bitmap handle; null if it is not a bitmap. GDI handles have 32 significant bits.
HBITMAP BitmapOf(IPicture& picture) {
  SHORT type = PICTYPE_UNINITIALIZED;
  OLE_HANDLE handle = 0;
  if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP || FAILED(picture.get_Handle(&handle))) return nullptr;
  return reinterpret_cast<HBITMAP>(static_cast<INT_PTR>(static_cast<int>(handle)));
}

}  // namespace

OleSession::OleSession() : started_(SUCCEEDED(::OleInitialize(nullptr))) {}

OleSession::~OleSession() {
  if (started_) ::OleUninitialize();
}

void StartGdiPlus() { static const GdiPlus session; }

std::optional<Bitmap> DecodePicture(std::string_view bytes) {
  const PictureObject picture = Load(bytes);
  const HBITMAP source = picture ? BitmapOf(*picture) : nullptr;
  BITMAP facts{};
  if (source == nullptr || ::GetObjectW(source, sizeof facts, &facts) == 0 || facts.bmWidth <= 0 || facts.bmHeight <= 0)
    return std::nullopt;
  Bitmap pixels({static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight)});
  BITMAPINFO wanted{};
  wanted.bmiHeader.biSize = sizeof wanted.bmiHeader;
  wanted.bmiHeader.biWidth = facts.bmWidth;
  wanted.bmiHeader.biHeight = -facts.bmHeight;  // negative: top-down rows
  wanted.bmiHeader.biPlanes = 1;
  wanted.bmiHeader.biBitCount = 32;
  const std::unique_ptr<std::remove_pointer_t<HDC>, ContextDeleter> context(::CreateCompatibleDC(nullptr));
  const auto rows = static_cast<UINT>(facts.bmHeight);
  if (::GetDIBits(context.get(), source, 0, rows, pixels.Row(0), &wanted, DIB_RGB_COLORS) != facts.bmHeight)
    return std::nullopt;
  std::for_each_n(pixels.Row(0), pixels.Pixels().size(), [](Pixel& pixel) { pixel |= kBlack; });
  return pixels;
}

std::optional<Bitmap> DecodeBitmap(std::string_view bytes) { return DecodePicture(bytes); }

void PaintPicture(HDC context, const Rectangle& place, std::string_view bytes) {
  StartGdiPlus();
  const Stream stream = StreamOf(bytes);
  Gdiplus::Image image(stream.get());
  Paint(context, place, image);
}

void PaintIcon(HDC context, const Rectangle& place, HICON icon) {
  StartGdiPlus();
  Gdiplus::Bitmap image(icon);
  Paint(context, place, image);
}

}  // namespace sorvex
