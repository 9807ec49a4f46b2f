// A file's length and time of the last write as a text, to be kept in the Tag of a control.
#pragma once

#include <string>

#include "platform/services/Files.h"

namespace pixorra {

// Equal texts: the file has not been written since. Which file it is does not count: on a memory card each has another
// number whenever it is found anew.
std::string StampText(const FileStamp& stamp);
// Of the file as it is now, which is not opened for it; empty where it cannot be looked at.
std::string StampText(Files& files, const std::string& path);

}  // namespace pixorra
