// Between the program's backslash paths and the host's paths, by text alone: no file is looked at.
//
//   C:\home\anna\a.jpg       the volume C:, by default the host's "/"
//   D:\DCIM                  a volume with a letter of its own, mounted somewhere
//   \\server\share\dir       a share that the desktop's virtual file system has mounted in its folder of mounts
//
// Names in between are spelled by the rules of HostNames.h, so no name leads out of its folder.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pixorra {

struct Volume {
  char Letter = 'C';      // a capital
  std::string HostRoot;   // absolute, "/" or without a final slash
  std::string ShownName;  // for people
  bool operator==(const Volume&) const = default;
};

// A path taken apart for the host: the folder where the names begin, and the names in it.
struct HostPath {
  std::string Root;                // empty for "/", else without a final slash
  std::vector<std::string> Names;  // host spelling, none of them empty, "." or ".."
  std::size_t RootNames = 0;       // so many of the names belong to the root of the drive or the share
  bool IsRoot() const { return Names.size() == RootNames; }
  // The whole path, or the path up to and without the name at `count`.
  std::string Text() const { return Text(Names.size()); }
  std::string Text(std::size_t count) const;
};

class PathMapping {
 public:
  // C: is the host's "/", and there is no other volume.
  PathMapping();
  // Empty `shareMounts`: no shares. With `shownAsProgram` people see the program's own spelling.
  explicit PathMapping(std::vector<Volume> volumes, std::string shareMounts = {}, bool shownAsProgram = false);

  const std::vector<Volume>& Volumes() const { return volumes_; }
  // The host's folder in which the desktop mounts shares and devices; empty for none.
  const std::string& ShareMounts() const { return shareMounts_; }
  bool IsVolumeRoot(std::string_view hostPath) const;

  // "C:" counts as "C:\"; doubled and final backslashes are ignored. Raises BadFileName for a path without a drive or
  // with a name that no host folder can hold, PathNotFound for a missing drive and for a server without a share.
  HostPath ToHost(std::string_view path) const;
  // Of an absolute host path, by the volume that lies nearest to it; "." and ".." are taken out by text. Nothing where
  // no volume holds it. A root is "C:\" or "\\server\share"; other paths have no final backslash.
  std::optional<std::string> ToProgram(std::string_view hostPath) const;

  // How people here write a path: "/home/anna", "smb://server/share/dir". What is no path with a drive or a server is
  // taken as a single name, or left alone where it holds a backslash. Only a path as ToProgram makes it comes back
  // letter for letter through ProgramPath.
  std::string ShownPath(const std::string& path) const;
  // Either spelling is taken; what is neither is left alone.
  std::string ProgramPath(const std::string& typed) const;

 private:
  const Volume* VolumeOf(char letter) const;
  using NameSpelling = std::string (*)(std::string_view);
  std::optional<std::string> Program(std::string_view hostPath, NameSpelling spelling) const;

  std::vector<Volume> volumes_;
  std::string shareMounts_;
  bool shownAsProgram_ = false;
};

// The path of the same file for a mapping whose only volume is the host's "/". Raises as ToHost does, and PathNotFound
// for a volume that is not below it.
std::string PathBelowRoot(const PathMapping& mapping, const std::string& path);

}  // namespace pixorra
