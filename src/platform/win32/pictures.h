// SPDX-License-Identifier: MIT
// Pictures as the system's own reader reads them: bitmap, JPEG and GIF.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// OLE on this thread, for the picture reader and for the shell. Lives as long as the desktop.
class OleSession {
 public:
  OleSession();
  OleSession(const OleSession&) = delete;
  OleSession& operator=(const OleSession&) = delete;
  ~OleSession();

 private:
  bool started_;
};

/// GDI+, from its first use on for the time that the program runs.
void StartGdiPlus();

/// The pixels of a picture file, given its bytes; transparency is dropped. nullopt when the system cannot read it. The
/// reader trusts what a bitmap declares of itself: check that first (themes/bitmap_check.h).
std::optional<Bitmap> DecodePicture(std::string_view bytes);

/// Paints a picture file stretched to `place`; what is transparent in it shows what was there.
void PaintPicture(HDC context, const Rectangle& place, std::string_view bytes);
/// The same for an icon's image.
void PaintIcon(HDC context, const Rectangle& place, HICON icon);

}  // namespace sorvex
