// SPDX-License-Identifier: MIT
// Encodings, fonts, measuring, system colors.
#include "platform/win32/text.h"

#include <cmath>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace sorvex {
namespace {

constexpr char kHeavyFamily[] = "Arial Black";

struct FontDeleter {
  void operator()(HFONT font) const { ::DeleteObject(font); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

FontHandle CreateFontFor(const Font& font) {
  const int pixels = static_cast<int>(std::lround(font.points * 96 / 72));
  return FontHandle(::CreateFontW(-pixels, 0, 0, 0, font.family == kHeavyFamily ? FW_BLACK : font.weight, FALSE,
                                  font.underlined, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                  DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, ToWide(font.family).c_str()));
}

/// A device context compatible with the screen, for measuring.
class ScreenContext {
 public:
  ScreenContext() : context_(::GetDC(nullptr)) {}
  ScreenContext(const ScreenContext&) = delete;
  ScreenContext& operator=(const ScreenContext&) = delete;
  ~ScreenContext() { ::ReleaseDC(nullptr, context_); }

  HDC Get() const { return context_; }

 private:
  HDC context_;
};

std::string Narrowed(UINT codePage, std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size = ::WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

std::string FromWide(std::wstring_view text) { return Narrowed(CP_UTF8, text); }

std::string ToAnsi(std::string_view utf8) {
  return ::GetACP() == CP_UTF8 ? std::string(utf8) : Narrowed(CP_ACP, ToWide(utf8));
}

HFONT FontFor(const Font& font) {
  static std::vector<std::pair<Font, FontHandle>> fonts;
  for (const auto& [known, handle] : fonts)
    if (known == font) return handle.get();
  return fonts.emplace_back(font, CreateFontFor(font)).second.get();
}

UINT TextFormat(Alignment alignment, bool wordWrap) {
  UINT format = DT_NOPREFIX | DT_EXPANDTABS | DT_TOP;
  if (wordWrap) format |= DT_WORDBREAK;
  switch (alignment) {
    case Alignment::Left: return format | DT_LEFT;
    case Alignment::Center: return format | DT_CENTER;
    case Alignment::Right: return format | DT_RIGHT;
  }
  return format;
}

Size TextSize(const Font& font, const std::string& text, int wrapWidth) {
  const ScreenContext screen;
  const HGDIOBJ before = ::SelectObject(screen.Get(), FontFor(font));
  RECT needed{0, 0, wrapWidth, 0};
  // Empty text would have height 0.
  std::wstring wide = text.empty() ? L" " : ToWide(text);
  ::DrawTextW(screen.Get(), wide.data(), static_cast<int>(wide.size()), &needed,
              TextFormat(Alignment::Left, wrapWidth > 0) | DT_CALCRECT);
  ::SelectObject(screen.Get(), before);
  return {text.empty() ? 0 : static_cast<int>(needed.right), static_cast<int>(needed.bottom)};
}

Pixel Resolve(Color color) {
  if (!color.IsSystem()) return kBlack | color.value;
  const COLORREF system = ::GetSysColor(color.SystemIndex());
  return kBlack | static_cast<Pixel>(GetRValue(system) << 16 | GetGValue(system) << 8 | GetBValue(system));
}

}  // namespace sorvex
