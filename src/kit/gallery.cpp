// SPDX-License-Identifier: MIT
// Writing the page: all that comes from a theme is escaped, and nothing is fetched from anywhere.
#include "kit/gallery.h"

#include <cstdio>

#include "base/files.h"
#include "base/text.h"
#include "kit/preview.h"
#include "kit/save_file.h"
#include "platform/encode_png.h"

namespace sorvex {
namespace {

constexpr char kHead[] = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Themes</title>
<style>
body { font-family: sans-serif; margin: 2em auto; max-width: 70em; padding: 0 1em; }
img { border: 1px solid #888; margin: 0 1em 1em 0; max-width: 100%; }
th, td { padding: 0.2em 1em 0.2em 0; text-align: left; }
.mark { display: inline-block; height: 0.8em; width: 0.8em; }
</style>
</head>
<body>
<h1>Themes</h1>
)";

constexpr char kColumns[] =
    "<tr><th>Item</th><th>Way to the target</th><th>Tightness</th><th>Once out</th><th>From its rest place</th></tr>\n";

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : DecodeText(text)) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      default: escaped += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
  }
  return escaped;
}

std::string Figure(const std::string& file, const std::string& what, Size size) {
  return "<img src=\"" + file + "\" alt=\"" + what + "\" width=\"" + std::to_string(size.width) + "\" height=\"" +
         std::to_string(size.height) + "\">\n";
}

std::string Row(int item, const ItemProof& proof) {
  char color[8];
  std::snprintf(color, sizeof color, "#%06X", ColorOf(item) & 0xFFFFFF);
  const Journey& journey = proof.fromStart;
  const bool way = journey.verdict == Verdict::Way;
  std::string row = "<tr><td><span class=\"mark\" style=\"background: " + std::string(color) + "\"></span> " +
                    std::to_string(item) + "</td>";
  for (const std::string& cell : {DescribeWay(journey), way ? DescribeRoom(journey.room) : "",
                                  way ? DescribeRoom(journey.roomOnceOut) : "", DescribeWay(proof.fromRest)})
    row += "<td>" + cell + "</td>";
  return row + "</tr>\n";
}

// A part of an address.
std::string Encoded(const std::string& text) {
  constexpr char plain[] = "-._~0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  std::string encoded;
  for (const char c : text) {
    char escape[4];
    std::snprintf(escape, sizeof escape, "%%%02X", static_cast<unsigned char>(c));
    encoded += std::string_view(plain).find(c) == std::string_view::npos ? escape : std::string(1, c);
  }
  return encoded;
}

std::string PlayLink(const std::string& folder, const std::string& name) {
  const auto archive = [&] { return JoinPath(folder, "play/themes/" + name + ".zip"); };
  return IsValidUtf8(name) && PathExists(archive())
             ? "<p><a href=\"play/index.html?theme=" + Encoded(name) + "\">Play</a></p>\n"
             : "";
}

std::string Section(int number, const GalleryTheme& shown, const std::string& link) {
  const Size size = shown.theme->background->Pixels().Extent();
  const std::string name = Escaped(shown.name);
  const std::string file = std::to_string(number);
  std::string section =
      "<section>\n<h2>" + name + "</h2>\n<p>" + Escaped(shown.theme->details.description) + "</p>\n<p>" +
      Escaped(shown.theme->details.date) + "</p>\n" + link + Figure(file + ".png", name + " as a game begins", size) +
      Figure(file + "-ways.png", name + ": the ways of its items to the target", size) + "<table>\n" + kColumns;
  for (std::size_t i = 0; i < shown.proofs.size(); ++i) section += Row(static_cast<int>(i), shown.proofs[i]);
  return section + "</table>\n</section>\n";
}

}  // namespace

std::string DescribeWay(const Journey& journey) {
  switch (journey.verdict) {
    case Verdict::Way:
      return journey.outside == 0
                 ? "inside the field"
                 : "the pointer must leave the field by " + std::to_string(journey.outside) + " pixels";
    case Verdict::OutOfRange: return "none: the game ends with an overflow";
    case Verdict::Touches: return "none: it touches its container where it stands";
    case Verdict::NotHeld: return "none: no black pixel of it inside the field, nobody can pick it up";
    case Verdict::OutOfReach: return "none: no pointer reaches the target with it";
    case Verdict::NoWay: break;
  }
  const std::string thinner =
      journey.tooThick == 0 ? ""
                            : "; without " + std::to_string(journey.tooThick) + " pixels of all its edges it passes";
  return "none without jumping: the walls close at " + std::to_string(journey.closesAt.x) + ", " +
         std::to_string(journey.closesAt.y) + thinner;
}

std::string DescribeRoom(int room) { return std::to_string(room) + (room == kMostRoom ? " or more" : ""); }

void WriteGallery(const std::string& folder, std::span<const GalleryTheme> themes) {
  std::string page = kHead;
  for (std::size_t i = 0; i < themes.size(); ++i)
    page += Section(static_cast<int>(i + 1), themes[i], PlayLink(folder, themes[i].name));
  SaveFile(JoinPath(folder, "index.html"), page + "</body>\n</html>\n");
  for (std::size_t i = 0; i < themes.size(); ++i) {
    const std::string path = JoinPath(folder, std::to_string(i + 1));
    SaveFile(path + ".png", EncodePng(DrawPreview(*themes[i].theme)));
    SaveFile(path + "-ways.png", EncodePng(DrawPreview(*themes[i].theme, themes[i].proofs)));
  }
}

}  // namespace sorvex
