// Moving the selection by the arrow keys: through the film strip, or through the open folder.
#pragma once

namespace pixorra {

struct MainForm;

// False for a key that is no arrow key, or that has no meaning where the selection is.
bool MoveSelection(MainForm& main, int keyCode);
// Selects the photo that was selected there last or, where that has gone, the first one, and brings it into view. Beeps
// where there is none. As with every selection by key, full size follows where it is shown.
void SelectInStrip(MainForm& main);
void SelectInOpenFolder(MainForm& main);
// As a click on that slot, from 1, which is brought into view whole. Where the view leaves its photo out, all photos
// are shown first.
void SelectSlotInStrip(MainForm& main, int slot);

}  // namespace pixorra
