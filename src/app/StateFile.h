// Replacing the file of the saved state as a whole.
#pragma once

#include <string>

namespace pixorra {

class Files;
struct UnreadState;

// Writes the bytes beside the file, which they then replace in one step: at any time the old file or the new one is
// there, whole, and the new one is for whom the old one was for. One that is there and was not read is kept first,
// under its name with ".old" after it, or a free one like it. `path` is no link.
//
// Raises as opening for writing does where the file may not be written or no new file made; the number of the failure,
// with words for a person, where a file that should be cannot be kept. A failure after that raises nothing. After any
// of them the old file is in its place.
// Deliberate: where the folder takes no new file, or no other file may take its name, one that need not be kept is
// written where it is, and a failure half-way through that leaves it cut short.
void ReplaceStateFile(Files& files, const std::string& path, const std::string& bytes, UnreadState& before);

}  // namespace pixorra
