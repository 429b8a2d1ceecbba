// SPDX-License-Identifier: MIT
// Pictures and their masks, pixel by pixel.
#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "kit/check.h"

namespace sorvex {
namespace {

// How often something was seen, and where first.
struct Count {
  int pixels = 0;
  Place first;
  void Add(int x, int y) {
    if (pixels++ == 0) first = {x, y};
  }
};

// "3 pixels, the first at (4, 5),"
std::string Said(const Count& count) {
  return CountedPixels(count.pixels) + (count.pixels == 1 ? ", at " : ", the first at ") + Said(count.first) + ",";
}

std::string ColorName(Pixel pixel) {
  std::array<char, 8> name{};
  std::snprintf(name.data(), name.size(), "#%06X", static_cast<unsigned>(pixel & 0xFFFFFF));
  return name.data();
}

std::string SizeName(const Bitmap& bitmap) {
  return std::to_string(bitmap.Width()) + " x " + std::to_string(bitmap.Height());
}

struct Pair {
  std::string pictureFile;
  std::string maskFile;
  const Bitmap& picture;
  const Bitmap& mask;
};

// What both together show: of the mask's pixels, and of those where picture and mask reach.
struct Comparison {
  Count gray;       // mask neither black nor white
  Count spilt;      // picture not white where the mask is white
  int colored = 0;  // picture not white where the mask is black
  int white = 0;    // picture white where the mask is black
  int blank = 0;    // both white
};

Comparison Compare(const Pair& pair) {
  Comparison seen;
  for (int y = 0; y < pair.mask.Height(); ++y) {
    for (int x = 0; x < pair.mask.Width(); ++x) {
      const Pixel mask = pair.mask.At(x, y);
      if (mask != kBlack && mask != kWhite) seen.gray.Add(x, y);
      if (!pair.picture.Bounds().Contains(x, y)) continue;
      const bool isWhite = pair.picture.At(x, y) == kWhite;
      if (mask == kBlack) ++(isWhite ? seen.white : seen.colored);
      if (mask != kWhite) continue;
      if (isWhite)
        ++seen.blank;
      else
        seen.spilt.Add(x, y);
    }
  }
  return seen;
}

// At nine of ten pixels they say the opposite of each other.
bool IsInverted(const Comparison& seen) {
  const int opposite = seen.spilt.pixels + seen.white;
  return seen.spilt.pixels > 0 && seen.white > 0 && opposite >= 9 * (seen.colored + seen.blank);
}

// The white around what the picture shows, as far as the mask is black there: white that reaches the picture's edge, or
// what is transparent, through nothing but white.
Count OpaqueSurroundings(const Pair& pair) {
  const Rectangle box = Intersection(pair.picture.Bounds(), pair.mask.Bounds());
  const auto index = [&](int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(box.Width()) + static_cast<std::size_t>(x);
  };
  std::vector<bool> reached(index(0, box.Height()));
  std::vector<Place> next;
  const auto reach = [&](int x, int y) {
    if (!box.Contains(x, y) || reached[index(x, y)] || pair.picture.At(x, y) != kWhite) return;
    reached[index(x, y)] = true;
    next.push_back({x, y});
  };
  for (int y = 0; y < box.Height(); ++y)
    for (int x = 0; x < box.Width(); ++x)
      if (x == 0 || y == 0 || x == box.right - 1 || y == box.bottom - 1 || pair.mask.At(x, y) == kWhite) reach(x, y);
  while (!next.empty()) {
    const Place at = next.back();
    next.pop_back();
    for (const auto& [dx, dy] : {Place{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) reach(at.x + dx, at.y + dy);
  }
  Count opaque;
  for (int y = 0; y < box.Height(); ++y)
    for (int x = 0; x < box.Width(); ++x)
      if (reached[index(x, y)] && pair.mask.At(x, y) == kBlack) opaque.Add(x, y);
  return opaque;
}

void Warn(Findings& findings, std::string_view code, const std::string& file, const Count& count,
          const std::string& message) {
  findings.push_back({Severity::Warning, code, file, 0, count.first, message});
}

void CheckPair(const Pair& pair, Findings& findings) {
  const Comparison seen = Compare(pair);
  if (pair.picture.Extent() != pair.mask.Extent())
    findings.push_back({Severity::Warning, "mask-size", pair.maskFile, 0, std::nullopt,
                        SizeName(pair.mask) + " pixels, but its picture " + pair.pictureFile + " has " +
                            SizeName(pair.picture) + "; both must have the same size"});
  if (seen.gray.pixels > 0)
    Warn(findings, "mask-not-pure", pair.maskFile, seen.gray,
         Said(seen.gray) + " neither black #000000 nor white #FFFFFF but " +
             ColorName(pair.mask.At(seen.gray.first.x, seen.gray.first.y)) + "; a mask has no other color");
  if (IsInverted(seen)) {
    findings.push_back({Severity::Warning, "mask-inverted", pair.maskFile, 0, std::nullopt,
                        "black and white are exchanged: it is white where " + pair.pictureFile +
                            " shows something; a mask is black where its picture is opaque"});
    return;
  }
  if (seen.spilt.pixels > 0)
    Warn(findings, "picture-not-white", pair.pictureFile, seen.spilt,
         Said(seen.spilt) + " not white but " + ColorName(pair.picture.At(seen.spilt.first.x, seen.spilt.first.y)) +
             " where " + pair.maskFile +
             " is transparent; a picture is white #FFFFFF there, or the background shows through it");
  if (const Count opaque = OpaqueSurroundings(pair); opaque.pixels > 0)
    Warn(findings, "opaque-over-nothing", pair.maskFile, opaque,
         Said(opaque) + " black where " + pair.pictureFile +
             " shows nothing but the white around it; a mask is white there");
}

void CheckPair(const std::string& pictureFile, const std::string& maskFile, const Picture& picture, const Picture& mask,
               Findings& findings) {
  if (picture && mask) CheckPair({pictureFile, maskFile, picture->Pixels(), mask->Pixels()}, findings);
}

bool HasBlack(const Bitmap& mask) { return std::ranges::find(mask.Pixels(), kBlack) != mask.Pixels().end(); }

}  // namespace

void CheckMasks(const Theme& theme, Findings& findings) {
  for (std::size_t n = 0; n < theme.pictures.size(); ++n) {
    const ItemPictures& pictures = theme.pictures[n];
    const std::string file = std::to_string(n) + ".bmp";
    if (pictures.itemMask && !HasBlack(pictures.itemMask->Pixels()))
      findings.push_back({Severity::Error, "no-black-pixel", "sm" + file, 0, std::nullopt,
                          "no pixel is exactly black #000000: nobody can pick the item up"});
    CheckPair("ss" + file, "sm" + file, pictures.item, pictures.itemMask, findings);
    CheckPair("cs" + file, "cm" + file, pictures.container, pictures.containerMask, findings);
  }
  CheckPair("pS.bmp", "pM.bmp", theme.targetPicture, theme.targetMask, findings);
}

}  // namespace sorvex
