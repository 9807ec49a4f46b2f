#include "app/INIfile.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "base/Routines.h"
#include "base/SavedRecords.h"
#include "desktop/OpenFolder.h"
#include "desktop/ShownFolders.h"
#include "filmstrip/Listing.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

std::string SavedStateFile(MainForm& main) {
  return WindowsFolderPath(main.host.places) + "Pixorra.sav";
}

// A quotation mark would end the record, and what is after it would be taken for the next ones.
std::string WithoutQuotationMarks(std::string text) {
  std::replace(text.begin(), text.end(), '"', '\'');
  return text;
}

std::string Compose(MainForm& main) {
  SavedRecordWriter record;
  const Form& window = main.Window;
  record.Numbers({window.TwipsWidth(), window.TwipsHeight(), window.TwipsTop(), window.TwipsLeft(),
                  static_cast<double>(window.WindowState())});
  record.Text(WithoutQuotationMarks(main.core.CompanyNameLabel.Caption()));
  record.Number(main.preferences.RenameOptions().Chosen());
  record.Number(main.preferences.DuplicateOptions().Chosen());
  for (const CheckBox* box : main.preferences.StoredBoxes()) record.Number(box->Value());
  record.Text(main.strip.CameraLocation);
  record.Text(main.strip.NoFilmStrip ? std::string() : main.strip.SrcFileList.Path());
  for (int i = 1; i <= FolderSlots; ++i) {
    const bool shown = main.desk.DestFolder(i).Visible();
    record.Text(shown ? main.desk.DestFolderFiles(i).Path() : std::string());
  }
  const ComboBox& previous = main.strip.PreviousList;
  record.Number(previous.ListCount());
  for (int i = 0; i < previous.ListCount(); ++i) record.Text(previous.List(i));
  return record.Bytes();
}

// Where the file is: its name may be a link that a person has made.
std::string PlaceOfState(MainForm& main) {
  const std::string path = SavedStateFile(main);
  return main.host.files.IsLink(path) ? main.host.files.RealPath(path) : path;
}

// What a run that was killed has left under this name, or anybody else, if it can be removed.
void RemoveLeftOver(Files& files, const std::string& path) {
  if (ErrorsIgnored([&] { files.Delete(path); }) == error::None) return;
  ErrorsIgnored([&] { files.RemoveFolder(path); });
}

// Gives the file another name, which nobody has. Raises as Rename does.
void PutAside(Files& files, const std::string& path) {
  constexpr int MostNames = 99;
  std::string aside = path + ".old";
  for (int i = 2; i <= MostNames && files.NameTaken(aside); ++i) aside = path + ".old" + std::to_string(i);
  files.Rename(path, aside);
}

// A folder that takes no new file may still let the file itself be written.
bool TakesNoNewFile(int failure) {
  return failure == error::PathAccess || failure == error::PermissionDenied || failure == error::FileExists;
}

}  // namespace

// Written beside the file and put in its place when it is on the disk: one of the two is whole at any time.
void WriteSavedState(MainForm& main) {
  Files& files = main.host.files;
  const std::string path = PlaceOfState(main);
  const std::string beside = path + ".new";
  // A file that may not be written stays as it is, though its folder would let another one take its place.
  const bool thereIsOne = files.NameTaken(path);
  if (thereIsOne) files.Open(path, OpenMode::ReadWrite);
  const bool keepsOld = thereIsOne && main.core.SavedStateUnread;
  RemoveLeftOver(files, beside);
  std::unique_ptr<File> file;
  const int opened = ErrorsIgnored([&] { file = files.Open(beside, OpenMode::CreateNew); });
  const bool besideItself = opened == error::None;
  // After any other failure, a full disk among them, the state before stays.
  if (!besideItself && (keepsOld || !TakesNoNewFile(opened))) throw RuntimeError(opened);
  // In place it is cut short first: nothing but the writing itself must come after that.
  const std::string bytes = Compose(main);
  if (!besideItself) file = files.Open(path, OpenMode::Replace);
  const int failure = ErrorsIgnored([&] {
    file->WriteAt(0, bytes.data(), bytes.size());
    file->Flush();
    file.reset();
    if (!besideItself) return;
    if (keepsOld) PutAside(files, path);
    main.core.SavedStateUnread = false;
    files.RenameOver(beside, path);
    files.FlushFolder(ParentPathOf(path));
  });
  if (failure == error::None || !besideItself) return;
  file.reset();
  ErrorsIgnored([&] { files.Delete(beside); });
}

namespace {

void ReadWindow(MainForm& main, SavedRecordReader& record) {
  std::array<std::optional<int>, 5> values;
  for (auto& value : values) value = record.Number();
  const auto& [width, height, top, left, state] = values;
  Form& window = main.Window;
  const int windowState = state.value_or(window.WindowState());
  // Not every compiler captures the names of a structured binding.
  if (windowState == windowstate::Normal) {
    if (width) ErrorsIgnored([&window, twips = *width] { window.SetTwipsWidth(twips); });
    if (height) ErrorsIgnored([&window, twips = *height] { window.SetTwipsHeight(twips); });
    if (top) ErrorsIgnored([&window, twips = *top] { window.SetTwipsTop(twips); });
    if (left) ErrorsIgnored([&window, twips = *left] { window.SetTwipsLeft(twips); });
  }
  ErrorsIgnored([&] { window.SetWindowState(windowState); });
}

void ReadOption(const OptionGroup& group, SavedRecordReader& record) {
  if (const std::optional<int> chosen = record.ShortNumber()) group.Choose(*chosen);
}

void ReadFilmStrip(MainForm& main, SavedRecordReader& record) {
  const std::optional<std::string> folder = record.Text();
  FilmStripState& strip = main.strip;
  if (!folder || folder->empty() || main.preferences.RememberFilmStripCheckbox.Value() != 1) return;
  const int failure = ErrorsIgnored([&] { strip.SrcFileList.SetPath(*folder); });
  if (failure != error::None) return;
  strip.NoFilmStrip = false;
  SrcFileList_PathChange(main);
}

void ReadFolders(MainForm& main, SavedRecordReader& record) {
  for (int i = 1; i <= FolderSlots; ++i) {
    const std::optional<std::string> folder = record.Text();
    if (!folder || folder->empty() || main.preferences.RememberFoldersCheckbox.Value() != 1) continue;
    ErrorsIgnored([&] { Display_a_New_Folder(main, *folder); });
  }
  ErrorsIgnored([&] { Select_a_Folder(main, main.desk.FoldersShown); });
}

void ReadPreviousList(MainForm& main, SavedRecordReader& record) {
  const std::optional<int> count = record.ShortNumber();
  if (!count || *count < 1) return;
  main.strip.PreviousList.Clear();
  for (int i = 0; i < *count && !record.AtEnd(); ++i) {
    if (const std::optional<std::string> folder = record.Text()) main.strip.PreviousList.AddItem(*folder);
  }
}

}  // namespace

void ReadSavedState(MainForm& main) {
  std::string bytes;
  const int failure = ErrorsIgnored([&] { bytes = ReadWhole(main.host.files, SavedStateFile(main)); });
  const bool missing = failure == error::FileNotFound || failure == error::PathNotFound;
  main.core.SavedStateUnread = failure != error::None && !missing;
  if (failure != error::None) return;
  SavedRecordReader record(bytes);
  ReadWindow(main, record);
  if (const auto company = record.Text()) main.core.CompanyNameLabel.SetCaption(*company);
  ReadOption(main.preferences.RenameOptions(), record);
  ReadOption(main.preferences.DuplicateOptions(), record);
  for (CheckBox* box : main.preferences.StoredBoxes()) {
    if (const auto value = record.ShortNumber()) ErrorsIgnored([&] { box->SetValue(*value); });
  }
  if (const auto camera = record.Text()) main.strip.CameraLocation = *camera;
  ReadFilmStrip(main, record);
  ReadFolders(main, record);
  ReadPreviousList(main, record);
}

}  // namespace pixorra
