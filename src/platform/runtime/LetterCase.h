// Upper and lower case of single characters, the same whatever the host's language is.
#pragma once

namespace pixorra {

char32_t UpperCase(char32_t code);
char32_t LowerCase(char32_t code);

}  // namespace pixorra
