// Thumbnails kept on disk beside the photos, with their dragged marks.
#pragma once

#include <string>

#include "platform/controls/ImageBox.h"

namespace pixorra {

struct MainForm;

// True when the cache holds the photo's thumbnail; it is then in the target, and its mark in `bDragged`.
bool ReadQuickThumb(MainForm& main, const std::string& path, ImageBox& target, bool& bDragged);
// Whether it would, told without a trace: not even a cache file comes into being.
bool HasQuickThumb(MainForm& main, const std::string& path);
void AddQuickThumb(MainForm& main, const std::string& path, const Picture& picture);
// An empty text clears the mark, any other sets it; without an entry nothing changes.
void SetQuickThumbMark(MainForm& main, const std::string& path, const std::string& text);
// Deletes the folder's cache file.
void DeleteQuickThumbs(MainForm& main, const std::string& folder);

}  // namespace pixorra
