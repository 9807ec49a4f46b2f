// The dialog that asks which of two equal photos is to be deleted.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The path of the file to delete; empty to keep both. "Original" is the file that was in the folder already.
std::string DeleteDuplicate(MainForm& main, const std::string& equalFile, const std::string& newFile);

}  // namespace pixorra
