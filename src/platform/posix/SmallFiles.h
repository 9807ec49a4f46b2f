// Small files of the program's own and of the desktop, read and written whole, by host paths.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pixorra {

// Nothing where the path is no ordinary file that can be read, and for one above 16 MiB.
std::optional<std::string> ReadSmallFile(const std::string& path);
// All or nothing: through a new file beside it that is flushed and takes its name; a link is kept and what it leads to
// replaced. A new file is for its owner alone. Raises the host's error by HostErrors.h.
void WriteSmallFile(const std::string& path, std::string_view text);
// The same where nobody has the name: raises FileExists where it is taken by anything at all, also just before.
void WriteNewSmallFile(const std::string& path, std::string_view text);
// Removes what writing to this path has left beside it where the program was killed meanwhile, if it has this text in
// it.
void RemoveTracesOf(const std::string& path, std::string_view mark);
// With all folders above it, each for its owner alone. False where it cannot be made.
bool MakeFolders(const std::string& path);

}  // namespace pixorra
