// A file's date as a date value, in local time, to the second.
//
// Deliberate: only a file that may be written has a date; any other has 1 January 1601, though its time could be read.
// Three things rely on that one answer:
// - a photo's record in a cache file is found by name, length and date (pictures/QuickThumbs.cpp). Records of photos
//   that could not be written have that date, and those of photos that could have their true one. A photo that cannot
//   be written is looked up by both, as its card may have been locked in between;
// - SetFileDate does nothing for that date, so the copy of a photo on a locked card keeps the moment of its copying
//   (drop/FileTransfer.cpp);
// - the question about a duplicate shows it (drop/DuplicateAskForm.cpp).
#pragma once

#include <string>

#include "platform/runtime/DateValue.h"

namespace pixorra {

class Clock;
class Files;

// 1 January 1601.
DateValue NoFileDate();
// The last-write time; NoFileDate where the file does not open for reading and writing. Raises nothing.
DateValue GetFileDate(Files& files, const std::string& path);
// The same, and NoFileDate only where the file does not open for reading. Raises nothing.
DateValue GetFileDateToRead(Files& files, const std::string& path);
// Sets all times of the file to the date; the milliseconds are those of now. Does nothing for 1 January 1601 and where
// the times cannot be set. Raises nothing.
void SetFileDate(Files& files, Clock& clock, const std::string& path, DateValue date);

}  // namespace pixorra
