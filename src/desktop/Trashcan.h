// The Trashcan's folder and its emptying.
#pragma once

#include <string>

namespace pixorra {

class Places;
struct MainForm;

// Without a final backslash. Not necessarily there.
std::string TrashcanFolder(Places& places);
// Deletes the photos that the Trashcan's list shows, and their cached thumbnails; nothing else of the folder. Without a
// folder of its own, the list shows another folder's photos: then nothing is deleted. Failures are ignored.
void EmptyTrashcan(MainForm& main);

}  // namespace pixorra
