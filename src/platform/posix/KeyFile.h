// Text files of groups in square brackets and lines "key=value", as the desktop keeps them. What is not changed stays
// as it was, comments and unknown lines included.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

class KeyFile {
 public:
  KeyFile() = default;
  explicit KeyFile(std::string_view text);

  bool HasGroup(std::string_view group) const;
  // As it is written; nothing where there is none. Of a key that stands twice the last counts.
  std::optional<std::string> RawValue(std::string_view group, std::string_view key) const;
  // With "\s", "\n", "\t", "\r" and "\\" read; empty where there is none.
  std::string Value(std::string_view group, std::string_view key) const;
  // In a language such as "de_DE": "key[de_DE]", "key[de]" or "key", whichever comes first.
  std::string LocalValue(std::string_view group, std::string_view key, std::string_view language) const;
  // Parts between semicolons, empty ones left out.
  std::vector<std::string> List(std::string_view group, std::string_view key) const;
  // Group and key must hold no line end; the group no square bracket, the key no equals sign.
  void SetValue(std::string_view group, std::string_view key, std::string_view value);
  std::string Text() const;

 private:
  struct Line {
    std::string Group;
    std::string Key;  // empty for what is no "key=value"
    std::string Value;
    std::string Text;  // as it stands, without its end
    bool Heading = false;
  };
  std::vector<Line> lines_;
};

}  // namespace pixorra
