#include "base/SavedRecords.h"

#include <algorithm>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}
// A whole number or one with a fraction, as TrimmedStr writes them, and nothing beside it.
bool IsNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789.") == std::string_view::npos &&
         std::count(text.begin(), text.end(), '.') <= 1;
}
bool EndsValue(char c) {
  return c == ',' || IsLineEnd(c);
}

}  // namespace

void SavedRecordWriter::Text(const std::string& text) {
  bytes_ += '"' + text + "\"\r\n";
}

void SavedRecordWriter::Number(double number) {
  Numbers({number});
}

void SavedRecordWriter::Numbers(std::initializer_list<double> numbers) {
  std::string line;
  for (const double number : numbers) line += (line.empty() ? "" : ",") + TrimmedStr(number);
  bytes_ += line + "\r\n";
}

bool SavedRecordReader::AtEnd() {
  return rest_.empty();
}

// A quoted value ends with its closing quote; whatever is between that and the next comma or line end is skipped. Where
// the file ends first the value is cut short and is nothing: half a path may be a folder too, but another one.
std::optional<std::string> SavedRecordReader::Next() {
  while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  if (rest_.empty()) return std::nullopt;
  std::string value;
  if (rest_.front() == '"') {
    rest_.remove_prefix(1);
    const std::size_t quote = rest_.find('"');
    if (quote == std::string_view::npos) {
      rest_ = {};
      return std::nullopt;
    }
    value = std::string(rest_.substr(0, quote));
    rest_.remove_prefix(quote + 1);
    while (!rest_.empty() && !EndsValue(rest_.front())) rest_.remove_prefix(1);
  } else {
    std::size_t end = 0;
    while (end < rest_.size() && !EndsValue(rest_[end])) ++end;
    value = Trim(rest_.substr(0, end));
    rest_.remove_prefix(end);
  }
  if (rest_.size() >= 2 && rest_[0] == '\r' && rest_[1] == '\n') {
    rest_.remove_prefix(2);
  } else if (!rest_.empty()) {
    rest_.remove_prefix(1);
  }
  return value;
}

std::optional<int> SavedRecordReader::Number() {
  const std::optional<std::string> value = Next();
  if (!value || !IsNumber(*value)) return std::nullopt;
  return OrElse(std::optional<int>(), [&] { return CLng(Val(*value)); });
}

std::optional<int> SavedRecordReader::ShortNumber() {
  const std::optional<int> number = Number();
  if (!number) return std::nullopt;
  return OrElse(std::optional<int>(), [&] { return CInt(*number); });
}

std::optional<std::string> SavedRecordReader::Text() {
  return Next();
}

std::string ReadWhole(Files& files, const std::string& path) {
  const std::unique_ptr<File> file = files.Open(path, OpenMode::Read);
  std::string bytes(static_cast<std::size_t>(file->Length()), '\0');
  bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
  return bytes;
}

}  // namespace pixorra
