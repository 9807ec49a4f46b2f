// The errors that statements of the program raise: a number, as the program's texts name it, and a description.
#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace pixorra {

namespace error {
inline constexpr int None = 0;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int BadSubscript = 9;
inline constexpr int TypeMismatch = 13;
inline constexpr int BadFileName = 52;
inline constexpr int FileNotFound = 53;
inline constexpr int DeviceIO = 57;
inline constexpr int FileExists = 58;
inline constexpr int DiskFull = 61;
inline constexpr int PastEndOfFile = 62;
inline constexpr int PermissionDenied = 70;
inline constexpr int DiskNotReady = 71;
inline constexpr int DifferentDrive = 74;
inline constexpr int PathAccess = 75;
inline constexpr int PathNotFound = 76;
inline constexpr int NoSuchElement = 340;
inline constexpr int AlreadyLoaded = 360;
inline constexpr int BadPropertyValue = 380;
inline constexpr int BadPicture = 481;
inline constexpr int Printer = 482;
}  // namespace error

// The platform's own words for an error number; "Application-defined or object-defined error" for an unknown one.
std::string ErrorDescription(int number);

class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(int number) : RuntimeError(number, ErrorDescription(number)) {}
  RuntimeError(int number, const std::string& description) : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }
  std::string Description() const { return what(); }

 private:
  int number_;
};

// Runs one statement with errors ignored and tells its error number, 0 where it raised none. Running out of memory
// counts as error 7. Anything else that is thrown is a bug and goes on its way.
template <typename Statement>
int ErrorsIgnored(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const RuntimeError& e) {
    return e.Number();
  } catch (const std::bad_alloc&) {
    return error::OutOfMemory;
  }
  return error::None;
}

}  // namespace pixorra
