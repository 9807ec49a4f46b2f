#include "platform/posix/TreeRemoval.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/FolderDescent.h"
#include "platform/posix/Mounts.h"

namespace pixorra {

namespace {

// The path by which the kernel knows an open folder; empty where that is too long.
std::string KernelPath(int folder) {
  std::array<char, 4096> text{};
  const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(folder)).c_str(), text.data(), text.size());
  if (length <= 0 || static_cast<std::size_t>(length) == text.size()) return {};
  return {text.data(), static_cast<std::size_t>(length)};
}

// By the kernel's list of mounts, which also has those that no look into the tree can find: on a file, in a folder that
// may not be read, and those that a look would only bring about.
bool IsMountListed(const std::string& folder) {
  if (folder.empty()) return false;
  for (const Mount& mount : AllMounts())
    if (mount.Point == folder || mount.Point.starts_with(folder + '/')) return true;
  return false;
}

std::vector<std::string> FoldersIn(const FolderDescent& way) {
  std::vector<std::string> names;
  for (FolderEntry& entry : way.List())
    if (entry.IsFolder) names.push_back(std::move(entry.Name));
  return names;
}

// By a look into every folder, for mounts that are in no list, as a server's own. EXDEV where there is one. Folders
// that cannot be read are passed over here; the removal looks at each again.
int LookForMounts(FolderDescent& way, const std::string& root) {
  const int rootFailure = way.Enter(root, Access::AsItIs);
  if (rootFailure != 0) return rootFailure == EACCES ? 0 : rootFailure;
  std::vector<std::vector<std::string>> ahead{FoldersIn(way)};  // of each level, those not looked at yet
  while (!ahead.empty()) {
    if (ahead.back().empty()) {
      ahead.pop_back();
      if (const int failure = way.Leave()) return failure;
      continue;
    }
    const std::string name = std::move(ahead.back().back());
    ahead.back().pop_back();
    const int failure = way.Enter(name, Access::AsItIs);
    if (failure == EXDEV) return failure;
    if (failure == 0) ahead.push_back(FoldersIn(way));
  }
  return 0;
}

// One walk through the tree, each folder read once and removed when all in it has gone.
class Removal {
 public:
  Removal(FolderDescent& way, const FolderIdentity& meant, const FolderListed& listed)
      : way_(way), meant_(meant), listed_(listed) {}

  int Run(const std::string& root) {
    int failure = Begin(root);
    while (failure == 0 && !levels_.empty()) {
      Level& level = levels_.back();
      failure = level.Next < level.Entries.size() ? Step(level.Entries[level.Next++]) : Finish();
    }
    return failure;
  }

 private:
  struct Level {
    std::string Name;
    std::vector<FolderEntry> Entries;
    std::size_t Next = 0;
  };

  int Begin(const std::string& name) {
    if (const int failure = way_.Enter(name, Access::Widened)) return failure;
    if (levels_.empty() && way_.Is() != meant_) return ESTALE;
    levels_.push_back({name, way_.List()});
    if (listed_) listed_(Path());
    // What has been moved out of the tree is no longer to be removed.
    return way_.CheckWay();
  }

  // A file that stays is no reason to stop, but its folder will be.
  int Step(const FolderEntry& entry) {
    if (entry.IsFolder) {
      const int failure = Begin(entry.Name);
      if (failure == ENOENT) return 0;
      // Something else has taken its place since the look, a link maybe.
      if (failure != ENOTDIR) return failure;
    }
    static_cast<void>(unlinkat(way_.Folder(), entry.Name.c_str(), 0));
    return 0;
  }

  int Finish() {
    const std::string name = std::move(levels_.back().Name);
    levels_.pop_back();
    if (const int failure = way_.Leave()) return failure;
    // Time has passed in there.
    if (!levels_.empty()) {
      if (const int failure = way_.CheckWay()) return failure;
    }
    return unlinkat(way_.Folder(), name.c_str(), AT_REMOVEDIR) == 0 || errno == ENOENT ? 0 : errno;
  }

  std::string Path() const {
    std::string path;
    for (const Level& level : levels_) path += (path.empty() ? "" : "/") + level.Name;
    return path;
  }

  FolderDescent& way_;
  const FolderIdentity& meant_;
  const FolderListed& listed_;
  std::vector<Level> levels_;
};

}  // namespace

int RemoveHostTree(const HostPath& path, const FolderIdentity& meant, const FolderListed& listed) {
  FolderDescent way(path, path.Names.size() - 1);
  if (way.Failure() != 0) return way.Failure();
  const std::string& root = path.Names.back();
  const std::string above = KernelPath(way.Folder());
  if (!above.empty() && IsMountListed((above == "/" ? "" : above) + '/' + root)) return EXDEV;
  // Before the rights of a folder are changed that may be another one.
  FolderIdentity found;
  const int failure = LookForMounts(way, root);
  if (failure != 0) return failure;
  if (const int lookFailure = way.LookAt(root, found)) return lookFailure;
  if (found != meant) return ESTALE;
  return Removal(way, meant, listed).Run(root);
}

}  // namespace pixorra
