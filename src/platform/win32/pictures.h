// SPDX-License-Identifier: MIT
// Decoding and painting pictures (bitmap, JPEG, GIF) with OLE and GDI+.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include <optional>
#include <string_view>

#include "base/bitmap.h"

namespace sorvex {

/// Releases a COM object that a std::unique_ptr holds.
struct Releaser {
  void operator()(IUnknown* object) const { object->Release(); }
};

/// Initializes OLE on this thread, for the picture decoder and the shell. Lives as long as the desktop.
class OleSession {
 public:
  OleSession();
  OleSession(const OleSession&) = delete;
  OleSession& operator=(const OleSession&) = delete;
  ~OleSession();

 private:
  bool started_;
};

/// Initializes GDI+ on the first call; it is shut down when the program ends.
void StartGdiPlus();

/// Decodes the bytes of a picture file; transparency is dropped. nullopt if the decoder fails. It trusts a bitmap's
/// declared sizes, so validate the headers first (themes/bitmap_check.h).
std::optional<Bitmap> DecodePicture(std::string_view bytes);

/// Paints the bytes of a picture file stretched to `place`, respecting its transparency.
void PaintPicture(HDC context, const Rectangle& place, std::string_view bytes);
/// The same for an icon's image.
void PaintIcon(HDC context, const Rectangle& place, HICON icon);

}  // namespace sorvex
