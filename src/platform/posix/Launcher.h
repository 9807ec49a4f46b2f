// Starting other programs, which run on their own from then on.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

// The first argument is the program's absolute host path. It runs in a session of its own, with all three standard
// streams at /dev/null, in `workingFolder` or where this program works if that is empty. It is no child of this process
// and leaves nothing here when it ends. Returns 0, or the host's error. No shell sees the arguments, and a file that is
// no program is given to none.
int StartDetached(const std::vector<std::string>& arguments, const std::string& workingFolder);

}  // namespace pixorra
