// SPDX-License-Identifier: MIT
// Running part of a test in a process of its own, whose user and limits it may change.
#pragma once

#include <grp.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace sorvex {

inline constexpr uid_t kNobody = 65534;

inline pid_t StartChild(const std::function<int()>& run) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(run());
  return child;
}

/// The exit status of `child`; -1 if a signal ended it.
inline int StatusOf(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What `run` returned.
inline int InChild(const std::function<int()>& run) { return StatusOf(StartChild(run)); }

/// A value, zero at first, that children share with the test.
template <class T>
class Shared {
 public:
  Shared() = default;
  ~Shared() { ::munmap(value_, sizeof(T)); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  T* operator->() const { return value_; }

 private:
  T* value_ = static_cast<T*>(::mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
};

/// Permissions of folders do not bind root.
inline bool BecomeOrdinaryUser() {
  return ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

}  // namespace sorvex
