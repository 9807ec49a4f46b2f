// The grid of the open folder's thumbnails.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

class Picture;
struct DesktopState;
struct MainForm;

// The full path of the first photo of the open folder's list that has no cell; empty where all have one.
std::string NextDestThumbFile(DesktopState& desk);
// The first `most` of them.
std::vector<std::string> NextDestThumbFiles(DesktopState& desk, int most);
// Makes the next cell, for the photo at the full path; nothing beyond MostThumbnails. Where it raises, no part of the
// cell is left.
void AddDestThumbnail(MainForm& main, const std::string& path);
void ClearDestThumbnails(MainForm& main);
void Redisplay_DestThumbnails(MainForm& main);
// So many cells make a row. The selected photo, or else the first of the row at the top, keeps its place in the window.
void SetDestColumns(MainForm& main, int columns);
// Deletes a cell; those after it move up. 0 does nothing.
void DeleteDestThumbnail(DesktopState& desk, int index);
// The cell of the photo at the full path, if there is one, is blanked with the picture and deleted.
void RemoveDestPhoto(DesktopState& desk, const std::string& path, const Picture& blank);
// A cell's photo has another path now. The only way to set a cell's Tag.
void SetDestCellPath(DesktopState& desk, int index, const std::string& path);
// The cell that has the photo at the full path, the selected one if it is that; 0 where none has it.
int CellOf(const DesktopState& desk, const std::string& path);
void DestScrollbar_Change(MainForm& main);
void DestScrollbar_Scroll(MainForm& main);
// Moves the view by so many pixels, positive towards its end, within the bar's range. Pixels below one unit of the bar
// are kept for the next call.
void ScrollDestBy(MainForm& main, double pixels);
void DestThumbnail_MouseDown(MainForm& main, int index, int mouseButton);

}  // namespace pixorra
