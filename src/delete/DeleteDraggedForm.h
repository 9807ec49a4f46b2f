// Deleting the photos of the film strip that have been dragged into folders.
#pragma once

namespace pixorra {

struct MainForm;

// Asks, and deletes the photos that were marked when it said how many there are. A photo that cannot be deleted gets a
// message and leaves the film strip all the same.
void ShowDeleteDraggedForm(MainForm& main);

}  // namespace pixorra
