// The strip's folder and its slots: what a change of folder shows, and how a slot comes up.
#pragma once

#include <string>

namespace pixorra {

struct MainForm;

// The captions of the folder; the slots follow by the background loading.
void SrcFileList_PathChange(MainForm& main);
// No film strip is chosen: the captions say so.
void ShowNoFilmStrip(MainForm& main);
// Makes the next slot, for the photo at the full path.
void AddSrcSlot(MainForm& main, const std::string& path);

}  // namespace pixorra
