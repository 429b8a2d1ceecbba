// SPDX-License-Identifier: MIT
// Starting, watching and ending processes.
#include "window/process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace sorvex {
namespace {

namespace fs = std::filesystem;

constexpr int kSaid = 3;

std::vector<pid_t> Children() {
  std::vector<pid_t> children;
  std::ifstream file("/proc/self/task/" + std::to_string(::getpid()) + "/children");
  for (pid_t child = 0; file >> child;) children.push_back(child);
  return children;
}

// Those that lost their parent became children of this process.
void EndChildren() {
  for (std::vector<pid_t> children = Children(); !children.empty(); children = Children()) {
    for (const pid_t child : children) {
      ::kill(child, SIGKILL);
      ::waitpid(child, nullptr, 0);
    }
  }
}

int running = 0;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return condition();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

void Await(const std::function<bool()>& condition, const std::function<std::string()>& failure) {
  if (!WaitUntil(condition)) throw std::runtime_error(failure());
}

Process::Process(const std::vector<std::string>& command, Environment environment) {
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS"})
    if (const char* value = std::getenv(name)) environment.emplace(name, value);
  std::vector<std::string> words = command;
  std::vector<std::string> variables;
  for (const auto& [name, value] : environment) variables.push_back(name + "=" + value);
  const std::vector<char*> arguments = Pointers(words);
  const std::vector<char*> settings = Pointers(variables);
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  id_ = ::fork();
  if (id_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (ends[1] == kSaid)
      ::fcntl(kSaid, F_SETFD, 0);
    else
      ::dup2(ends[1], kSaid);
    ::execvpe(arguments[0], arguments.data(), settings.data());
    ::_exit(127);
  }
  ::close(ends[1]);
  said_ = ends[0];
  if (id_ < 0) throw std::runtime_error("cannot start " + command[0]);
  ++running;
}

Process::~Process() {
  if (!status_) {
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
  }
  ::close(said_);
  if (--running == 0) EndChildren();
}

std::string Process::Announcement() const {
  std::string line;
  for (char c = 0; ::read(said_, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

void Process::Signal(int number) const { ::kill(id_, number); }

bool Process::Runs() {
  int status = 0;
  if (!status_ && ::waitpid(id_, &status, WNOHANG) == id_) status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return !status_;
}

int Process::ExitCode() {
  Await([this] { return !Runs(); }, [] { return std::string("the process goes on"); });
  return *status_;
}

std::size_t Process::ResidentMemory() const {
  std::ifstream file(fs::path("/proc") / std::to_string(id_) / "statm");
  std::size_t whole = 0;
  std::size_t resident = 0;
  if (!(file >> whole >> resident)) throw std::runtime_error("no such process");
  return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

std::size_t Process::Descriptors() const {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(fs::path("/proc") / std::to_string(id_) / "fd"), {}));
}

}  // namespace sorvex
