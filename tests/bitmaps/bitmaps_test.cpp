// SPDX-License-Identifier: MIT
// Bitmap files of every kind that themes are made of, through the reader of each system: small ones made here, and
// those of a folder that nobody here made, where SORVEX_BITMAPS names one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "bitmaps/png.h"
#include "platform/decode_bitmap.h"
#include "support/temp_folder.h"
#include "support/wave_file.h"
#include "themes/bitmap_check.h"

namespace sorvex {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr Pixel kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;

// 3 x 2 pixels; the palette, where the depth has one, begins with `first`, red, green, blue, white.
std::string File(std::uint32_t bits, std::uint32_t compression, const std::string& rows, int height = 2,
                 Pixel first = kBlack) {
  const std::uint32_t colors = bits <= 8 ? 1U << bits : 0;
  const std::uint32_t offset = 54 + 4 * colors + (compression == 3 ? 12 : 0);  // with its masks, which open `rows`
  std::string file = "BM" + LittleEndian(offset + static_cast<std::uint32_t>(rows.size()), 4) + LittleEndian(0, 4) +
                     LittleEndian(offset, 4);
  for (const std::uint32_t field : {40U, 3U, static_cast<std::uint32_t>(height)}) file += LittleEndian(field, 4);
  file += LittleEndian(1, 2) + LittleEndian(bits, 2) + LittleEndian(compression, 4);
  file += LittleEndian(static_cast<std::uint32_t>(rows.size()), 4) + std::string(16, '\0');
  std::string palette;
  for (const Pixel color : {first, kRed, kGreen, kBlue, kWhite}) palette += LittleEndian(color & 0xFFFFFF, 4);
  palette.resize(4 * colors);
  return file + palette + rows;
}

std::string WithOffset(std::string file, char offset) {
  file.replace(10, 4, std::string{offset, '\0', '\0', '\0'});
  return file;
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
    {"8 bits from the top", File(8, 0, "\1\2\3\0\0\4\1\0"s, -2), kThree},
    {"24 bits from the top", File(24, 0, "\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0"s + "\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\0"s, -2),
     kThree},
    {"16 bits with masks",
     File(16, 3, "\0\xF8\0\0\xE0\7\0\0\x1F\0\0\0"s + "\0\0\xFF\xFF\0\xF8\0\0\0\xF8\xE0\7\x1F\0\0\0"s), kThree},
    {"a short header",
     "BM\0\0\0\0\0\0\0\0\x1A\0\0\0\x0C\0\0\0\3\0\2\0\1\0\x18\0"s + "\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\0"s +
         "\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0"s,
     kThree},
    {"runs of 8 bits", File(8, 1, "\0\3\0\4\1\0\0\0"s + "\1\1\1\2\1\3\0\1"s), kThree},
    {"runs of 4 bits", File(4, 2, "\0\3\x04\x10\0\0"s + "\3\x12\0\1"s), {kRed, kGreen, kRed, kBlack, kWhite, kRed}},
    {"24 bits whose place is not said",
     WithOffset(File(24, 0, "\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\0"s + "\0\0\xFF\0\xFF\0\xFF\0\0\0\0\0"s), 0), kThree},
    {"24 bits without padding behind the last row",
     File(24, 0, "\0\0\0\xFF\xFF\xFF\0\0\xFF\0\0\0"s + "\0\0\xFF\0\xFF\0\xFF\0\0"s), kThree},
    {"8 bits said to lie in the header", WithOffset(File(8, 0, "\0\4\1\0\1\2\3\0"s), 22), kThree},
    // What the runs leave out is black, in every reading, whatever the palette.
    {"runs that leave out",
     File(8, 1, "\1\4\0\0"s + "\0\2\1\0\1\2\0\1"s, 2, kBlue),
     {kBlack, kGreen, kBlack, kWhite, kBlack, kBlack}},
    {"runs of 4 bits that leave out",
     File(4, 2, "\1\x40\0\0"s + "\0\2\1\0\1\x30\0\1"s, 2, kGreen),
     {kBlack, kBlue, kBlack, kWhite, kBlack, kBlack}},
};

TEST(Bitmaps, OfEveryDepthAreReadToThePixel) {
  for (const Kind& kind : kKinds) {
    ASSERT_EQ(DeclaredSize(kind.file), (Size{3, 2})) << kind.what;
    std::string bytes = kind.file.substr(0, static_cast<std::size_t>(ReadBitmapHeaders(kind.file)->mostBytes));
    CompleteBitmap(bytes);
    const std::optional<Bitmap> bitmap = DecodeBitmap(bytes);
    ASSERT_TRUE(bitmap) << kind.what;
    EXPECT_EQ(bitmap->Extent(), (Size{3, 2})) << kind.what;
    EXPECT_TRUE(std::ranges::equal(bitmap->Pixels(), kind.pixels))
        << kind.what << ": " << testing::PrintToString(std::vector(bitmap->Pixels().begin(), bitmap->Pixels().end()));
  }
}

// The columns of the folder's list that count here.
struct Listed {
  std::string file;
  std::string kind;  // g: good, q: questionable
  bool runLength;
  int tolerance = 0;
  std::vector<std::string> references = {};
};

std::vector<std::string> Split(const std::string& text, char at) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, at);) parts.push_back(part);
  return parts;
}

std::vector<Listed> ReadList(const fs::path& folder) {
  std::vector<Listed> listed;
  for (const std::string& line : Split(ReadWholeFile(folder / "manifest.tsv"), '\n')) {
    const std::vector<std::string> columns = Split(line, '\t');
    const std::string& form = columns.at(18);
    Listed file{columns[0], columns[1], form.ends_with("/1") || form.ends_with("/2")};
    if (columns[4] == "yes") file.tolerance = std::stoi(columns[14]), file.references = Split(columns.at(20), ',');
    listed.push_back(std::move(file));
  }
  return listed;
}

int LargestDifference(const Bitmap& a, const Bitmap& b) {
  if (a.Extent() != b.Extent()) return 256;
  int largest = 0;
  for (std::size_t i = 0; i < a.Pixels().size(); ++i)
    for (const int shift : {0, 8, 16})
      largest = std::max(largest, std::abs(static_cast<int>(a.Pixels()[i] >> shift & 0xFF) -
                                           static_cast<int>(b.Pixels()[i] >> shift & 0xFF)));
  return largest;
}

TEST(Bitmaps, OfOthersLookAsTheirReferences) {
  const char* named = std::getenv("SORVEX_BITMAPS");
  if (named == nullptr) GTEST_SKIP() << "SORVEX_BITMAPS names no folder";
  const fs::path folder = named;
  int good = 0;
  int incomplete = 0;
  for (const Listed& listed : ReadList(folder)) {
    const bool isGood = listed.kind == "g";
    const bool isIncomplete = listed.kind == "q" && listed.runLength && !listed.references.empty();
    if (!isGood && !isIncomplete) continue;
    // As a theme's loading has it: without what stands behind the pixels.
    std::string bytes = ReadWholeFile(folder / listed.file);
    if (const auto declared = ReadBitmapHeaders(bytes))
      bytes.resize(std::min<std::size_t>(bytes.size(), declared->mostBytes));
    const std::optional<Bitmap> bitmap = DeclaredSize(bytes) ? DecodeBitmap(bytes) : std::nullopt;
    if (!bitmap) {
      EXPECT_FALSE(isGood) << listed.file;
      continue;
    }
    int difference = 256;
    for (const std::string& reference : listed.references)
      difference = std::min(difference, LargestDifference(*bitmap, ReadPng(folder / "ref" / reference)));
    EXPECT_LE(difference, listed.tolerance) << listed.file;
    ++(isGood ? good : incomplete);
  }
  EXPECT_EQ(good, 73);
  EXPECT_GE(incomplete, 4) << "run-length files with uncovered pixels";
}

TEST(Bitmaps, ThatAreNoneAreRefused) {
  for (const std::string& bytes :
       {""s, "B"s, "BM"s, "BM"s + std::string(52, '\0'), std::string(200, 'x'), "GIF89a"s, "\xFF\xD8\xFF\xE0"s})
    EXPECT_FALSE(DecodeBitmap(bytes)) << testing::PrintToString(bytes);
}

// The reader gets no file but one that passed the check. Whatever it makes of that one, it lives on, with pixels for
// all that it says.
TEST(Bitmaps, DamagedOnesHarmNothing) {
  int read = 0;
  for (const Kind& kind : kKinds) {
    for (std::size_t at = 0; at < kind.file.size(); ++at) {
      for (const char byte : {'\0', '\1', '\4', '\x7F', '\xFF'}) {
        std::string file = kind.file;
        file[at] = byte;
        if (byte == '\x7F') file.resize(at);
        const std::optional<Size> size = DeclaredSize(file);
        const std::optional<Bitmap> bitmap = size ? DecodeBitmap(file) : std::nullopt;
        EXPECT_TRUE(!bitmap || bitmap->Extent() == *size) << kind.what << ", byte " << at;
        read += bitmap ? 1 : 0;
      }
    }
  }
  EXPECT_GT(read, 500);
}

}  // namespace
}  // namespace sorvex
