// SPDX-License-Identifier: MIT
// Breaking a message into lines.
#include "platform/box_text.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace sorvex {
namespace {

constexpr int kLinesBeside = 10;  // height of caption, margins and button, in lines
constexpr std::string_view kLineEnd = "\r\n";

// Removes the next line from `text` and returns it: up to the last blank that fits, else all characters that fit.
std::string_view TakeLine(std::string_view& text, const Fits& fits) {
  std::size_t length = FittingLength(text, fits);
  if (length < text.size()) {
    const std::size_t blank = text.rfind(' ', length);
    if (blank != text.npos && blank > 0) length = blank;
    while (length == 0 || Utf8Prefix(text, length).empty())
      ++length;  // at least one character, even if it does not fit
  }
  const std::string_view line = Utf8Prefix(text, length);
  text.remove_prefix(line.size());
  if (text.starts_with(' ')) text.remove_prefix(1);
  return line;
}

// Length of the line end at `place`, 0 if there is none.
std::size_t LineEndAt(std::string_view text, std::size_t place) {
  if (place == text.npos) return 0;
  return text.substr(place).starts_with(kLineEnd) ? kLineEnd.size() : 1;
}

}  // namespace

std::string BoxText(std::string_view text, Size room, const MeasureLine& measure) {
  const int lineHeight = std::max(1, measure("X").height);
  int left = room.height / lineHeight - kLinesBeside;
  std::string shown;
  while (true) {
    const std::size_t end = text.find_first_of(kLineEnd);
    std::string_view paragraph = text.substr(0, end);
    text.remove_prefix(std::min(text.size(), paragraph.size() + LineEndAt(text, end)));
    const std::string indent = paragraph.starts_with('\t') ? "\t" : "";
    paragraph.remove_prefix(indent.size());
    const Fits fits = [&](std::string_view line) { return measure(indent + std::string(line)).width <= room.width; };
    do {
      const std::string_view line = TakeLine(paragraph, fits);
      if (--left <= 0 && !(paragraph.empty() && text.empty())) return shown + indent + CutText(line, fits);
      shown.append(indent).append(line).append(kLineEnd);
    } while (!paragraph.empty());
    if (end == text.npos) return shown.substr(0, shown.size() - kLineEnd.size());
  }
}

}  // namespace sorvex
