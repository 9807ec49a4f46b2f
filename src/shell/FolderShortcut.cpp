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

constexpr const char* Section = "FolderShortcut";
constexpr const char* AddedKey = "AddedAtFirstStart";
constexpr const char* RemovedKey = "Removed";  // by the user

bool IsNoted(Host& host, const char* key) {
  return !host.settings.GetSetting(ApplicationTitle, Section, key, "").empty();
}

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
  if (IsNoted(host, AddedKey)) {
    if (IsNoted(host, RemovedKey) && HasFolderShortcut(host.registry)) RemoveFolderShortcut(host.registry);
    return;
  }
  if (ErrorsIgnored([&] { host.settings.SaveSetting(ApplicationTitle, Section, AddedKey, "1"); }) != error::None)
    return;
  AddFolderShortcut(host);
}

void AddFolderShortcutCheckbox_MouseUp(MainForm& main) {
  Host& host = main.host;
  const bool wanted = main.preferences.AddFolderShortcutCheckbox.Value() == 1;
  static_cast<void>(
      ErrorsIgnored([&] { host.settings.SaveSetting(ApplicationTitle, Section, RemovedKey, wanted ? "" : "1"); }));
  if (wanted)
    AddFolderShortcut(host);
  else
    RemoveFolderShortcut(host.registry);
}

}  // namespace pixorra
