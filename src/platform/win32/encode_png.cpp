// SPDX-License-Identifier: MIT
// Writing PNG files through GDI+.
#include "platform/encode_png.h"

#include <windows.h>
#include <objidl.h>
#include <ole2.h>
#include <shlwapi.h>
#include <gdiplus.h>

#include <memory>

#include "base/runtime_error.h"
#include "platform/win32/pictures.h"

namespace sorvex {
namespace {

// The class identifier of GDI+'s encoder for image/png.
constexpr CLSID kPngEncoder{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

}  // namespace

std::string EncodePng(const Bitmap& bitmap) {
  StartGdiPlus();
  const std::unique_ptr<IStream, Releaser> stream(::SHCreateMemStream(nullptr, 0));
  // GDI+ only reads the pixels, although its parameter is not const.
  Gdiplus::Bitmap image(bitmap.Width(), bitmap.Height(), bitmap.Width() * static_cast<int>(sizeof(Pixel)),
                        IsOpaque(bitmap) ? PixelFormat32bppRGB : PixelFormat32bppARGB,
                        reinterpret_cast<BYTE*>(const_cast<Pixel*>(bitmap.Row(0))));
  STATSTG facts{};
  if (!stream || image.Save(stream.get(), &kPngEncoder, nullptr) != Gdiplus::Ok ||
      FAILED(stream->Stat(&facts, STATFLAG_NONAME)) || FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr)))
    throw OutOfMemory();
  std::string bytes(static_cast<std::size_t>(facts.cbSize.QuadPart), '\0');
  ULONG read = 0;
  if (FAILED(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read)) || read != bytes.size())
    throw OutOfMemory();
  return bytes;
}

}  // namespace sorvex
