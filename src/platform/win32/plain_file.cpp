// SPDX-License-Identifier: MIT
// Reading regular files by handle.
#include "base/plain_file.h"

#include <windows.h>

#include <algorithm>

namespace sorvex {

PlainFile::PlainFile(const std::filesystem::path& path) {
  // Shared with everything, so that another copy of the program can replace the file meanwhile. Folders do not open.
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, kShare, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER size{};
  if (::GetFileType(file) == FILE_TYPE_DISK && ::GetFileSizeEx(file, &size) != 0) {
    handle_ = reinterpret_cast<Handle>(file);
    size_ = static_cast<std::uintmax_t>(size.QuadPart);
  } else {
    ::CloseHandle(file);
  }
}

PlainFile::~PlainFile() {
  if (IsOpen()) ::CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

std::optional<std::size_t> PlainFile::Read(char* to, std::size_t count) const {
  constexpr std::size_t kAtOnce = 1 << 30;
  std::size_t done = 0;
  while (done < count) {
    DWORD read = 0;
    const auto wanted = static_cast<DWORD>(std::min(count - done, kAtOnce));
    if (::ReadFile(reinterpret_cast<HANDLE>(handle_), to + done, wanted, &read, nullptr) == 0) return std::nullopt;
    if (read == 0) break;
    done += read;
  }
  return done;
}

}  // namespace sorvex
