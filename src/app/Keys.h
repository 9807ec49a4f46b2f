// The keyboard of the main window: which key does what.
#pragma once

namespace pixorra {

class Control;
struct FilmStripState;
struct MainForm;

// The main window sees each key before its controls and its menus do; other forms may pass theirs on. `shift` is the
// sum of shift::Shift, shift::Ctrl and shift::Alt. A key that is used becomes 0.
void Form_KeyDown(MainForm& main, int& keyCode, int shift);

// The slot of the strip whose photo is selected; 0 for none.
int SlotSelected(const FilmStripState& strip);
// The drop of a drag, of a photo or of the reel, on the target that the folder has for it. Nothing where the slot is
// not in use.
void DropOnTarget(MainForm& main, int folder, Control& source);
// The keys 1 to 9: the selected photo into that folder, as if it had been dragged there. Beeps where there is none, of
// either.
void DropSelected(MainForm& main, int folder);
// The key Insert: as a double click on the frame of the selected photo. Beeps where there is none.
void ToggleMarkOfSelected(MainForm& main);

}  // namespace pixorra
