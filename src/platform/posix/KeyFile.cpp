// Groups of keys and values.
#include "platform/posix/KeyFile.h"

#include <algorithm>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::string_view plain = "\\\n\t\r";
constexpr std::string_view letters = "\\ntr";

std::string Escaped(std::string_view value) {
  std::string text;
  for (const char c : value) {
    const std::size_t known = plain.find(c);
    if (known != std::string_view::npos) {
      text += '\\';
      text += letters[known];
    } else if (c == ' ' && text.empty()) {
      text += "\\s";  // blanks before a value count for nothing
    } else {
      text += c;
    }
  }
  // Nor do they behind it.
  if (text.ends_with(' ')) text.replace(text.size() - 1, 1, "\\s");
  return text;
}

std::string Unescaped(std::string_view text) {
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t known =
        text[i] == '\\' && i + 1 < text.size() ? letters.find(text[i + 1]) : std::string_view::npos;
    if (known != std::string_view::npos) {
      value += plain[known];
      ++i;
    } else if (text.substr(i, 2) == "\\s") {
      value += ' ';
      ++i;
    } else {
      value += text[i];
    }
  }
  return value;
}

}  // namespace

KeyFile::KeyFile(std::string_view text) {
  std::string group;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view content = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (content.ends_with('\r')) content.remove_suffix(1);
    Line line;
    line.Text = content;
    const std::string trimmed = Trim(content);
    const std::size_t equals = trimmed.find('=');
    if (trimmed.starts_with('[') && trimmed.ends_with(']')) {
      group = trimmed.substr(1, trimmed.size() - 2);
      line.Heading = true;
    } else if (!trimmed.starts_with('#') && equals != std::string::npos) {
      line.Key = Trim(trimmed.substr(0, equals));
      line.Value = Trim(trimmed.substr(equals + 1));
    }
    line.Group = group;
    lines_.push_back(line);
  }
}

bool KeyFile::HasGroup(std::string_view group) const {
  return std::any_of(lines_.begin(), lines_.end(),
                     [group](const Line& line) { return line.Heading && line.Group == group; });
}

std::optional<std::string> KeyFile::RawValue(std::string_view group, std::string_view key) const {
  const auto found = std::find_if(lines_.rbegin(), lines_.rend(), [group, key](const Line& line) {
    return !line.Key.empty() && line.Group == group && line.Key == key;
  });
  return found == lines_.rend() ? std::nullopt : std::optional(found->Value);
}

std::string KeyFile::Value(std::string_view group, std::string_view key) const {
  return Unescaped(RawValue(group, key).value_or(""));
}

std::string KeyFile::LocalValue(std::string_view group, std::string_view key, std::string_view language) const {
  for (const std::string_view form : {language, language.substr(0, language.find('_'))}) {
    if (form.empty()) continue;
    const std::string local = std::string(key) + '[' + std::string(form) + ']';
    if (RawValue(group, local)) return Value(group, local);
  }
  return Value(group, key);
}

std::vector<std::string> KeyFile::List(std::string_view group, std::string_view key) const {
  std::vector<std::string> parts;
  const std::string value = Value(group, key);
  std::string_view rest = value;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string part = Trim(rest.substr(0, end));
    if (!part.empty()) parts.push_back(part);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parts;
}

void KeyFile::SetValue(std::string_view group, std::string_view key, std::string_view value) {
  Line line;
  line.Group = group;
  line.Key = key;
  line.Value = Escaped(value);
  line.Text = line.Key + '=' + line.Value;
  const auto same = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& old) {
    return !old.Key.empty() && old.Group == line.Group && old.Key == line.Key;
  });
  if (same != lines_.rend()) {
    *same = line;
    return;
  }
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& old) {
    return old.Group == line.Group && (old.Heading || !old.Key.empty());
  });
  if (last != lines_.rend()) {
    lines_.insert(last.base(), line);
    return;
  }
  Line heading;
  heading.Group = group;
  heading.Text = '[' + heading.Group + ']';
  heading.Heading = true;
  lines_.push_back(heading);
  lines_.push_back(line);
}

std::string KeyFile::Text() const {
  std::string text;
  for (const Line& line : lines_) text += line.Text + '\n';
  return text;
}

}  // namespace pixorra
