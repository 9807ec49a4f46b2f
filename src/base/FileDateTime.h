// A file's date as a date value, in local time, to the second.
#pragma once

#include <string>

#include "platform/runtime/DateValue.h"

namespace pixorra {

class Clock;
class Files;

// The last-write time. Opens the file for writing to read it: one that does not open so gives the first moment that a
// file time can tell, 1 January 1601.
DateValue GetFileDate(Files& files, const std::string& path);
// Sets all times of the file to the date; the milliseconds are those of now. Where it cannot be done nothing happens.
void SetFileDate(Files& files, Clock& clock, const std::string& path, DateValue date);

}  // namespace pixorra
