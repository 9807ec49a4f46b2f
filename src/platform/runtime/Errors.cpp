// The descriptions of error numbers, and the hook for those that are ignored.
#include "platform/runtime/Errors.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pixorra {

namespace {

struct Description {
  int Number;
  std::string_view Text;
};

constexpr std::array Descriptions = {
    Description{error::Overflow, "Overflow"},
    Description{error::OutOfMemory, "Out of memory"},
    Description{error::BadSubscript, "Subscript out of range"},
    Description{error::DivisionByZero, "Division by zero"},
    Description{error::TypeMismatch, "Type mismatch"},
    Description{error::BadFileName, "Bad file name or number"},
    Description{error::FileNotFound, "File not found"},
    Description{error::DeviceIO, "Device I/O error"},
    Description{error::FileExists, "File already exists"},
    Description{error::DiskFull, "Disk full"},
    Description{error::PastEndOfFile, "Input past end of file"},
    Description{error::PermissionDenied, "Permission denied"},
    Description{error::DiskNotReady, "Disk not ready"},
    Description{error::DifferentDrive, "Can't rename with different drive"},
    Description{error::PathAccess, "Path/File access error"},
    Description{error::PathNotFound, "Path not found"},
    Description{error::NoSuchElement, "Control array element doesn't exist"},
    Description{error::AlreadyLoaded, "Object already loaded"},
    Description{error::BadPropertyValue, "Invalid property value"},
    Description{error::BadPicture, "Invalid picture"},
    Description{error::Printer, "Printer error"},
};

IgnoredErrorHook ignoredErrorHook = nullptr;

}  // namespace

std::string ErrorDescription(int number) {
  const auto found = std::find_if(Descriptions.begin(), Descriptions.end(),
                                  [number](const Description& each) { return each.Number == number; });
  if (found == Descriptions.end()) return "Application-defined or object-defined error";
  return std::string(found->Text);
}

IgnoredErrorHook SetIgnoredErrorHook(IgnoredErrorHook hook) {
  return std::exchange(ignoredErrorHook, hook);
}

int NoteIgnoredError(int number, const std::source_location& where) {
  if (ignoredErrorHook != nullptr) ignoredErrorHook(number, where);
  return number;
}

}  // namespace pixorra
