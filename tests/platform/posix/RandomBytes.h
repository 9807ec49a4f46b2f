// Random names for properties that must hold for every name. The seed is fixed, so a failure comes back.
#pragma once

#include <random>
#include <string>

namespace pixorra {

class RandomBytes {
 public:
  explicit RandomBytes(unsigned seed) : random_(seed) {}

  // Bytes that a host name may hold, many of them from the borders of the spelling.
  std::string HostName() {
    static const std::string pieces[] = {"\\",
                                         ":",
                                         ".",
                                         "..",
                                         " ",
                                         "\xEF\x81\x9C",
                                         "\xEF\x80\xBA",
                                         "\xEF\x9E\x80",
                                         "\xEF\x9F\xBF",
                                         "\xEF\x9E",
                                         "\xC3\xA4",
                                         "\xC3",
                                         "\xED\xA0\x80",
                                         "\xF0\x9F\x98\x80",
                                         "\xF4\x90\x80\x80",
                                         "\xC0\xAF",
                                         "a",
                                         "A",
                                         "~",
                                         "\n"};
    std::string name;
    const int count = 1 + Below(8);
    for (int i = 0; i < count; ++i) {
      if (Below(3) == 0)
        name += static_cast<char>(static_cast<unsigned char>(1 + Below(255)));
      else
        name += pieces[static_cast<std::size_t>(Below(static_cast<int>(std::size(pieces))))];
    }
    std::erase(name, '/');
    return name.empty() || name == "." || name == ".." ? "x" : name;
  }

  // Any bytes at all, NULs and slashes too.
  std::string Anything() {
    static const std::string pieces[] = {"\\",
                                         ":",
                                         ".",
                                         "..",
                                         "/",
                                         "C:\\",
                                         "\\\\",
                                         "\xEF\x81\x9C",
                                         "\xEF\x9E\xAF",
                                         "\xEF\x9F\x83\xEF\x9E\xA4",
                                         "c",
                                         "smb://",
                                         "\xC3\xA4",
                                         "\\..\\",
                                         "/../"};
    std::string text;
    const int count = Below(10);
    for (int i = 0; i < count; ++i) {
      if (Below(4) == 0)
        text += static_cast<char>(static_cast<unsigned char>(Below(256)));
      else
        text += pieces[static_cast<std::size_t>(Below(static_cast<int>(std::size(pieces))))];
    }
    return text;
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

 private:
  std::mt19937 random_;
};

}  // namespace pixorra
