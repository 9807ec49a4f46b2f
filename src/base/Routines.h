// The path and name helpers. Paths use the backslash; several helpers are not what their name suggests at the edges,
// and callers rely on that.
#pragma once

#include <cstdint>
#include <string>

namespace pixorra {

class Places;

// Without one final backslash: "C:\\" becomes "C:" and two backslashes at the end become one.
std::string StripTrailingBackslash(const std::string& path);

// The helpers below that take a pointer change the caller's variable: a final backslash is taken off it. With a
// reference they return the same and change nothing.

// What follows the last backslash, after one final backslash is taken off; empty where there is none.
std::string FileNameOf(std::string* path);
std::string FileNameOf(const std::string& path);

// The file name up to its first full stop.
std::string BaseNameOf(std::string* path);
std::string BaseNameOf(const std::string& path);

// What follows the last backslash; a path that ends in one is shown whole, so that drive roots keep their text. Empty
// for a text without any.
std::string FolderDisplayName(const std::string& path);

// The path up to and including the last backslash that is left after one final backslash is taken off.
std::string ParentPathOf(std::string* path);
std::string ParentPathOf(const std::string& path);

// Is it the root of a drive ("C:", "C:\") or of a network share ("\\server\share")? Changes only paths that begin with
// two backslashes.
bool IsRootPath(std::string* path);
bool IsRootPath(const std::string& path);

// A shell folder by its number, with a final backslash; empty where the host has none.
std::string SpecialFolderPath(Places& places, int number);
// The folder of the saved state file, with a final backslash.
std::string WindowsFolderPath(Places& places);

// A name in a folder; the folder may end in a backslash or not.
std::string JoinPath(const std::string& folder, const std::string& name);

// The count caption of a folder: " Empty" for 0, else the count followed by " pics".
std::string CountCaption(std::int64_t count);

}  // namespace pixorra
