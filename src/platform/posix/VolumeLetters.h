// The letters of drives: from D: on, remembered for each medium, so that a card has the same letter again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

struct RememberedLetter {
  char Letter = 'D';
  std::string Key;  // of the medium
  bool operator==(const RememberedLetter&) const = default;
};

// The letter of each medium that is there now, in the order of `keys`; 0 where all letters are taken. Letters are given
// by memory first, then those never given, then those of media that are not there. `remembered` is brought up to date.
std::vector<char> GiveLetters(const std::vector<std::string>& keys, std::vector<RememberedLetter>& remembered);

// Lines such as "D id:1A2B-3C4D".
std::vector<RememberedLetter> ParseLetters(std::string_view text);
std::string LettersText(const std::vector<RememberedLetter>& remembered);

}  // namespace pixorra
