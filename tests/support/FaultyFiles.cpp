// Faults in front of other Files.
#include "tests/support/FaultyFiles.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <utility>

#include "platform/runtime/Errors.h"
#include "platform/runtime/Text.h"

namespace pixorra {

class FaultyFile : public File {
 public:
  FaultyFile(FaultyFiles& files, std::string path, std::unique_ptr<File> inner)
      : files_(files), path_(std::move(path)), inner_(std::move(inner)) {}

  std::int64_t Length() override {
    MustBeThere();
    return inner_->Length();
  }

  FileStamp Stamp() override {
    MustBeThere();
    return inner_->Stamp();
  }

  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    Check(FileCall::Read);
    return inner_->ReadAt(offset, into, count);
  }

  void WriteAt(std::int64_t offset, const void* from, std::size_t count) override {
    Check(FileCall::Write);
    std::int64_t& room = files_.room_;
    const bool fits = room < 0 || count <= static_cast<std::size_t>(room);
    const std::size_t written = fits ? count : static_cast<std::size_t>(room);
    files_.AboutToChange();
    if (files_.writesToDeath_ > 0 && --files_.writesToDeath_ == 0) {
      inner_->WriteAt(offset, from, written / 2);
      std::raise(SIGKILL);
    }
    inner_->WriteAt(offset, from, written);
    if (room >= 0) room -= static_cast<std::int64_t>(written);
    if (!fits) throw RuntimeError(error::DiskFull);
  }

  void Flush() override {
    Check(FileCall::Flush);
    files_.AboutToChange();
    inner_->Flush();
  }

  void Empty() override {
    Check(FileCall::Empty);
    files_.AboutToChange();
    inner_->Empty();
  }

 private:
  void MustBeThere() const {
    if (files_.IsAway(path_)) throw RuntimeError(error::DeviceIO);
  }
  void Check(FileCall call) {
    const int number = files_.Strike(call, path_);
    if (number != 0) throw RuntimeError(number);
    MustBeThere();
  }

  FaultyFiles& files_;
  std::string path_;
  std::unique_ptr<File> inner_;
};

FaultyFiles::FaultyFiles(Files& inner) : inner_(&inner) {}

void FaultyFiles::AboutToChange() {
  if (changesToDeath_ > 0 && --changesToDeath_ == 0) std::raise(SIGKILL);
}

void FaultyFiles::FailNth(FileCall call, int n, int number, const std::string& where) {
  const std::lock_guard lock(mutex_);
  faults_.push_back({call, std::max(n, 1), false, number, where});
}

void FaultyFiles::BeforeNth(FileCall call, int n, std::function<void()> action, const std::string& where) {
  const std::lock_guard lock(mutex_);
  faults_.push_back({call, std::max(n, 1), false, 0, where, std::move(action)});
}

void FaultyFiles::FailAlways(FileCall call, int number, const std::string& where) {
  const std::lock_guard lock(mutex_);
  faults_.push_back({call, 0, true, number, where});
}

void FaultyFiles::FillDiskAfter(std::int64_t bytes) {
  room_ = bytes;
}

void FaultyFiles::TakeAway(const std::string& folder) {
  const std::lock_guard lock(mutex_);
  away_.push_back(folder.ends_with('\\') ? folder.substr(0, folder.size() - 1) : folder);
}

void FaultyFiles::Heal() {
  const std::lock_guard lock(mutex_);
  faults_.clear();
  away_.clear();
  room_ = -1;
}

int FaultyFiles::Count(FileCall call) const {
  const std::lock_guard lock(mutex_);
  const auto found = counts_.find(call);
  return found == counts_.end() ? 0 : found->second;
}

int FaultyFiles::Strike(FileCall call, const std::string& path) {
  std::function<void()> action;
  std::unique_lock lock(mutex_);
  ++counts_[call];
  int number = 0;
  for (Fault& fault : faults_) {
    if (fault.Call != call || path.find(fault.Where) == std::string::npos) continue;
    if (!fault.Always && --fault.Left != 0) continue;
    if (number == 0) number = fault.Number;
    if (fault.Action) action = fault.Action;
  }
  lock.unlock();
  if (action) action();
  return number;
}

void FaultyFiles::Check(FileCall call, const std::string& path) {
  const int number = Strike(call, path);
  if (number != 0) throw RuntimeError(number);
  if (!IsAway(path)) return;
  const bool folderIsAway = IsAway(path.substr(0, std::min(path.rfind('\\'), path.size())));
  throw RuntimeError(folderIsAway ? error::PathNotFound : error::FileNotFound);
}

bool FaultyFiles::IsAway(const std::string& path) const {
  const std::lock_guard lock(mutex_);
  return std::any_of(away_.begin(), away_.end(), [&path](const std::string& folder) {
    const bool longer = path.size() > folder.size() && path[folder.size()] == '\\';
    return (longer || path.size() == folder.size()) && EqualIgnoringCase(path.substr(0, folder.size()), folder);
  });
}

std::vector<std::string> FaultyFiles::Names(const std::string& folder, const std::string& pattern, int attributes) {
  if (Strike(FileCall::Names, folder) != 0 || IsAway(folder)) return {};
  std::vector<std::string> names = inner_->Names(folder, pattern, attributes);
  std::erase_if(names,
                [&](const std::string& name) { return IsAway(folder + (folder.ends_with('\\') ? "" : "\\") + name); });
  return names;
}

std::vector<std::string> FaultyFiles::CompleteNames(const std::string& folder, const std::string& pattern,
                                                    int attributes) {
  const int number = Strike(FileCall::Names, folder);
  if (number != 0) throw RuntimeError(number);
  if (IsAway(folder)) throw RuntimeError(error::PathNotFound);
  std::vector<std::string> names = inner_->CompleteNames(folder, pattern, attributes);
  std::erase_if(names,
                [&](const std::string& name) { return IsAway(folder + (folder.ends_with('\\') ? "" : "\\") + name); });
  return names;
}

std::vector<std::string> FaultyFiles::Folders(const std::string& folder, int attributes) {
  const int number = Strike(FileCall::Folders, folder);
  if (number != 0) throw RuntimeError(number);
  if (IsAway(folder)) throw RuntimeError(error::PathNotFound);
  std::vector<std::string> names = inner_->Folders(folder, attributes);
  std::erase_if(names,
                [&](const std::string& name) { return IsAway(folder + (folder.ends_with('\\') ? "" : "\\") + name); });
  return names;
}

std::optional<int> FaultyFiles::Attributes(const std::string& path) {
  if (Strike(FileCall::Attributes, path) != 0 || IsAway(path)) return std::nullopt;
  return inner_->Attributes(path);
}

void FaultyFiles::SetAttributes(const std::string& path, int attributes) {
  Check(FileCall::SetAttributes, path);
  AboutToChange();
  inner_->SetAttributes(path, attributes);
}

NameState FaultyFiles::LookAtName(const std::string& path) {
  if (Strike(FileCall::NameTaken, path) != 0) return NameState::Unknown;
  return IsAway(path) ? NameState::Free : inner_->LookAtName(path);
}

bool FaultyFiles::IsLink(const std::string& path) {
  return !IsAway(path) && inner_->IsLink(path);
}

bool FaultyFiles::IsSameFile(const std::string& a, const std::string& b) {
  return !IsAway(a) && !IsAway(b) && inner_->IsSameFile(a, b);
}

std::int64_t FaultyFiles::Length(const std::string& path) {
  Check(FileCall::Length, path);
  return inner_->Length(path);
}

std::unique_ptr<File> FaultyFiles::Open(const std::string& path, OpenMode mode) {
  Check(mode == OpenMode::Read ? FileCall::OpenToRead : FileCall::OpenToWrite, path);
  if (mode != OpenMode::Read) AboutToChange();
  return std::make_unique<FaultyFile>(*this, path, inner_->Open(path, mode));
}

void FaultyFiles::Delete(const std::string& path) {
  Check(FileCall::Delete, path);
  AboutToChange();
  inner_->Delete(path);
}

void FaultyFiles::Rename(const std::string& from, const std::string& to) {
  Check(FileCall::Rename, from);
  if (IsAway(to)) throw RuntimeError(error::PathNotFound);
  AboutToChange();
  inner_->Rename(from, to);
}

FileStamp FaultyFiles::StampOf(const std::string& path) {
  Check(FileCall::Length, path);
  return inner_->StampOf(path);
}

void FaultyFiles::RenameOver(const std::string& from, const std::string& to) {
  Check(FileCall::Rename, from);
  if (IsAway(to)) throw RuntimeError(error::PathNotFound);
  AboutToChange();
  inner_->RenameOver(from, to);
}

void FaultyFiles::LinkOrCopy(const std::string& from, const std::string& to) {
  Check(FileCall::LinkOrCopy, from);
  if (IsAway(to)) throw RuntimeError(error::PathNotFound);
  AboutToChange();
  inner_->LinkOrCopy(from, to);
}

void FaultyFiles::MakeFolder(const std::string& path) {
  Check(FileCall::MakeFolder, path);
  AboutToChange();
  inner_->MakeFolder(path);
}

void FaultyFiles::RemoveTree(const std::string& path, const FolderIdentity& meant) {
  Check(FileCall::RemoveTree, path);
  AboutToChange();
  inner_->RemoveTree(path, meant);
}

void FaultyFiles::RemoveFolder(const std::string& path) {
  Check(FileCall::RemoveFolder, path);
  AboutToChange();
  inner_->RemoveFolder(path);
}

void FaultyFiles::FlushFolder(const std::string& path) {
  Check(FileCall::FlushFolder, path);
  AboutToChange();
  inner_->FlushFolder(path);
}

std::optional<CalendarTime> FaultyFiles::LastWriteTime(const std::string& path) {
  if (Strike(FileCall::LastWriteTime, path) != 0 || IsAway(path)) return std::nullopt;
  return inner_->LastWriteTime(path);
}

std::optional<CalendarTime> FaultyFiles::LastWriteTimeToRead(const std::string& path) {
  if (Strike(FileCall::Length, path) != 0 || IsAway(path)) return std::nullopt;
  return inner_->LastWriteTimeToRead(path);
}

bool FaultyFiles::SetTimes(const std::string& path, const CalendarTime& time) {
  if (Strike(FileCall::SetTimes, path) != 0 || IsAway(path)) return false;
  AboutToChange();
  return inner_->SetTimes(path, time);
}

FolderIdentity FaultyFiles::IdentityOf(const std::string& path) {
  const int number = Strike(FileCall::IdentityOf, path);
  if (number != 0) throw RuntimeError(number);
  if (IsAway(path)) throw RuntimeError(error::PathNotFound);
  return inner_->IdentityOf(path);
}

std::string FaultyFiles::RealPath(const std::string& path) {
  if (IsAway(path)) throw RuntimeError(error::PathNotFound);
  return inner_->RealPath(path);
}

std::string FaultyFiles::FolderPath(const std::string& path) {
  const int number = Strike(FileCall::FolderPath, path);
  if (number != 0) throw RuntimeError(number);
  if (IsAway(path)) throw RuntimeError(error::PathNotFound);
  return inner_->FolderPath(path);
}

}  // namespace pixorra
