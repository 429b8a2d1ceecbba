// SPDX-License-Identifier: MIT
// Errors that are reported to the player by number and description.
#pragma once

#include <new>
#include <stdexcept>
#include <string>

namespace sorvex {

/// An error that is reported to the player. Numbers and descriptions are those of BASIC run-time errors.
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

/// The exception being handled, as a RuntimeError: std::bad_alloc becomes OutOfMemory (7). Rethrows any other type.
/// Call it only inside a catch block.
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
