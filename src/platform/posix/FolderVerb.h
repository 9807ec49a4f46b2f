// A command in the pop-up menu of every folder, for the file managers that take one from a file in the data folder.
// None of them takes a program that is registered for folders: such a program might become the one that opens them.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

struct VerbFile {
  std::string Place;  // below the data folder
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
