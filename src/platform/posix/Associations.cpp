// Lists of associations.
#include "platform/posix/Associations.h"

#include <algorithm>
#include <vector>

#include "platform/posix/KeyFile.h"
#include "platform/posix/SmallFiles.h"

namespace pixorra {

namespace {

// The lists from the most to the least telling; a desktop's own list goes before the common one of its folder.
std::vector<KeyFile> Lists(const Environment& environment) {
  std::vector<std::string> folders{environment.ConfigHome};
  folders.insert(folders.end(), environment.ConfigDirs.begin(), environment.ConfigDirs.end());
  folders.push_back(environment.DataHome + "/applications");
  for (const std::string& data : environment.DataDirs) folders.push_back(data + "/applications");
  std::vector<std::string> names;
  for (const std::string& desktop : environment.Desktops) names.push_back(desktop + "-mimeapps.list");
  names.emplace_back("mimeapps.list");
  std::vector<KeyFile> lists;
  for (std::string folder : folders) {
    folder += '/';
    for (const std::string& name : names)
      if (const std::optional<std::string> text = ReadSmallFile(folder + name)) lists.emplace_back(*text);
  }
  return lists;
}

bool Holds(const std::vector<std::string>& ids, const std::string& id) {
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

}  // namespace

std::optional<DesktopEntry> ProgramForType(const std::string& type, const Environment& environment) {
  const std::vector<KeyFile> lists = Lists(environment);
  for (const KeyFile& list : lists)
    for (const std::string& id : list.List("Default Applications", type))
      if (std::optional<DesktopEntry> entry = FindDesktopEntry(id, environment)) return entry;
  // What a list takes off is off for the lists behind it too, but not for those before it.
  std::vector<std::string> removed;
  for (const KeyFile& list : lists) {
    for (const std::string& id : list.List("Added Associations", type)) {
      if (Holds(removed, id)) continue;
      if (std::optional<DesktopEntry> entry = FindDesktopEntry(id, environment)) return entry;
    }
    for (const std::string& id : list.List("Removed Associations", type)) removed.push_back(id);
  }
  std::vector<std::string> folders{environment.DataHome};
  folders.insert(folders.end(), environment.DataDirs.begin(), environment.DataDirs.end());
  for (const std::string& folder : folders) {
    const KeyFile offered(ReadSmallFile(folder + "/applications/mimeinfo.cache").value_or(""));
    for (const std::string& id : offered.List("MIME Cache", type)) {
      if (Holds(removed, id)) continue;
      if (std::optional<DesktopEntry> entry = FindDesktopEntry(id, environment)) return entry;
    }
  }
  return std::nullopt;
}

}  // namespace pixorra
