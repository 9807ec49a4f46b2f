#include "browse/FindFolder.h"

#include <cstddef>
#include <memory>

#include "base/Host.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/FolderReader.h"

namespace pixorra {

std::optional<std::string> FindFolder(Host& host, const std::string& path) {
  return FindFolders(host, {path}).front();
}

std::vector<std::optional<std::string>> FindFolders(Host& host, const std::vector<std::string>& paths) {
  constexpr double Patience = 5;  // seconds
  std::vector<std::optional<std::string>> found(paths.size());
  std::size_t answers = 0;
  std::vector<std::unique_ptr<FolderReader::Reading>> readings;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    readings.push_back(host.folderReader.FindFolder(paths[i], [&, i](const FolderReader::Answer& answer) {
      ++answers;
      if (answer.Error == error::None) found[i] = answer.Path;
    }));
  }
  host.toolkit.WaitUntil([&] { return answers == paths.size(); }, Patience);
  if (host.toolkit.Ended()) found.assign(paths.size(), std::nullopt);
  return found;
}

}  // namespace pixorra
