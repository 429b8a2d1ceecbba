// SPDX-License-Identifier: MIT
// Reading the version resource of the running executable.
#include "platform/win32/version_resource.h"

#include <windows.h>

#include <string>
#include <vector>

#include "platform/win32/program_path.h"
#include "platform/win32/text.h"

namespace sorvex {
namespace {

// A string of the resource's only language, US English in UTF-16.
std::string TextOf(const std::vector<BYTE>& resource, const std::wstring& field) {
  void* text = nullptr;
  UINT length = 0;
  if (!::VerQueryValueW(resource.data(), (L"\\StringFileInfo\\040904B0\\" + field).c_str(), &text, &length) ||
      length == 0)
    return {};
  return FromWide({static_cast<const wchar_t*>(text), length - 1});  // without its terminating zero
}

}  // namespace

VersionInfo ReadVersionResource() {
  const std::wstring program = ProgramPath();
  std::vector<BYTE> resource(::GetFileVersionInfoSizeW(program.c_str(), nullptr));
  void* numbers = nullptr;
  UINT size = 0;
  if (!::GetFileVersionInfoW(program.c_str(), 0, static_cast<DWORD>(resource.size()), resource.data()) ||
      !::VerQueryValueW(resource.data(), L"\\", &numbers, &size))
    return {};
  const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(numbers);
  return {.Title = TextOf(resource, L"ProductName"),
          .Major = HIWORD(version.dwFileVersionMS),
          .Minor = LOWORD(version.dwFileVersionMS),
          .Revision = HIWORD(version.dwFileVersionLS),
          .Comments = TextOf(resource, L"Comments"),
          .LegalCopyright = TextOf(resource, L"LegalCopyright")};
}

}  // namespace sorvex
