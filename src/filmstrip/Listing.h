// The strip's folder and its slots: what a change of folder shows, and how a slot is made.
#pragma once

#include <string>

namespace pixorra {

struct FilmStripState;
struct MainForm;

// The captions of the folder; the slots follow by the background loading.
void SrcFileList_PathChange(MainForm& main);
// No film strip is chosen: the captions say so.
void ShowNoFilmStrip(FilmStripState& strip);
// Whether the folder, at its full path, is the film strip.
bool IsFilmStrip(const FilmStripState& strip, const std::string& folder);
// Makes the next slot, for the photo at the full path; nothing beyond MostThumbnails. Where it raises, no part of the
// slot is left.
void AddSrcSlot(MainForm& main, const std::string& path);

// Unloads what is there of a slot.
void UnloadSrcSlot(FilmStripState& strip, int slot);
// A slot's photo has another path now; empty: it is there no longer, and the slot is dead. The only way to set a slot's
// Tag.
void SetSrcSlotPath(FilmStripState& strip, int slot, const std::string& path);
// The selected slot if it has the photo, else the one that has it; 0 where none has.
int SlotOf(const FilmStripState& strip, const std::string& photo);
// Puts the three controls of a slot at a shown position, from 0, on the present page, and shows them.
void PlaceSrcSlot(FilmStripState& strip, int slot, int position);
// The place of a slot that is loaded among those that are shown, from 1; 0: it is not shown. No other slot is looked
// at.
int ShownPlace(const FilmStripState& strip, int slot);
// The canvas's width by the last slot.
void FitSrcCanvas(FilmStripState& strip, int lastSlot);
void ShowSrcCount(FilmStripState& strip);

}  // namespace pixorra
