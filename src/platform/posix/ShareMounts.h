// Names of the folders in which the desktop's virtual file system mounts network shares:
// "smb-share:server=nas,share=photos", values with percent signs where they hold other than plain characters, and
// perhaps further fields such as ",user=anna".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pixorra {

// Both in the host's spelling, never empty, and names that a folder can hold.
struct Share {
  std::string Server;
  std::string Name;
};

std::string MountOfShare(const Share& share);
// Nothing where the name is no share's.
std::optional<Share> ShareOfMount(std::string_view mount);

}  // namespace pixorra
