// Marks of photos that have been dragged: shaded, with a grey name, and kept in the cache.
#pragma once

namespace pixorra {

class ImageBox;
struct FileStamp;
struct FilmStripState;
struct MainForm;

// Marks the slot that the thumbnail belongs to, by hand: of its photo as it is now.
void MarkDragged(MainForm& main, ImageBox& thumbnail);
// After a drop: `copied` is the stamp that the photo had when it was copied.
void MarkDragged(MainForm& main, ImageBox& thumbnail, const FileStamp& copied);
// Where time has passed between the copy and the mark: the mark of a photo that has been changed meanwhile says so.
// Opens the photo.
void NoteChangeSinceCopied(MainForm& main, const ImageBox& thumbnail);
// Of a slot that is loaded, whose photo has its mark already.
void MarkLoaded(MainForm& main, ImageBox& thumbnail);
// How many slots are marked.
int CheckDraggedPhotos(const FilmStripState& strip);
// A double click on a slot marks it, or recovers it.
void SrcBackground_DblClick(MainForm& main, int slot);
// The tool tip says which of the two a double click would do.
void SrcBackground_MouseMove(MainForm& main, int slot);

}  // namespace pixorra
