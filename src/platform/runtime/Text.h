// Texts: UTF-8 throughout; case is folded for comparison, and blanks are the only white space that trimming takes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

// Without the blanks (0x20) at both ends.
std::string Trim(std::string_view text);
// The parts of a text between separators, one more than there are separators: a text without any is its only part, and
// empty parts count. They are views of the text.
std::vector<std::string_view> Split(std::string_view text, char separator);
// The lines of a text, each without its line feed; the last one may lack it. An empty text has none.
std::vector<std::string_view> Lines(std::string_view text);
bool IsDigit(char c);  // 0 to 9
bool IsAsciiLetterOrDigit(char c);
// Bytes for which `isPlain` is false become a percent sign and two hexadecimal digits, letters capital.
std::string PercentEncoded(std::string_view text, bool (*isPlain)(char byte));
// The bytes again; digits in either case. A percent sign without two digits after it is itself.
std::string PercentDecoded(std::string_view text);
// Upper and lower case of every letter that has one (ASCII, Latin, Greek, Cyrillic ...); bytes that are no UTF-8 stay.
std::string UCase(std::string_view text);
std::string LCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
// Orders names as a file list shows them: case ignored first, then byte by byte, so that no two different names are
// equal.
bool NameLess(std::string_view a, std::string_view b);
// Wildcard match, case ignored: '*' any run, '?' one character. `patterns` holds one or more joined by ';'; an empty
// text matches every name, and so does "*.*", with or without a full stop in the name.
bool MatchesPattern(std::string_view name, std::string_view patterns);
// The longest start of `text` that is at most `bytes` long and does not split a UTF-8 character.
std::string_view CutToBytes(std::string_view text, std::size_t bytes);
// Characters in a text; a byte that is no UTF-8 counts as one.
std::size_t CharacterCount(std::string_view text);
bool IsValidUtf8(std::string_view text);

}  // namespace pixorra
