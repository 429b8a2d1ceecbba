// SPDX-License-Identifier: MIT
// Drawing and the contact test held against GDI itself, of which every other test's raster operations are a copy.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "game/collision.h"
#include "game/drawing.h"
#include "platform/win32/built_ins.h"
#include "support/random_surfaces.h"
#include "support/raster.h"

namespace sorvex {
namespace {

constexpr Pixel kColour = 0xFFFFFF;  // GDI may set the byte above it
constexpr Pixel kWorkColour = 0xC00000;

// A surface in GDI's hands.
class Dib {
 public:
  explicit Dib(Size size, Pixel fill = 0) : size_(size), context_(::CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    bitmap_ = ::CreateDIBSection(context_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = {static_cast<Pixel*>(pixels),
               static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height)};
    before_ = ::SelectObject(context_, bitmap_);
    Clear(fill);
  }
  explicit Dib(const Bitmap& bitmap) : Dib(bitmap.Extent()) { std::ranges::copy(bitmap.Pixels(), pixels_.begin()); }
  Dib(const Dib&) = delete;
  Dib& operator=(const Dib&) = delete;
  ~Dib() {
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(context_);
  }

  Size Extent() const { return size_; }
  HDC Context() const { return context_; }
  void Clear(Pixel fill) {
    ::GdiFlush();
    std::ranges::fill(pixels_, fill);
  }
  /// As BitBlt has it.
  void Copy(int x, int y, Size size, const Dib& source, int sourceX, int sourceY, DWORD operation) {
    EXPECT_TRUE(::BitBlt(context_, x, y, size.width, size.height, source.context_, sourceX, sourceY, operation));
  }
  COLORREF At(int x, int y) const { return ::GetPixel(context_, x, y); }
  bool Shows(const Bitmap& expected) const {
    ::GdiFlush();
    return std::ranges::equal(pixels_, expected.Pixels(),
                              [](Pixel a, Pixel b) { return (a & kColour) == (b & kColour); });
  }

 private:
  Size size_;
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
    Bitmap expected = random.Bitmap(size(40), Colours::Any);
    const Bitmap source = random.Bitmap(size(30), random.Number(0, 1) == 0 ? Colours::Any : Colours::MaskLike);
    Dib target(expected);
    const Size copied = size(34);
    const int x = place(), y = place(), sourceX = place(), sourceY = place();
    target.Copy(x, y, copied, Dib(source), sourceX, sourceY, code);
    BitBlt(expected, x, y, copied, source, sourceX, sourceY, operation);
    ASSERT_TRUE(target.Shows(expected)) << "round " << round << ", operation " << std::hex << code;
  }
}

TEST(Gdi, DrawsThroughMasksAndCopiesFramesToTheSamePixels) {
  Random random;
  SCOPED_TRACE(random.Seed);
  const auto size = [&](int most) { return Size{random.Number(1, most), random.Number(1, most)}; };
  for (int round = 0; round < 4000; ++round) {
    const Frame frame = random.Number(0, 1) == 0 ? Frame::Sunken : Frame::Flat;
    const Size pictureSize = size(24);
    const PictureBox picture = AutoSurface(random.Bitmap(pictureSize, Colours::Any), frame);
    const PictureBox mask = AutoSurface(random.Bitmap(random.Number(0, 1) == 0 ? pictureSize : size(30),
                                                      random.Number(0, 2) == 0 ? Colours::Any : Colours::MaskLike),
                                        frame);
    const Bitmap background = random.Bitmap(size(40), Colours::Any);
    Bitmap field = random.Bitmap(size(40), Colours::Any);
    const int x = random.Number(-35, 45), y = random.Number(-35, 45);

    Dib expected(field);
    expected.Copy(0, 0, field.Extent(), Dib(background), 0, 0, SRCCOPY);
    expected.Copy(x, y, picture.OuterSize(), Dib(mask.Image()), 0, 0, MERGEPAINT);
    expected.Copy(x, y, picture.OuterSize(), Dib(picture.Image()), 0, 0, SRCAND);
    CopySurface(field, background, field.Bounds());
    DrawMasked(field, x, y, picture, mask, field.Bounds());
    ASSERT_TRUE(expected.Shows(field)) << "round " << round << " at " << x << ", " << y;
  }
}

// Scaled by the system, the folder has pixels as green or red as no folder.
TEST(Gdi, PaintsTheFolderIconInItsColoursAtASizeThatItsFileHasNot) {
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

// The two hidden work surfaces and what the contact test does on them.
struct WorkSurfaces {
  std::unique_ptr<Dib> work = std::make_unique<Dib>(Size{61, 69}, kWorkColour);
  Dib inverted{{277, 261}, kColour};

  bool Contact(int dx, int dy, const PictureBox& itemMask, const PictureBox& containerMask) {
    const Dib item(itemMask.Image());
    const Dib container(containerMask.Image());
    work->Clear(kWorkColour);
    work->Copy(0, 0, containerMask.OuterSize(), container, dx, dy, MERGEPAINT);
    work->Copy(0, 0, containerMask.OuterSize(), container, dx, dy, SRCINVERT);
    inverted.Copy(0, 0, itemMask.OuterSize(), item, 0, 0, SRCINVERT);
    work->Copy(0, 0, itemMask.OuterSize(), inverted, 0, 0, MERGEPAINT);
    work->Copy(0, 0, itemMask.OuterSize(), inverted, 0, 0, SRCAND);
    inverted.Clear(kColour);
    auto resized = std::make_unique<Dib>(item.Extent(), kWorkColour);
    resized->Copy(0, 0, item.Extent(), *work, 0, 0, SRCCOPY);
    work = std::move(resized);
    for (int y = 0; y < item.Extent().height; ++y)
      for (int x = 0; x <= item.Extent().width; ++x)
        if (work->At(x, y) == kColour) return true;
    return false;
  }
};

TEST(Gdi, FindsTheSameContacts) {
  Random random;
  SCOPED_TRACE(random.Seed);
  int contacts = 0;
  for (int series = 0; series < 400; ++series) {
    WorkSurfaces surfaces;
    PictureBox work = FixedSurface(Bitmap({61, 69}));
    for (int round = 0; round < 10; ++round) {
      const Size largest = random.Number(0, 19) == 0 ? Size{280, 265} : Size{140, 30};
      const auto [itemMask, containerMask, dx, dy] = RandomContact(random, largest);

      const bool expected = surfaces.Contact(dx, dy, itemMask, containerMask);
      ASSERT_EQ(HitsContainer(ToInteger(7 + dx), ToInteger(9 + dy), 7, 9, itemMask, containerMask, work), expected)
          << "series " << series << " round " << round << " distance " << dx << ", " << dy;
      contacts += expected ? 1 : 0;
    }
  }
  EXPECT_GT(contacts, 200) << "too few contacts to mean anything";
  EXPECT_LT(contacts, 3800);
}

}  // namespace
}  // namespace sorvex
