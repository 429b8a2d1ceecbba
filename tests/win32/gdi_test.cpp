// SPDX-License-Identifier: MIT
// The raster operations of the other tests, which drawing and the contact test are held against, beside GDI's own.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/win32/built_ins.h"
#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

constexpr Pixel kColor = 0xFFFFFF;  // GDI may set the byte above it

// A surface in GDI's hands.
class Dib {
 public:
  explicit Dib(Size size, Pixel fill = 0) : context_(::CreateCompatibleDC(nullptr)) {
    // Rows from the top.
    const BITMAPINFO info{{sizeof info.bmiHeader, size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* pixels = nullptr;
    bitmap_ = ::CreateDIBSection(context_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = {static_cast<Pixel*>(pixels),
               static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)};
    before_ = ::SelectObject(context_, bitmap_);
    std::ranges::fill(pixels_, fill);
  }
  explicit Dib(const Bitmap& bitmap) : Dib(bitmap.Extent()) { std::ranges::copy(bitmap.Pixels(), pixels_.begin()); }
  Dib(const Dib&) = delete;
  Dib& operator=(const Dib&) = delete;
  ~Dib() {
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(context_);
  }

  HDC Context() const { return context_; }
  /// As BitBlt has it.
  void Copy(int x, int y, Size size, const Dib& source, int sourceX, int sourceY, DWORD operation) {
    EXPECT_TRUE(::BitBlt(context_, x, y, size.width, size.height, source.context_, sourceX, sourceY, operation));
  }
  COLORREF At(int x, int y) const { return ::GetPixel(context_, x, y); }
  bool Shows(const Bitmap& expected) const {
    ::GdiFlush();
    return std::ranges::equal(pixels_, expected.Pixels(),
                              [](Pixel a, Pixel b) { return (a & kColor) == (b & kColor); });
  }

 private:
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
  std::span<Pixel> pixels_;
};

TEST(Gdi, CopiesAsTheRasterOperationsOfTheOtherTestsDo) {
  constexpr std::pair<RasterOperation, DWORD> kOperations[] = {{RasterOperation::SrcCopy, SRCCOPY},
                                                               {RasterOperation::MergePaint, MERGEPAINT},
                                                               {RasterOperation::SrcInvert, SRCINVERT},
                                                               {RasterOperation::SrcAnd, SRCAND}};
  Random random;
  SCOPED_TRACE(random.Seed);
  const auto size = [&](int most) { return Size{random.Number(1, most), random.Number(1, most)}; };
  const auto place = [&] { return random.Number(-40, 50); };
  for (int round = 0; round < 4000; ++round) {
    const auto& [operation, code] = kOperations[round % 4];
    Bitmap expected = random.Bitmap(size(40), Colors::Any);
    const Bitmap source = random.Bitmap(size(30), random.Number(0, 1) == 0 ? Colors::Any : Colors::MaskLike);
    Dib target(expected);
    const Size copied = size(34);
    const int x = place(), y = place(), sourceX = place(), sourceY = place();
    target.Copy(x, y, copied, Dib(source), sourceX, sourceY, code);
    BitBlt(expected, x, y, copied, source, sourceX, sourceY, operation);
    ASSERT_TRUE(target.Shows(expected)) << "round " << round << ", operation " << std::hex << code;
  }
}

// Scaled by the system, the folder has pixels as green or red as no folder.
TEST(Gdi, PaintsTheFolderIconInItsColorsAtASizeThatItsFileHasNot) {
  Dib button(Size{24, 24}, 0xC0C0C0);
  PaintBuiltIn(button.Context(), {0, 0, 24, 24}, BuiltIn::FolderIcon);
  int yellow = 0;
  for (int y = 0; y < 24; ++y) {
    for (int x = 0; x < 24; ++x) {
      const COLORREF seen = button.At(x, y);
      EXPECT_LT(std::abs(GetRValue(seen) - GetGValue(seen)), 100) << x << ", " << y;
      yellow += GetGValue(seen) > GetBValue(seen) + 80 ? 1 : 0;
    }
  }
  EXPECT_GT(yellow, 100);
}

}  // namespace
}  // namespace sorvex
