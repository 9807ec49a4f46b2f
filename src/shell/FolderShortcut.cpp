#include "shell/FolderShortcut.h"

#include <string>

#include "base/Host.h"
#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Registry.h"
#include "platform/services/Settings.h"
#include "shell/SlideShow.h"
#include "window/CoreState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

constexpr const char* VerbKey = "Folder\\Shell\\SlideShow by Pixorra";
constexpr const char* CommandKey = "Folder\\Shell\\SlideShow by Pixorra\\Command";
constexpr const char* MachineClasses = "Software\\CLASSES\\";

// Speed 2, with the title; the file manager puts the folder in the place of the mark.
constexpr const char* VerbArguments = " 21%L";

}  // namespace

bool HasFolderShortcut(Registry& registry) {
  return registry.KeyExists(registry::ClassesRoot, VerbKey);
}

void AddFolderShortcut(Host& host) {
  const std::string command = WindowsFolderPath(host.places) + CompanionName + VerbArguments;
  host.registry.SetKeyValue(registry::ClassesRoot, CommandKey, "", command);
  host.registry.SetKeyValue(registry::LocalMachine, std::string(MachineClasses) + CommandKey, "", command);
}

void RemoveFolderShortcut(Registry& registry) {
  registry.DeleteKey(registry::ClassesRoot, VerbKey);
  registry.DeleteKey(registry::LocalMachine, std::string(MachineClasses) + VerbKey);
}

void AddFolderShortcutAtFirstStart(Host& host) {
  constexpr const char* section = "FolderShortcut";
  constexpr const char* key = "AddedAtFirstStart";
  if (!host.settings.GetSetting(ApplicationTitle, section, key, "").empty()) return;
  if (ErrorsIgnored([&] { host.settings.SaveSetting(ApplicationTitle, section, key, "1"); }) != error::None) return;
  AddFolderShortcut(host);
}

void AddFolderShortcutCheckbox_MouseUp(MainForm& main) {
  if (main.preferences.AddFolderShortcutCheckbox.Value() == 1)
    AddFolderShortcut(main.host);
  else
    RemoveFolderShortcut(main.host.registry);
}

}  // namespace pixorra
