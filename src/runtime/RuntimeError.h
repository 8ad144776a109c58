#pragma once
// Run-time errors with the classic numbers and descriptions.
#include <stdexcept>
#include <string>

namespace sw {

enum ErrorNumber : int {
  errOverflow = 6,
  errSubscript = 9,
  errBadFileName = 52,
  errFileNotFound = 53,
  errDeviceIO = 57,
  errDiskFull = 61,
  errInputPastEnd = 62,
  errPermission = 70,
  errPathFileAccess = 75,
  errPathNotFound = 76,
};

class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number);
  RuntimeError(int number, const std::string& description);

  int Number() const { return number_; }
  const std::string& Description() const { return description_; }

  // The classic description of an error number ("Overflow" for 6, "File not found" for 53).
  static std::string DescriptionOf(int number);
  // The run-time error that matches a C errno value from a failed file operation.
  static RuntimeError FromErrno(int err);

 private:
  int number_;
  std::string description_;
};

}  // namespace sw
