// The clipboard's picture, pasted into the open folder as a new photo.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixorra {

class Files;
struct FileStamp;
struct MainForm;

// Named and compared with the folder's photos as a dropped photo is. Says in a message what is in the way.
void PasteMenuItem_Click(MainForm& main);

// Makes a file of these bytes, which is on stable storage when this returns, or none. Raises FileExists where the name
// is taken, and else what files raise.
FileStamp WriteNewFile(Files& files, const std::string& path, const std::vector<std::uint8_t>& bytes);

}  // namespace pixorra
