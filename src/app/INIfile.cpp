#include "app/INIfile.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/StateFile.h"
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

}  // namespace

void WriteSavedState(MainForm& main) {
  ReplaceStateFile(main.host.files, PlaceOfState(main), Compose(main), main.core.StateBefore);
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
  // One that is missing too may only be away: on a disk, say, that is not mounted yet.
  main.core.StateBefore.Unread = failure != error::None;
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
