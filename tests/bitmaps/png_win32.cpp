// SPDX-License-Identifier: MIT
// Reference pictures as GDI+ reads them.
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>

#include <stdexcept>

#include "bitmaps/png.h"

namespace sorvex {

Bitmap ReadPng(const std::filesystem::path& path) {
  static const ULONG_PTR session = [] {
    const Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    return token;
  }();
  static_cast<void>(session);
  Gdiplus::Bitmap picture(path.c_str());
  if (picture.GetLastStatus() != Gdiplus::Ok) throw std::runtime_error("cannot read " + path.string());
  Bitmap pixels({static_cast<int>(picture.GetWidth()), static_cast<int>(picture.GetHeight())});
  for (int y = 0; y < pixels.Height(); ++y) {
    for (int x = 0; x < pixels.Width(); ++x) {
      Gdiplus::Color color;
      picture.GetPixel(x, y, &color);
      pixels.Row(y)[x] = kBlack | color.GetValue();
    }
  }
  return pixels;
}

}  // namespace sorvex
