// Loading picture files into controls.
#pragma once

#include <string>

#include "platform/services/Files.h"
#include "platform/services/Pictures.h"

namespace pixorra {

class Control;
struct MainForm;

// 0 not recognised, 1 bitmap, 2 GIF, 3 JPEG, by the first ten bytes; a file that cannot be read gives 0.
int PictureFileFormat(Files& files, const std::string& path);
int PictureFileFormat(File& file);
// True when the control, an image box or a picture box, now shows the picture. A call inside a call fails. `decoded` is
// set to the stamp that the file had before it was read, `told` to whether a message has said why it failed.
bool LoadPictureFile(MainForm& main, const std::string& path, Control& target, bool bFastJpeg,
                     FileStamp* decoded = nullptr, bool* told = nullptr);
// The same for a picture that is going to be painted in these sizes alone (Pictures::LoadToPaint).
bool LoadPictureToPaint(MainForm& main, const std::string& path, Control& target, const Pictures::PaintedSizes& sizes,
                        FileStamp* decoded = nullptr);

}  // namespace pixorra
