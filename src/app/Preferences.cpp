#include "app/Preferences.h"

#include "base/Dialog.h"
#include "desktop/FolderSlots.h"
#include "desktop/ShownFolders.h"
#include "shell/FolderShortcut.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

void ApplyToSlot(MainForm& main, int slot) {
  DesktopState& desk = main.desk;
  FileListBox& list = desk.DestFolderFiles(slot);
  list.SetPattern(main.core.PicturePattern);
  list.Refresh();
  if (slot != TrashcanSlot) ShowNewestPhoto(main, slot, list.Path(), desk.DestFolderPreview(0).GetPicture());
  ShowFolderCount(main.desk, slot);
}

}  // namespace

void PreferenceMenuItem_Click(MainForm& main) {
  main.preferences.AddFolderShortcutCheckbox.SetValue(HasFolderShortcut(main.host.registry) ? 1 : 0);
  ShowDialog(main.preferences.Window, main.Window);
  ApplyPicturePattern(main);
}

void ApplyPicturePattern(MainForm& main) {
  const PreferencesForm& preferences = main.preferences;
  std::string pattern;
  const auto append = [&](const CheckBox& box, const char* types) {
    if (box.Value() == 1) pattern += (pattern.empty() ? "" : ";") + std::string(types);
  };
  append(preferences.JpegCheckbox, "*.jpg;*.jpeg");
  append(preferences.BitmapCheckbox, "*.bmp");
  append(preferences.GifCheckbox, "*.gif");
  if (pattern == main.core.PicturePattern) return;
  main.core.PicturePattern = pattern;
  main.strip.SrcFileList.SetPattern(pattern);
  main.desk.DestFileList.SetPattern(pattern);
  for (int i = 1; i <= FolderSlots; ++i) {
    if (IsSlotInUse(main.desk, i)) ApplyToSlot(main, i);
  }
  ApplyToSlot(main, TrashcanSlot);
}

}  // namespace pixorra
