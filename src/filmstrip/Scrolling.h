// Moving the strip: the bar, pages of 50 frames, and the scroll past dragged photos.
#pragma once

namespace pixorra {

struct MainForm;

void SrcScrollbar_Change(MainForm& main);
void SrcScrollbar_Scroll(MainForm& main);
void AutoScrollStep(MainForm& main);

}  // namespace pixorra
