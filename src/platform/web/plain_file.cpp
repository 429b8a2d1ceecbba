// SPDX-License-Identifier: MIT
// Files that the page's script fetches or keeps, read whole when they are opened. The file system of the program itself
// holds only their names.
#include "base/plain_file.h"

#include <algorithm>
#include <cstring>

#include "platform/web/page.h"

namespace sorvex {
namespace {

struct OpenFile {
  Allocated<void> bytes;
  std::size_t read;
};

// Every system's handle is kept as a number.
OpenFile& FileOf(std::intptr_t handle) {
  return *reinterpret_cast<OpenFile*>(handle);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

PlainFile::PlainFile(const std::filesystem::path& path) {
  PageData content;
  if (PageAwait(PageRequest::OpenFile, path.c_str(), 0, &content) == 0) return;
  handle_ = reinterpret_cast<Handle>(new OpenFile{Allocated<void>(content.bytes), 0});
  size_ = static_cast<std::uintmax_t>(content.size);
}

PlainFile::~PlainFile() {
  if (IsOpen()) delete &FileOf(handle_);
}

std::optional<std::size_t> PlainFile::Read(char* to, std::size_t count) const {
  OpenFile& file = FileOf(handle_);
  const std::size_t done = std::min(count, static_cast<std::size_t>(size_) - file.read);
  std::memcpy(to, static_cast<const char*>(file.bytes.get()) + file.read, done);
  file.read += done;
  return done;
}

}  // namespace sorvex
