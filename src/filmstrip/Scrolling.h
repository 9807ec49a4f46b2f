// Moving the strip: the bar and its unit, pages of 50 frames, and the scroll past dragged photos.
#pragma once

namespace pixorra {

struct FilmStripState;
struct MainForm;

void SrcScrollbar_Change(MainForm& main);
void SrcScrollbar_Scroll(MainForm& main);
void AutoScrollStep(MainForm& main);
// Moves the strip by so many pixels, positive towards its end, within the bar's range. Pixels below one unit of the bar
// are kept for the next call. A pending auto scroll stops, as with any use of the bar.
void ScrollStripBy(MainForm& main, double pixels);
// Scrolls a shown slot into view, so many frames after the window's left edge, or as near as the bar's range allows. A
// slot that is too near an end for that and is in view already stays where it is.
void ScrollStripTo(FilmStripState& strip, int slot, int framesAhead);
// The slot's frame is wholly in the strip's window.
bool IsInView(const FilmStripState& strip, int slot);
// The bar's range, and its unit, for so many slots. The photos in view stay in view.
void FitSrcScrollbar(MainForm& main, int shown);

}  // namespace pixorra
