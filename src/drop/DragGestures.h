// Drags under way: icons over targets, the start of a drag, the whole film strip's reel.
#pragma once

#include <cstdint>

namespace pixorra {

class Control;
enum class DragState : std::uint8_t;
struct MainForm;

// The button that drags the whole film strip.
bool IsAllButton(const Control& source);
// Over a folder: the source's drag icon shows that it can be let go there.
void DragOverFolder(MainForm& main, Control& source, DragState state);
// A thumbnail over itself: the moment of the press, which selects it.
void SrcThumbnail_DragOver(MainForm& main, int index, Control& source, DragState state);
// Let go over the strip, which is also what a click is.
void SrcThumbnail_DragDrop(MainForm& main);
void AllButton_DragOver(MainForm& main, Control& source, DragState state);
// The pointer shows whether the whole strip can be dragged yet.
void AllButton_MouseMove(MainForm& main);

}  // namespace pixorra
