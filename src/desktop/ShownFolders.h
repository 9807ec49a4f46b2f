// Putting folders on the Desktop, and taking them off.
#pragma once

#include <string>

namespace pixorra {

class Picture;
struct DesktopState;
struct MainForm;

// Puts a folder on the Desktop and returns its slot; the slot that shows it already, after a message; 0, after a
// message, where there is no such folder or no free slot.
int Display_a_New_Folder(MainForm& main, const std::string& path);
// Takes the open folder off the Desktop. No file is touched.
void Remove_Open_Folder(MainForm& main);
// Takes the folder of slots 1 to 8, which is not open, off the Desktop. No other one opens.
void TakeOffDesktop(DesktopState& desk, int slot);

// The last photo of the slot's list, in the folder by the spelling given, becomes the folder's preview. That of an
// empty list takes the other picture and is hidden.
void ShowNewestPhoto(MainForm& main, int slot, const std::string& folder, const Picture& whenEmpty);

}  // namespace pixorra
