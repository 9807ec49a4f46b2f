// Deleting all photos of the film strip, and its folder.
#pragma once

namespace pixorra {

struct MainForm;

// Asks, and deletes the photos that were listed when it said how many there are, their cached thumbnails, and the
// folder if that is empty then; no film strip is chosen afterwards. A run that is stopped leaves the film strip with
// the photos that are left.
void ShowDeleteAllForm(MainForm& main);

}  // namespace pixorra
