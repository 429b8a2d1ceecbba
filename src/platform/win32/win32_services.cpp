// SPDX-License-Identifier: MIT
// Desktop services: clock, pointer, sounds, addresses, date, folder, files.
#include <windows.h>
#include <mmsystem.h>
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/limits.h"
#include "base/plain_file.h"
#include "platform/win32/program_path.h"
#include "platform/win32/text.h"
#include "platform/win32/win32_desktop.h"

namespace sorvex {
namespace {

// The path in the ANSI code page; its short form if the code page lacks one of its characters.
std::string AnsiPath(const std::string& path) {
  const std::wstring wide = ToWide(path);
  std::wstring name = wide;
  BOOL lossy = FALSE;
  if (::GetACP() != CP_UTF8)
    ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr,
                          &lossy);
  if (lossy) {
    std::wstring shortName(::GetShortPathNameW(wide.c_str(), nullptr, 0), L'\0');
    shortName.resize(::GetShortPathNameW(wide.c_str(), shortName.data(), static_cast<DWORD>(shortName.size())));
    if (!shortName.empty()) name = shortName;
  }
  return ToAnsi(FromWide(name));
}

// True for what is no file, and for files over the size limit, which the system would read completely.
bool IsNoSound(const std::string& path) {
  const PlainFile file(ToWide(path));
  return !file.IsOpen() || file.Size() > kLargestSound;
}

}  // namespace

Long Win32Desktop::TickCount() { return static_cast<Long>(::GetTickCount()); }

ScreenPoint Win32Desktop::PointerPosition() {
  POINT place{};
  ::GetCursorPos(&place);
  return {place.x, place.y};
}

void Win32Desktop::PlayWave(const std::string& path) {
  // The sound that the system plays for missing files.
  const std::string sound = IsNoSound(path) ? "SystemDefault" : AnsiPath(path);
  ::sndPlaySoundA(sound.c_str(), SND_ASYNC);
}

void Win32Desktop::OpenAddress(const std::string& address) {
  ::ShellExecuteA(nullptr, "Open", ToAnsi(address).c_str(), "", "", SW_SHOWNORMAL);
}

std::string Win32Desktop::ShortDate() {
  const auto format = [](wchar_t* text, int size) {
    return ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, size);
  };
  std::wstring date(static_cast<std::size_t>(format(nullptr, 0)), L'\0');
  const int size = format(date.data(), static_cast<int>(date.size()));
  date.resize(static_cast<std::size_t>(std::max(size - 1, 0)));  // without the terminating zero
  return FromWide(date);
}

std::wstring ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

std::string Win32Desktop::ProgramFolder() {
  const std::wstring path = ProgramPath();
  const std::size_t end = path.find_last_of(L'\\');
  // A drive's root keeps its separator.
  return FromWide(path.substr(0, end == 2 ? end + 1 : end));
}

}  // namespace sorvex
