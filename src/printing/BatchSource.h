// Which photos a batch or a proof sheet is of, and what the window holds of them.
#pragma once

#include <string>

namespace pixorra {

class FileListBox;
struct MainForm;

enum class BatchSource { FilmStrip = 1, OpenFolder = 2 };

const FileListBox& PhotoList(const MainForm& main, BatchSource source);
// How many slots or cells are loaded.
int LoadedCount(const MainForm& main, BatchSource source);
// The full path of the photo in a slot or cell, from 1; empty where it holds none.
std::string LoadedPhoto(const MainForm& main, BatchSource source, int slot);
// The caption of the label that shows where the photos are.
std::string LocationCaption(const MainForm& main, BatchSource source);

struct ListedPhoto {
  std::string Name;  // without its folder
  std::string Path;
};
// Entry `index`, from 0, of the list as it is now; both texts are empty beyond its end.
ListedPhoto PhotoAt(const MainForm& main, BatchSource source, int index);

}  // namespace pixorra
