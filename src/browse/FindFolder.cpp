#include "browse/FindFolder.h"

#include "base/Host.h"
#include "platform/controls/Toolkit.h"
#include "platform/services/FolderReader.h"

namespace pixorra {

std::optional<std::string> FindFolder(Host& host, const std::string& path) {
  constexpr double Patience = 5;  // seconds
  constexpr double Slice = 0.02;  // seconds
  bool answered = false;
  std::optional<std::string> found;
  const auto reading = host.folderReader.FindFolder(path, [&](const FolderReader::Answer& answer) {
    answered = true;
    if (answer.Error == error::None) found = answer.Path;
  });
  const double end = host.toolkit.Seconds() + Patience;
  while (!answered && host.toolkit.Seconds() < end && host.toolkit.WaitFor(Slice)) {
  }
  return host.toolkit.Ended() ? std::nullopt : found;
}

}  // namespace pixorra
