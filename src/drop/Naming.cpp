#include "drop/Naming.h"

#include <algorithm>
#include <string_view>

#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

constexpr std::string_view Prefix = "PXR";
// So many looks may fail. After them the next name stays as it is: the folder cannot be looked into, and making the
// copy, which never replaces a file, will fail or not by itself.
constexpr int MostFailedLooks = 3;

// Counts the looks that fail over the names of one drop.
class NameSearch {
 public:
  explicit NameSearch(Files& files) : files_(files) {}
  bool MayBeTried(const std::string& path) {
    const NameState state = files_.LookAtName(path);
    if (state == NameState::Unknown) ++failed_;
    return state == NameState::Free || failed_ == MostFailedLooks;
  }

 private:
  Files& files_;
  int failed_ = 0;
};

// Where the digits at the end of a name's base begin.
std::size_t StartOfTrailingDigits(const std::string& base) {
  std::size_t start = base.size();
  while (start > 0 && IsDigit(base[start - 1])) --start;
  return start;
}

// The text of the next number. Past fifteen digits the text no longer changes when 1 is added; then the least power of
// two is added that changes it.
std::string NextNumber(const std::string& digits) {
  const double value = Val(digits);
  for (double step = 1;; step *= 2) {
    std::string next = TrimmedStr(value + step);
    if (next != digits) return next;
  }
}

bool EndsWithIgnoringCase(std::string_view name, std::string_view end) {
  return name.size() >= end.size() && EqualIgnoringCase(name.substr(name.size() - end.size()), end);
}

// The field between prefix and extension, as a whole number; 0 for a name of another form.
int NumberIn(const std::string& name, const std::string& extension) {
  if (name.size() < Prefix.size() + extension.size() || !EndsWithIgnoringCase(name, extension)) return 0;
  // A field beyond 32 bits was not made here, and counts as none: one odd name must not stop every drop.
  int number = 0;
  ErrorsIgnored(
      [&] { number = CLng(Val(name.substr(Prefix.size(), name.size() - Prefix.size() - extension.size()))); });
  return number;
}

}  // namespace

std::string ExtensionOf(const std::string& name) {
  const std::size_t point = name.rfind('.');
  return point == std::string::npos ? std::string() : name.substr(point);
}

std::string MakeUniqueName(Files& files, const std::string& folder, const std::string& name) {
  if (folder.empty() || name.empty()) return {};
  std::string path = JoinPath(folder, name);
  NameSearch search(files);
  if (search.MayBeTried(path)) return path;
  const std::string extension = ExtensionOf(name);
  const std::string base = name.substr(0, name.size() - extension.size());
  if (base.empty()) return {};
  const std::size_t start = StartOfTrailingDigits(base);
  const std::string stem = base.substr(0, start);
  std::string digits = base.substr(start);
  do {
    digits = NextNumber(digits);
    path = JoinPath(folder, stem + digits + extension);
  } while (!search.MayBeTried(path));
  return path;
}

std::string MakeGeneratedName(Files& files, const std::string& folder, const std::string& name) {
  const std::string extension = ExtensionOf(name);
  int number = 0;
  // The extension stays out of the pattern, where its ';', '*' and '?' would mean something.
  for (const std::string& found : files.Names(folder, std::string(Prefix) + "*", attribute::Normal)) {
    number = std::max(number, NumberIn(found, extension));
  }
  NameSearch search(files);
  std::string path;
  do {
    number = CLng(number + 1.0);
    path = JoinPath(folder, std::string(Prefix) + FormatNumber(number, "00000") + extension);
    // Folders and links that lead nowhere are not listed, and have names all the same.
  } while (!search.MayBeTried(path));
  return path;
}

}  // namespace pixorra
