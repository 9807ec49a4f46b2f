// The user's own folders by the desktop's list of them, "user-dirs.dirs" in the configuration folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pixorra {

// The folder of a name such as "DESKTOP" in the list's text: an absolute host path without a final slash. Nothing where
// the list does not tell.
std::optional<std::string> UserFolder(std::string_view list, std::string_view name, const std::string& home);

}  // namespace pixorra
