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
// None of them is a program that is registered for folders: such a program might become the one that opens them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pixorra {

struct VerbFile {
  enum class Home : std::uint8_t { Data, Configuration };
  Home Below = Home::Data;
  std::string Place;  // below that folder
  std::string Text;
  bool Executable = false;
};

// Every text holds these words; a file without them is somebody else's.
inline constexpr const char* VerbMark = "Made by Pixorra";

// `name` is what the menu shows. The command begins with the program's host path; the first "%L" in an argument becomes
// the folder.
std::vector<VerbFile> FilesOfFolderVerb(const std::string& name, const std::string& program,
                                        const std::vector<std::string>& arguments);

}  // namespace pixorra
