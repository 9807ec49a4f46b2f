// Copying one photo, byte by byte, with its date.
#pragma once

#include <string>

namespace pixorra {

class FileBuffer;
class Files;
struct MainForm;

// The source as a whole, then its date when that is to be kept. What is copied is on stable storage when this returns.
// Raises what files raise, and error 9 for an empty source; the destination may then stand there, cut short.
void CopyPhotoFile(MainForm& main, const std::string& source, const std::string& destination);

// The bytes alone, through the buffer; the file is flushed, its folder is not.
void CopyFileBytes(Files& files, FileBuffer& buffer, const std::string& source, const std::string& destination);

}  // namespace pixorra
