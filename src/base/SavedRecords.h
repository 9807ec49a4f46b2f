// The text form of saved values, one record a line: texts between double quotes with no escape, numbers in plain
// decimals, several values of a record parted by commas, each line ended by CR LF.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace pixorra {

class Files;

class SavedRecordWriter {
 public:
  void Text(const std::string& text);
  void Number(double number);
  // One record of several values.
  void Numbers(std::initializer_list<double> numbers);
  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// Reads value by value, whatever the lines. A value that is missing or bad is nothing, and the next one is read after
// it.
class SavedRecordReader {
 public:
  explicit SavedRecordReader(std::string_view bytes) : rest_(bytes) {}

  // Nothing at the end, and where the value is no number of 32 bits (halves are rounded to the even neighbour).
  std::optional<int> Number();
  // The same with 16 bits.
  std::optional<int> ShortNumber();
  // With or without quotes; nothing at the end, and for a quoted text that the end cuts short.
  std::optional<std::string> Text();
  bool AtEnd();

 private:
  std::optional<std::string> Next();

  std::string_view rest_;
};

// All bytes of a file. Raises what files raise.
std::string ReadWhole(Files& files, const std::string& path);

}  // namespace pixorra
