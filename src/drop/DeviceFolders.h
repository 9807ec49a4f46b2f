// Folders on a camera or phone: such a device confirms every copy, stored or not.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// Says so in a box, once for each such folder in a run of the program. Called before the first copy into it; the copy
// is made all the same.
void TellOfDeviceFolderOnce(MainForm& main, const std::string& folder);

}  // namespace pixorra
