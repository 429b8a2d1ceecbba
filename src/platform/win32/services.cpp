// SPDX-License-Identifier: MIT
// Clock, pointer, sounds, addresses, date, folder, registry.
#include "platform/win32/services.h"

#include <windows.h>
#include <mmsystem.h>
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/win32/text.h"

namespace sorvex {
namespace {

// Windows keeps its handles within 32 bits, sign-extended where a pointer has 64.
HKEY ToNative(RegistryKey key) { return reinterpret_cast<HKEY>(static_cast<INT_PTR>(static_cast<int>(key))); }
RegistryKey FromNative(HKEY key) { return static_cast<RegistryKey>(reinterpret_cast<UINT_PTR>(key)); }

// The path for the functions that take 8-bit text: by its short name where the encoding lacks one of its letters.
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

}  // namespace

Long TickCount() { return static_cast<Long>(::GetTickCount()); }

ScreenPoint PointerPosition() {
  POINT place{};
  ::GetCursorPos(&place);
  return {place.x, place.y};
}

void PlayWave(const std::string& path) { ::sndPlaySoundA(AnsiPath(path).c_str(), SND_ASYNC); }

void OpenAddress(const std::string& address) {
  ::ShellExecuteA(nullptr, "Open", ToAnsi(address).c_str(), "", "", SW_SHOWNORMAL);
}

std::string ShortDate() {
  const auto format = [](wchar_t* text, int size) {
    return ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, size);
  };
  std::wstring date(static_cast<std::size_t>(format(nullptr, 0)), L'\0');
  const int size = format(date.data(), static_cast<int>(date.size()));
  date.resize(static_cast<std::size_t>(std::max(size - 1, 0)));  // without its terminating zero
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

std::string ProgramFolder() {
  const std::wstring path = ProgramPath();
  const std::size_t end = path.find_last_of(L'\\');
  // Of a drive's root the separator is part.
  return FromWide(path.substr(0, end == 2 ? end + 1 : end));
}

Long RegistryOpen(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  HKEY opened = ToNative(key);
  const LSTATUS status = ::RegOpenKeyExA(ToNative(hive), ToAnsi(name).c_str(), 0, access, &opened);
  key = FromNative(opened);
  return status;
}

Long RegistryCreate(RegistryKey hive, const std::string& name, std::uint32_t access, RegistryKey& key) {
  HKEY created = ToNative(key);
  DWORD disposition = 0;
  const LSTATUS status = ::RegCreateKeyExA(ToNative(hive), ToAnsi(name).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           access, nullptr, &created, &disposition);
  key = FromNative(created);
  return status;
}

Long RegistryQuery(RegistryKey key, const std::string& name, std::uint32_t& type, void* data, std::uint32_t& size) {
  DWORD storedType = type;
  DWORD bytes = size;
  const LSTATUS status =
      ::RegQueryValueExA(ToNative(key), ToAnsi(name).c_str(), nullptr, &storedType, static_cast<BYTE*>(data), &bytes);
  type = storedType;
  size = bytes;
  return status;
}

Long RegistrySet(RegistryKey key, const std::string& name, std::uint32_t type, const void* data, std::uint32_t size) {
  const auto* given = static_cast<const char*>(data);
  std::string bytes = type == kRegSz ? ToAnsi(given) : std::string(given, size);
  bytes.resize(size);
  bytes += '.';  // a zero right behind a text that has none would be stored with it
  return ::RegSetValueExA(ToNative(key), ToAnsi(name).c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                          size);
}

Long RegistryClose(RegistryKey key) { return ::RegCloseKey(ToNative(key)); }

}  // namespace sorvex
