// SPDX-License-Identifier: MIT
// The pictures are drawn from signed distances to shapes, the sounds are decaying sines.
#include "kit/starter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "base/bitmap.h"
#include "kit/little_endian.h"
#include "kit/source.h"
#include "platform/encode_png.h"

namespace sorvex {
namespace {

constexpr char kToml[] = R"(# The source of a theme. Make the theme with: sorvex-theme make SOURCE -o THEME
# Every path is relative to this file. Places are pixels from the field's top-left corner: [x, y].

# What a right click on the information image shows. Both may be left out.
description = "A star and a moon to carry to the tray"
date = "Today"

# The picture behind everything. The field takes its size: 296 to 1366 pixels wide, 230 to 252 high.
background = "background.png"

# From this alpha on a pixel is opaque, 1 to 255. All others are transparent: a theme knows no half-transparent pixels.
threshold = 128

# Where the items are to be carried.
[target]
picture = "tray.png"
at = [222, 186]

# Uncompressed wave files. Where one is left out, the desktop's bell rings.
[sounds]
pickup = "pickup.wav"
let_go = "let_go.wav"
hit = "hit.wav"
put_in = "put_in.wav"

# What an item takes that names none.
[defaults]
container = "cup.png"

# One [[item]] for each item, 1 to 21, counted from 0. An opaque pixel of the item over one of its container sends it
# back to its rest place: 5 pixels from the container's left edge and 5 above its lower edge.
[[item]]
picture = "star.png"
container_at = [30, 140]
at = "in its container"  # the default, its rest place; or a place: [x, y]

[[item]]
picture = "moon.png"
container_at = [112, 140]
)";

struct Point {
  double x;
  double y;
};

// Pixels from the shape's edge, negative inside.
double Circle(Point p, Point center, double radius) { return std::hypot(p.x - center.x, p.y - center.y) - radius; }

// A box from (left, top) to (right, bottom) with rounded corners.
struct RoundedBox {
  double left, top, right, bottom, radius;
  double operator()(Point p) const {
    const double x = std::max(left + radius - p.x, p.x - right + radius);
    const double y = std::max(top + radius - p.y, p.y - bottom + radius);
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - radius;
  }
};

// Five tips. Each half of a tip is mirrored onto the same edge, from the tip to the notch beside it.
double Star(Point p, Point center, double tip, double notch) {
  constexpr double sector = 2 * std::numbers::pi / 5;
  const double angle = std::abs(std::remainder(std::atan2(p.x - center.x, center.y - p.y), sector));
  const double distance = std::hypot(p.x - center.x, p.y - center.y);
  const Point edge{notch * std::cos(sector / 2) - tip, notch * std::sin(sector / 2)};
  const Point from{distance * std::cos(angle) - tip, distance * std::sin(angle)};
  return (from.x * edge.y - from.y * edge.x) / std::hypot(edge.x, edge.y);
}

// A box that is open above.
// Its inside has square corners, so that the wall is nowhere thicker than `wall`.
double Cup(Point p, const RoundedBox& outside, double wall) {
  const RoundedBox inside{outside.left + wall, outside.top - 2 * outside.radius, outside.right - wall,
                          outside.bottom - wall, 0};
  return std::max(outside(p), -inside(p));
}

// A pixel of `color` (0xAARRGGBB) with `coverage` of it laid over `below`.
Pixel Over(Pixel below, Pixel color, double coverage) {
  const double alpha = coverage * (color >> 24) / 255;
  const double rest = (1 - alpha) * (below >> 24) / 255;
  if (alpha + rest <= 0) return 0;
  Pixel pixel = static_cast<Pixel>(std::lround(255 * (alpha + rest))) << 24;
  for (const int shift : {0, 8, 16})
    pixel |= static_cast<Pixel>(
                 std::lround(((color >> shift & 0xFF) * alpha + (below >> shift & 0xFF) * rest) / (alpha + rest)))
             << shift;
  return pixel;
}

// Lays the shape over the picture; its edge is smooth.
template <class Shape>
void Paint(Bitmap& picture, Pixel color, const Shape& shape) {
  for (int y = 0; y < picture.Height(); ++y)
    for (int x = 0; x < picture.Width(); ++x)
      picture.Row(y)[x] = Over(picture.At(x, y), color, std::clamp(0.5 - shape(Point{x + 0.5, y + 0.5}), 0.0, 1.0));
}

constexpr Size kCup{46, 66};
constexpr Point kCups[]{{30, 140}, {112, 140}};

double CupAt(Point p, Point corner) {
  return Cup(p, {corner.x, corner.y, corner.x + kCup.width, corner.y + kCup.height, 6}, 4);
}

// The night over a table. Where the cups stand it shows them pale, since the game shows only the one under the pointer.
Bitmap DrawBackground() {
  Bitmap picture({320, 240});
  for (int y = 0; y < picture.Height(); ++y)
    std::fill_n(picture.Row(y), picture.Width(), Over(0xFF101838, 0xFF4A5A98, std::min(1.0, y / 200.0)));
  for (int i = 0; i < 40; ++i)
    Paint(picture, i % 5 == 0 ? 0xF0FFF4D0 : 0xA0FFFFFF, [i](Point p) {
      return Circle(p, {(i * i * 31 + i * 197) % 320 + 0.5, (i * i * 53 + i * 17) % 126 + 0.5}, i % 5 == 0 ? 1.4 : 0.9);
    });
  Paint(picture, 0xFF6B4A33, [](Point p) { return 204 - p.y; });
  Paint(picture, 0xFF8A6346, [](Point p) { return std::max(204 - p.y, p.y - 208); });
  for (const Point corner : kCups) Paint(picture, 0x38FFFFFF, [corner](Point p) { return CupAt(p, corner); });
  return picture;
}

Bitmap DrawCup() {
  Bitmap picture(kCup, 0);
  Paint(picture, 0xFF2F8F9D, [](Point p) { return CupAt(p, {0, 0}); });
  Paint(picture, 0xFF8FD8DC, [](Point p) { return RoundedBox{1, 2, 2.5, 52, 0.7}(p); });
  return picture;
}

Bitmap DrawTray() {
  Bitmap picture({76, 26}, 0);
  Paint(picture, 0xFF7C3F24, [](Point p) { return RoundedBox{0, 4, 76, 26, 9}(p); });
  Paint(picture, 0xFFC97B45, [](Point p) { return RoundedBox{0, 0, 76, 10, 5}(p); });
  Paint(picture, 0xFF5A2C18, [](Point p) { return RoundedBox{5, 3, 71, 7, 2}(p); });
  return picture;
}

Bitmap DrawStar() {
  Bitmap picture({28, 28}, 0);
  Paint(picture, 0xFFC77A0A, [](Point p) { return Star(p, {14, 14.5}, 13.5, 6.8); });
  Paint(picture, 0xFFFFD23F, [](Point p) { return Star(p, {14, 14.5}, 11, 5.2); });
  return picture;
}

Bitmap DrawMoon() {
  Bitmap picture({28, 28}, 0);
  const auto crescent = [](double less) {
    return [less](Point p) { return std::max(Circle(p, {14, 14}, 13 - less), -Circle(p, {20, 10}, 9.5 + less)); };
  };
  Paint(picture, 0xFF8A93B8, crescent(0));
  Paint(picture, 0xFFEFF2FF, crescent(1.4));
  return picture;
}

// A sine that goes from one frequency to another and dies away: a wave file of 16 bits.
std::string Tone(double from, double to, double seconds) {
  constexpr std::uint32_t rate = 22050;
  constexpr double loudness = 12000;
  const auto count = static_cast<int>(seconds * rate);
  std::string samples;
  double phase = 0;
  for (int i = 0; i < count; ++i) {
    const double done = static_cast<double>(i) / count;
    phase += 2 * std::numbers::pi * (from + (to - from) * done) / rate;
    const double swell = std::min(1.0, i / 100.0);  // without it the start clicks
    const double value = loudness * swell * (1 - done) * (1 - done) * std::sin(phase);
    AppendNumber(samples, static_cast<std::uint32_t>(std::lround(value)), 2);
  }
  const auto bytes = static_cast<std::uint32_t>(samples.size());
  std::string file = "RIFF";
  AppendNumber(file, 36 + bytes, 4);
  file += "WAVEfmt ";
  AppendNumber(file, 16, 4);
  for (const std::uint32_t field : {1U, 1U}) AppendNumber(file, field, 2);  // PCM, one channel
  for (const std::uint32_t field : {rate, 2 * rate}) AppendNumber(file, field, 4);
  for (const std::uint32_t field : {2U, 16U}) AppendNumber(file, field, 2);
  file += "data";
  AppendNumber(file, bytes, 4);
  return file + samples;
}

}  // namespace

std::map<std::string, std::string> StarterSource() {
  return {{kSourceFile, kToml},
          {"background.png", EncodePng(DrawBackground())},
          {"cup.png", EncodePng(DrawCup())},
          {"tray.png", EncodePng(DrawTray())},
          {"star.png", EncodePng(DrawStar())},
          {"moon.png", EncodePng(DrawMoon())},
          {"pickup.wav", Tone(520, 780, 0.15)},
          {"let_go.wav", Tone(600, 400, 0.15)},
          {"hit.wav", Tone(160, 70, 0.3)},
          {"put_in.wav", Tone(780, 1180, 0.4)}};
}

}  // namespace sorvex
