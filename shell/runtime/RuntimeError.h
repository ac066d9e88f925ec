#pragma once
// A run-time failure of the classic runtime: overflow, division by zero, type
// mismatch, reading past the end of a file... It carries the classic error
// number; each handler decides at its own boundary what to make of it.
#include <QString>
#include <exception>
#include <string>

namespace rt {

enum ErrorNumber : int {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kBadFileMode = 54,
  kDeviceIOError = 57,
  kInputPastEndOfFile = 62,
  kPathNotFound = 76,
  kInvalidUseOfNull = 94,
  kDialogCancelled = 32755,
};

class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(int number, QString description = {});
  int number() const noexcept { return number_; }
  const QString& description() const noexcept { return description_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  int number_;
  QString description_;
  std::string what_;
};

// The classic runtime's own description of an error number ("Overflow", ...).
QString standardDescription(int number);

[[noreturn]] void raise(int number);

}  // namespace rt
