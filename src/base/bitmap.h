// SPDX-License-Identifier: MIT
// Pixel memory: 32 bits per pixel, 0xFFRRGGBB, top-down, without padding between rows.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <vector>

#include "base/rectangle.h"

namespace sorvex {

/// One pixel: 0xFFRRGGBB. The alpha byte is always FF, so that a toolkit can use the memory as an opaque image.
using Pixel = std::uint32_t;

inline constexpr Pixel kBlack = 0xFF000000;
inline constexpr Pixel kWhite = 0xFFFFFFFF;

/// Leaves default-constructed elements uninitialized.
template <class T>
struct UninitializedAllocator : std::allocator<T> {
  template <class U>
  struct rebind {
    using other = UninitializedAllocator<U>;
  };
  void construct(T* place) { ::new (place) T; }
  void construct(T* place, const T& value) { ::new (place) T(value); }
};

class Bitmap {
 public:
  Bitmap() = default;
  /// A bitmap with uninitialized pixels, for callers that write all of them.
  static Bitmap Uninitialized(Size size) {
    Bitmap bitmap;
    bitmap.size_ = size;
    bitmap.pixels_.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    return bitmap;
  }
  explicit Bitmap(Size size, Pixel fill = kBlack)
      : size_(size), pixels_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), fill) {}

  Size Extent() const { return size_; }
  Rectangle Bounds() const { return Rectangle::At(0, 0, size_); }
  int Width() const { return size_.width; }
  int Height() const { return size_.height; }

  /// The first pixel of row `y`, 0 (top) to Height() - 1; not checked.
  Pixel* Row(int y) { return pixels_.data() + Offset(y); }
  const Pixel* Row(int y) const { return pixels_.data() + Offset(y); }
  Pixel At(int x, int y) const { return Row(y)[x]; }

  std::span<const Pixel> Pixels() const { return pixels_; }
  bool operator==(const Bitmap&) const = default;

 private:
  std::size_t Offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width); }

  Size size_;
  std::vector<Pixel, UninitializedAllocator<Pixel>> pixels_;
};

/// True if every alpha byte is FF, as in all bitmaps but pictures with transparency (platform/decode_rgba.h).
bool IsOpaque(const Bitmap& bitmap);

/// Copies `source` onto `dest` at (0, 0) (raster operation SRCCOPY), clipped to both bitmaps and to `clip`.
void CopySurface(Bitmap& dest, const Bitmap& source, const Rectangle& clip);

}  // namespace sorvex
