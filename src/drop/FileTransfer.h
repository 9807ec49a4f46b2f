// Copying one photo, byte by byte, with its date.
#pragma once

#include <memory>
#include <string>

#include "platform/services/Files.h"

namespace pixorra {

struct MainForm;

// What the source and the copy were when the copy was made.
struct CopyStamps {
  FileStamp Source;
  FileStamp Copy;
};

// The source as a whole, and its date when that is to be kept. What is copied is on stable storage when this returns.
// With OpenMode::CreateNew it raises FileExists where the name is taken by then; with OpenMode::ReadWrite it writes
// over what is there. Raises what files raise, BadSubscript for an empty source, and DeviceIO or PastEndOfFile for one
// that changes meanwhile. The destination may then be there, cut short where its disk is full and else empty; one that
// was written whole but could not be flushed is emptied.
CopyStamps CopyPhotoFile(MainForm& main, const std::string& source, const std::string& destination, OpenMode mode);

// The bytes alone. Returns the copy, still open and not flushed. `copied` is set to the source's stamp.
std::unique_ptr<File> CopyFileBytes(Files& files, const std::string& source, const std::string& destination,
                                    OpenMode mode, FileStamp* copied = nullptr);

}  // namespace pixorra
