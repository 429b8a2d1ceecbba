// SPDX-License-Identifier: MIT
// The errors a player may be shown: a number and the words that go with it.
#pragma once

#include <new>
#include <stdexcept>
#include <string>

namespace sorvex {

/// An error as the program reports it. The numbers and words are the classic ones of BASIC run-time
/// errors, which is what players of this kind of program know.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& description) : std::runtime_error(description), number_(number) {}

  int Number() const { return number_; }
  std::string Description() const { return what(); }

 private:
  int number_;
};

inline RuntimeError Overflow() { return {6, "Overflow"}; }
inline RuntimeError OutOfMemory() { return {7, "Out of memory"}; }
inline RuntimeError SubscriptOutOfRange() { return {9, "Subscript out of range"}; }
inline RuntimeError DeviceError() { return {57, "Device I/O error"}; }
inline RuntimeError DiskFull() { return {61, "Disk full"}; }
inline RuntimeError PathAccessError() { return {75, "Path/File access error"}; }
inline RuntimeError PathNotFound() { return {76, "Path not found"}; }
inline RuntimeError NoSuchElement(int index) {
  return {340, "Control array element '" + std::to_string(index) + "' doesn't exist"};
}

/// The error that is being handled: that memory ran out is one too. Anything else is thrown on.
inline RuntimeError CurrentError() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return OutOfMemory();
  } catch (const RuntimeError& error) {
    return error;
  }
}

}  // namespace sorvex
