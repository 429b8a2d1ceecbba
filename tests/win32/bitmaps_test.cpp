// SPDX-License-Identifier: MIT
// Bitmap files of every kind that themes are made of, through the system's reader.
#include <gtest/gtest.h>

#include "support/random_surfaces.h"
#include "themes/bitmap_check.h"
#include "win32/the_desktop.h"

namespace sorvex {
namespace {

using namespace std::string_literals;

constexpr Pixel kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;

std::string LittleEndian(std::uint32_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

// 3 x 2 pixels; the palette, where the depth has one, begins with black, red, green, blue, white.
std::string File(std::uint32_t bits, std::uint32_t compression, const std::string& rows, int height = 2) {
  const std::uint32_t colours = bits <= 8 ? 1U << bits : 0;
  const std::uint32_t offset = 54 + 4 * colours;
  std::string file = "BM" + LittleEndian(offset + static_cast<std::uint32_t>(rows.size()), 4) + LittleEndian(0, 4) +
                     LittleEndian(offset, 4);
  for (const std::uint32_t field : {40U, 3U, static_cast<std::uint32_t>(height)}) file += LittleEndian(field, 4);
  file += LittleEndian(1, 2) + LittleEndian(bits, 2) + LittleEndian(compression, 4);
  file += LittleEndian(static_cast<std::uint32_t>(rows.size()), 4) + std::string(16, '\0');
  std::string palette;
  for (const Pixel colour : {kBlack, kRed, kGreen, kBlue, kWhite}) palette += LittleEndian(colour & 0xFFFFFF, 4);
  palette.resize(4 * colours);
  return file + palette + rows;
}

struct Kind {
  const char* what;
  std::string file;
  std::vector<Pixel> pixels;
};

const std::vector<Pixel> kThree{kRed, kGreen, kBlue, kBlack, kWhite, kRed};
const Kind kKinds[] = {
    {"1 bit", File(1, 0, "\x40\0\0\0\xA0\0\0\0"s), {kRed, kBlack, kRed, kBlack, kRed, kBlack}},
    {"4 bits", File(4, 0, "\x04\x10\0\0\x12\x30\0\0"s), kThree},
    {"8 bits", File(8, 0, "\0\4\1\0\1\2\3\0"s), kThree},
    {"16 bits", File(16, 0, "\0\0\xFF\x7F\0\x7C\0\0\0\x7C\xE0\x03\x1F\0\0\0"s), kThree},
    {"24 bits", File(24, 0, "\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\0"s + "\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0"s), kThree},
    {"32 bits", File(32, 0, "\0\0\0\0\xFF\xFF\xFF\0\0\0\xFF\0"s + "\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0"s), kThree},
    {"rows from the top", File(8, 0, "\1\2\3\0\0\4\1\0"s, -2), kThree},
    {"runs of 8 bits", File(8, 1, "\0\3\0\4\1\0\0\0"s + "\1\1\1\2\1\3\0\1"s), kThree},
    {"runs of 4 bits", File(4, 2, "\0\3\x04\x10\0\0"s + "\3\x12\0\1"s), {kRed, kGreen, kRed, kBlack, kWhite, kRed}},
};

TEST(Bitmaps, OfEveryDepthAreReadToThePixel) {
  for (const Kind& kind : kKinds) {
    ASSERT_EQ(DeclaredSize(kind.file), (Size{3, 2})) << kind.what;
    const std::optional<Bitmap> bitmap = TheDesktop().DecodeBitmap(kind.file);
    ASSERT_TRUE(bitmap) << kind.what;
    EXPECT_EQ(bitmap->Extent(), (Size{3, 2})) << kind.what;
    EXPECT_TRUE(std::ranges::equal(bitmap->Pixels(), kind.pixels))
        << kind.what << ": " << testing::PrintToString(std::vector(bitmap->Pixels().begin(), bitmap->Pixels().end()));
  }
}

TEST(Bitmaps, ThatAreNoneAreRefused) {
  for (const std::string& bytes :
       {""s, "B"s, "BM"s, "BM"s + std::string(52, '\0'), std::string(200, 'x'), "GIF89a"s, "\xFF\xD8\xFF\xE0"s})
    EXPECT_FALSE(TheDesktop().DecodeBitmap(bytes)) << testing::PrintToString(bytes);
}

// The reader gets no file but one that passed the check. Whatever it makes of that one, it lives on, with pixels for
// all that it says.
TEST(Bitmaps, DamagedOnesHarmNothing) {
  Random random;
  SCOPED_TRACE(random.Seed);
  int read = 0;
  for (int round = 0; round < 5000; ++round) {
    std::string file = kKinds[random.Number(0, static_cast<int>(std::size(kKinds)) - 1)].file;
    for (int changes = random.Number(1, 4); changes > 0; --changes)
      file[static_cast<std::size_t>(random.Number(0, static_cast<int>(std::min<std::size_t>(file.size(), 80)) - 1))] =
          static_cast<char>(random.Number(0, 1) == 0 ? random.Number(0, 4) : random.Number(0, 255));
    if (random.Number(0, 3) == 0)
      file.resize(static_cast<std::size_t>(random.Number(0, static_cast<int>(file.size()))));
    const std::optional<Size> size = DeclaredSize(file);
    if (!size) continue;
    const std::optional<Bitmap> bitmap = TheDesktop().DecodeBitmap(file);
    if (!bitmap) continue;
    EXPECT_EQ(bitmap->Extent(), *size) << testing::PrintToString(file);
    ++read;
  }
  EXPECT_GT(read, 500);
}

}  // namespace
}  // namespace sorvex
