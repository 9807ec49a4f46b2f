// A command in the pop-up menu of every folder, for the file managers that take one from a file in the user's folders:
//
//   Dolphin, Konqueror               kio/servicemenus of the data folder, a service menu
//   PCManFM, and the action plug-ins of GNOME Files and Caja
//                                    file-manager/actions of the data folder, an action
//   Nemo                             nemo/actions of the data folder, an action
//   Thunar                           Thunar/sendto of the data folder, a starter in the menu "Send To"
//   GNOME Files                      nautilus/scripts of the data folder, a script in the menu "Scripts"
//   Caja                             caja/scripts of the configuration folder, a script in the menu "Scripts"
//
// Of several folders that are marked at once one is shown: the menus that know a limit offer it for one alone, the
// others start it on the first.
//
// None of them is a program that is registered for folders: such a program might become the one that opens them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

struct VerbFile {
  enum class Home : std::uint8_t { Data, Configuration };
  Home Below = Home::Data;
  std::string Place{};  // below that folder
  std::string Text{};
  bool Executable = false;
  // A file of the same name in a folder of $XDG_DATA_DIRS serves everybody, and the user's own takes its place, one
  // that hides it too. Of the other file managers some have no such folder; Nemo and PCManFM would show the machine's
  // file whatever the user's says.
  bool ForEverybody = false;
};

// Every text holds these words; a file without them is somebody else's.
inline constexpr const char* VerbMark = "Made by Pixorra";

// The text of a user's file that hides everybody's, and whether a text is one.
std::string HidingText();
bool IsHidingText(std::string_view text);

// `name` is what the menu shows. The command begins with the program's host path; the first "%L" in an argument becomes
// the folder.
std::vector<VerbFile> FilesOfFolderVerb(const std::string& name, const std::string& program,
                                        const std::vector<std::string>& arguments);

}  // namespace pixorra
