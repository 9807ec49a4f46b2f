// Moving the strip: the bar, pages of 50 frames, and the scroll past dragged photos.
#pragma once

namespace pixorra {

struct MainForm;

void SrcScrollbar_Change(MainForm& main);
void SrcScrollbar_Scroll(MainForm& main);
void AutoScrollStep(MainForm& main);
// Moves the strip by so many pixels, positive towards its end, within the bar's range. Pixels below one unit of the bar
// are kept for the next call. A pending auto scroll stops, as with any use of the bar.
void ScrollStripBy(MainForm& main, double pixels);

}  // namespace pixorra
