// SPDX-License-Identifier: MIT
// Loading resources as icons, cursors and pictures.
#include "platform/win32/built_ins.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/win32/pictures.h"
#include "platform/win32/resources.h"

namespace sorvex {
namespace {

struct IconDeleter {
  void operator()(HICON icon) const { ::DestroyIcon(icon); }
};
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

// The resource's identifier, unique within its type.
WORD ResourceOf(BuiltIn which) {
  switch (which) {
    case BuiltIn::None: return 0;
    case BuiltIn::WindowIcon: return IDI_WINDOW;
    case BuiltIn::HighScoresPanel: return IDR_HIGH_SCORES;
    case BuiltIn::Canvas: return IDR_CANVAS;
    case BuiltIn::FolderIcon: return IDI_FOLDER;
    case BuiltIn::AboutIcon: return IDI_ABOUT;
    case BuiltIn::InfoHandCursor: return IDC_INFO_HAND;
    case BuiltIn::LinkHandCursor: return IDC_LINK_HAND;
    case BuiltIn::Logo: return IDR_LOGO;
  }
  return 0;
}

bool IsIcon(BuiltIn which) {
  return which == BuiltIn::WindowIcon || which == BuiltIn::FolderIcon || which == BuiltIn::AboutIcon;
}

std::string_view BytesOf(BuiltIn which, const wchar_t* kind = RT_RCDATA) {
  const HRSRC resource = ::FindResourceW(nullptr, MAKEINTRESOURCEW(ResourceOf(which)), kind);
  if (resource == nullptr) return {};
  const HGLOBAL data = ::LoadResource(nullptr, resource);
  return {static_cast<const char*>(::LockResource(data)), ::SizeofResource(nullptr, resource)};
}

// The width of the icon's best image for `size` pixels: the smallest that is not smaller, else the largest.
int ImageWidthFor(BuiltIn which, int size) {
  constexpr std::size_t kHeader = 6;
  constexpr std::size_t kEntry = 14;  // bytes; the first one is the image's width
  const std::string_view directory = BytesOf(which, RT_GROUP_ICON);
  int chosen = 0;
  for (std::size_t at = kHeader; at + kEntry <= directory.size(); at += kEntry) {
    const int width = static_cast<unsigned char>(directory[at]);
    if (chosen < size ? width > chosen : width >= size && width < chosen) chosen = width;
  }
  return chosen;
}

IconHandle LoadIconImage(BuiltIn which, int size) {
  return IconHandle(static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ResourceOf(which)),
                                                    IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

}  // namespace

HICON BuiltInIcon(BuiltIn which, int size) {
  if (!IsIcon(which)) return nullptr;
  // Not LR_SHARED, with which the system would return the same image for every size.
  static std::map<std::pair<BuiltIn, int>, IconHandle> icons;
  IconHandle& icon = icons[{which, size}];
  if (!icon) icon = LoadIconImage(which, size);
  return icon.get();
}

HCURSOR BuiltInCursor(BuiltIn which) {
  if (which == BuiltIn::None) return ::LoadCursorW(nullptr, IDC_ARROW);
  return ::LoadCursorW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ResourceOf(which)));
}

Picture BuiltInPicture(BuiltIn which) { return MakePicture(DecodePicture(BytesOf(which)).value_or(Bitmap())); }

void PaintBuiltIn(HDC context, const Rectangle& place, BuiltIn which) {
  if (IsIcon(which))
    PaintIcon(context, place, BuiltInIcon(which, ImageWidthFor(which, place.Width())));
  else
    PaintPicture(context, place, BytesOf(which));
}

}  // namespace sorvex
