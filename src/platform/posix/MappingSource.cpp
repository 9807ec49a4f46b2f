// A path mapping that follows what is mounted.
#include "platform/posix/MappingSource.h"

#include <array>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <string_view>

#include "platform/posix/HostNames.h"
#include "platform/posix/Mounts.h"
#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

std::string ReadFromStart(int fd) {
  std::string text;
  std::array<char, 4096> part{};
  for (;;) {
    const ssize_t came = pread(fd, part.data(), part.size(), static_cast<off_t>(text.size()));
    if (came <= 0) return text;
    text.append(part.data(), static_cast<std::size_t>(came));
  }
}

std::string ShownName(const std::string& mountPoint) {
  return NameForPeople(NameFromHost(std::string_view(mountPoint).substr(mountPoint.rfind('/') + 1)));
}

}  // namespace

MountedMapping::MountedMapping(const Environment& environment)
    : user_(environment.User),
      shareMounts_(environment.RuntimeDir.empty() ? std::string() : environment.RuntimeDir + "/gvfs"),
      lettersFile_(environment.ConfigHome + "/pixorra/drives"),
      mountInfo_(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)),
      remembered_(ParseLetters(ReadSmallFile(lettersFile_).value_or(""))) {
  Read();
}

const PathMapping& MountedMapping::Current() {
  if (MountsChanged()) Read();
  return mapping_;
}

bool MountedMapping::MountsChanged() {
  // The kernel raises this once for each change since the last look.
  pollfd look{mountInfo_.Get(), POLLPRI, 0};
  return mountInfo_ && poll(&look, 1, 0) > 0 && (look.revents & (POLLERR | POLLPRI)) != 0;
}

void MountedMapping::Read() {
  std::vector<Mount> media;
  std::vector<std::string> keys;
  for (Mount& mount : ParseMountInfo(mountInfo_ ? ReadFromStart(mountInfo_.Get()) : std::string())) {
    if (!IsUserMedium(mount, user_)) continue;
    keys.push_back(MediumKey(mount));
    media.push_back(std::move(mount));
  }
  const std::vector<RememberedLetter> before = remembered_;
  const std::vector<char> letters = GiveLetters(keys, remembered_);
  std::vector<Volume> volumes{{'C', "/", "File System"}};
  for (std::size_t i = 0; i < media.size(); ++i)
    if (letters[i] != 0) volumes.push_back({letters[i], media[i].Point, ShownName(media[i].Point)});
  mapping_ = PathMapping(std::move(volumes), shareMounts_);
  if (remembered_ == before) return;
  // A letter that cannot be remembered is given anew next time.
  static_cast<void>(ErrorsIgnored([this] {
    if (MakeFolders(lettersFile_.substr(0, lettersFile_.rfind('/'))))
      WriteSmallFile(lettersFile_, LettersText(remembered_));
  }));
}

}  // namespace pixorra
