// Giving letters to drives.
#include "platform/posix/VolumeLetters.h"

#include <algorithm>
#include <cstddef>

#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr char firstLetter = 'D';
constexpr char lastLetter = 'Z';

bool Holds(const std::vector<char>& letters, char letter) {
  return std::find(letters.begin(), letters.end(), letter) != letters.end();
}

char FreeLetter(const std::vector<char>& given, const std::vector<RememberedLetter>& remembered) {
  for (char letter = firstLetter; letter <= lastLetter; ++letter) {
    const bool known = std::any_of(remembered.begin(), remembered.end(),
                                   [letter](const RememberedLetter& old) { return old.Letter == letter; });
    if (!known && !Holds(given, letter)) return letter;
  }
  for (char letter = firstLetter; letter <= lastLetter; ++letter)
    if (!Holds(given, letter)) return letter;
  return 0;
}

}  // namespace

std::vector<char> GiveLetters(const std::vector<std::string>& keys, std::vector<RememberedLetter>& remembered) {
  std::vector<char> letters(keys.size(), 0);
  for (std::size_t i = 0; i < keys.size(); ++i)
    for (const RememberedLetter& old : remembered)
      if (letters[i] == 0 && old.Key == keys[i] && !Holds(letters, old.Letter)) letters[i] = old.Letter;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (letters[i] != 0) continue;
    letters[i] = FreeLetter(letters, remembered);
    if (letters[i] == 0) continue;
    std::erase_if(remembered, [&](const RememberedLetter& old) { return old.Letter == letters[i]; });
    remembered.push_back({letters[i], keys[i]});
  }
  return letters;
}

std::vector<RememberedLetter> ParseLetters(std::string_view text) {
  std::vector<RememberedLetter> remembered;
  for (const std::string_view line : Lines(text)) {
    if (line.size() < 3 || line[0] < firstLetter || line[0] > lastLetter || line[1] != ' ') continue;
    const bool known = std::any_of(remembered.begin(), remembered.end(),
                                   [&](const RememberedLetter& old) { return old.Letter == line[0]; });
    if (!known) remembered.push_back({line[0], std::string(line.substr(2))});
  }
  return remembered;
}

std::string LettersText(const std::vector<RememberedLetter>& remembered) {
  std::string text;
  for (const RememberedLetter& letter : remembered) {
    if (letter.Key.find('\n') != std::string::npos) continue;  // such a place is not remembered
    text += letter.Letter;
    text += ' ' + letter.Key + '\n';
  }
  return text;
}

}  // namespace pixorra
