// Marks of photos that have been dragged: shaded, with a grey name, and kept in the cache.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pixorra {

class ImageBox;
struct FilmStripState;
struct MainForm;

// Marks the slot that the thumbnail belongs to.
void MarkDragged(MainForm& main, ImageBox& thumbnail);
// How long the slot's photo was when it was marked, bytes: it is then that it had been copied. Nothing where that could
// not be known.
std::optional<std::int64_t> LengthWhenMarked(const FilmStripState& strip, int slot);
// How many slots are marked.
int CheckDraggedPhotos(const FilmStripState& strip);
// A double click on a slot marks it, or recovers it.
void SrcBackground_DblClick(MainForm& main, int slot);
// The tool tip says which of the two a double click would do.
void SrcBackground_MouseMove(MainForm& main, int slot);

}  // namespace pixorra
