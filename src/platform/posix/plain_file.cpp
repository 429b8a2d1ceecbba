// SPDX-License-Identifier: MIT
// Reading regular files by descriptor.
#include "base/plain_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace sorvex {

PlainFile::PlainFile(const std::filesystem::path& path) {
  struct stat status {};
  // Asked before, too: merely opening a device may have an effect.
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return;
  // O_NONBLOCK: a pipe put there in the meantime would wait for a writer. It has no effect on regular files.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descriptor == -1) return;
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    handle_ = descriptor;
    size_ = static_cast<std::uintmax_t>(status.st_size);
  } else {
    ::close(descriptor);
  }
}

PlainFile::~PlainFile() {
  if (IsOpen()) ::close(static_cast<int>(handle_));
}

std::optional<std::size_t> PlainFile::Read(char* to, std::size_t count) const {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t read = ::read(static_cast<int>(handle_), to + done, count - done);
    if (read == 0) break;
    if (read > 0)
      done += static_cast<std::size_t>(read);
    else if (errno != EINTR)
      return std::nullopt;
  }
  return done;
}

}  // namespace sorvex
