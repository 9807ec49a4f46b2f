// One component of a path: a name in a folder as the host spells it (bytes) and as the program does (UTF-8 that a
// backslash path can carry).
//
// Bytes that the program's spelling has no room for become private-use characters:
//   a backslash          U+F05C
//   a colon              U+F03A
//   a double quote       U+F022, as texts are kept between double quotes
//   a byte 80 to FF that is no part of a UTF-8 character    U+F700 plus the byte
// Where a host name holds one of these characters itself, its three bytes are spelled as bytes. So every host name has
// exactly one spelling, and no two share one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pixorra {

// Any name that a host folder can hold.
std::string NameFromHost(std::string_view hostName);

// Nothing for what no host name is spelled as: an empty name, "." and "..", a slash, a NUL, a backslash, a colon, a
// double quote, bytes that are not UTF-8, and private-use characters in an order that NameFromHost never makes.
std::optional<std::string> NameToHost(std::string_view name);

// The spelling for people: the host's, but where that would not be UTF-8 the program's.
std::string NameForPeople(std::string_view name);
// Back from either spelling. A slash is a part of the name here.
std::string NameFromPeople(std::string_view shown);

}  // namespace pixorra
