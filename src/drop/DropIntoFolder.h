// A drop: one photo, or the whole film strip, into a folder.
#pragma once

namespace pixorra {

class Control;
class ImageBox;
struct MainForm;

// The drop event of DestFolderPreview, to which every drop target is connected. The source is a slot's thumbnail or
// AllButton.
void DropOnFolder(MainForm& main, int slot, Control& source);
void CopyDraggedPhoto(MainForm& main, int slot, ImageBox& source);

}  // namespace pixorra
