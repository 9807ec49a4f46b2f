// The dialog that asks for another name when a photo's own is taken.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The full path chosen for one that is in use; empty on cancel.
std::string RenameNewPhoto(MainForm& main, const std::string& path);

}  // namespace pixorra
