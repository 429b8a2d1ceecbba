// SPDX-License-Identifier: MIT
// Programs that a story runs. None of them outlives it, whatever becomes of the story.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sorvex {

/// Long, so that a busy machine fails no story.
inline constexpr std::chrono::seconds kPatience{30};

/// Asks every few milliseconds; false when `condition` did not come true in `patience`.
bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience = kPatience);
/// The same, but a condition that stays false ends the story with `failure`.
void Await(const std::function<bool()>& condition, const std::function<std::string()>& failure);

using Environment = std::map<std::string, std::string>;

class Process {
 public:
  /// The command sees nothing of the story's own environment but its PATH and the sanitizers' options. Whatever it says
  /// on descriptor 3 can be read.
  Process(const std::vector<std::string>& command, Environment environment);
  /// Ends the process; the last one to go takes along whatever they all left behind.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// The first line on descriptor 3, empty when the process ends without one.
  std::string Announcement() const;
  void Signal(int number) const;
  /// Waits for the end: the exit code, -1 after a signal. Throws when it does not come.
  int ExitCode();
  bool Runs();
  /// Memory that it has resident, bytes.
  std::size_t ResidentMemory() const;
  /// How many file descriptors it has open.
  std::size_t Descriptors() const;

 private:
  pid_t id_ = 0;
  int said_ = -1;
  std::optional<int> status_;
};

}  // namespace sorvex
