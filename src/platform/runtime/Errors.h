// The errors that statements of the program raise: a number, which the program's messages show, and a description.
#pragma once

#include <new>
#include <source_location>
#include <stdexcept>
#include <string>
#include <utility>

namespace pixorra {

namespace error {
inline constexpr int None = 0;
inline constexpr int Overflow = 6;
inline constexpr int OutOfMemory = 7;
inline constexpr int BadSubscript = 9;
inline constexpr int DivisionByZero = 11;
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

// For developers: is called with the number of each error that is ignored and the place in the source that ignores it.
// Set once at the start, ahead of any thread; null, as it is at first, for none. Returns the one set before.
using IgnoredErrorHook = void (*)(int number, const std::source_location& where);
IgnoredErrorHook SetIgnoredErrorHook(IgnoredErrorHook hook);
// Calls the hook and returns the number.
int NoteIgnoredError(int number, const std::source_location& where);

// Runs one statement with errors ignored and returns its error number, None where it raises none. Running out of memory
// counts as OutOfMemory. Anything else that is thrown is a bug and passes through.
template <typename Statement>
int ErrorsIgnored(Statement&& statement, const std::source_location& where = std::source_location::current()) {
  try {
    std::forward<Statement>(statement)();
  } catch (const RuntimeError& e) {
    return NoteIgnoredError(e.Number(), where);
  } catch (const std::bad_alloc&) {
    return NoteIgnoredError(error::OutOfMemory, where);
  }
  return error::None;
}

// What the statement returns; `otherwise` where it raises an error that ErrorsIgnored ignores.
template <typename Value, typename Statement>
Value OrElse(Value otherwise, Statement&& statement,
             const std::source_location& where = std::source_location::current()) {
  ErrorsIgnored([&] { otherwise = std::forward<Statement>(statement)(); }, where);
  return otherwise;
}

}  // namespace pixorra
