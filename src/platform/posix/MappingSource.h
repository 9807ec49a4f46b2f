// Where the back end takes its path mapping from: a fixed one, or one that follows what is mounted.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/posix/Environment.h"
#include "platform/posix/PathMapping.h"
#include "platform/posix/UniqueFd.h"
#include "platform/posix/VolumeLetters.h"

namespace pixorra {

class MappingSource {
 public:
  virtual ~MappingSource() = default;
  // Good until the next call.
  virtual const PathMapping& Current() = 0;
  // What the desktop mounts in its own folder has changed to this, of which the kernel says nothing.
  virtual void ReadAgain(const std::vector<std::string>& desktopMounts) { static_cast<void>(desktopMounts); }
  // What the mapping knows of that.
  virtual std::vector<std::string> DesktopMounts() const { return {}; }
};

class FixedMapping : public MappingSource {
 public:
  explicit FixedMapping(PathMapping mapping) : mapping_(std::move(mapping)) {}
  const PathMapping& Current() override { return mapping_; }

 private:
  PathMapping mapping_;
};

// C: is the host's "/"; the user's media are drives of their own, and so are the cameras and phones that the desktop
// mounts, each from its root on; shares are looked for in the session's folder of mounts. Letters are remembered in
// "pixorra/drives" of the configuration folder.
class MountedMapping : public MappingSource {
 public:
  explicit MountedMapping(const Environment& environment);
  // With what is known already of the session's folder of mounts, which may take long to answer.
  MountedMapping(const Environment& environment, std::vector<std::string> desktopMounts);
  const PathMapping& Current() override;
  void ReadAgain(const std::vector<std::string>& desktopMounts) override;
  std::vector<std::string> DesktopMounts() const override { return desktopMounts_; }

 private:
  bool MountsChanged();
  void Read();

  std::string user_;
  std::string shareMounts_;
  std::vector<std::string> desktopMounts_;  // names in it
  std::string lettersFile_;
  UniqueFd mountInfo_;
  std::vector<RememberedLetter> remembered_;
  PathMapping mapping_;
};

}  // namespace pixorra
