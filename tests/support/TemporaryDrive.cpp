// A folder of the host as drive C:.
#include "tests/support/TemporaryDrive.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>

#include "platform/posix/LocalTimes.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

namespace fs = std::filesystem;

void Check(int result, const std::string& path) {
  if (result != 0) throw std::system_error(errno, std::generic_category(), path);
}

std::string FreshFolder() {
  std::string name = fs::canonical(::testing::TempDir()).string() + "/pixorra-XXXXXX";
  Check(mkdtemp(name.data()) == nullptr ? -1 : 0, name);
  return name;
}

// Folders that a test made unreadable must not outlive it.
void RemoveAll(const std::string& path) {
  std::error_code ignored;
  fs::permissions(path, fs::perms::owner_all, fs::perm_options::add, ignored);
  for (fs::recursive_directory_iterator at(path, ignored), end; at != end; at.increment(ignored))
    if (at->is_directory(ignored) && !at->is_symlink(ignored))
      fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
  fs::remove_all(path, ignored);
}

struct stat Look(const std::string& path) {
  struct stat entry {};
  Check(stat(path.c_str(), &entry), path);
  return entry;
}

CalendarTime LocalTime(const timespec& moment) {
  return LocalTimeOf(moment).value();
}

}  // namespace

std::string TestPlaces::SpecialFolder(int number) {
  switch (number) {
    case 0:
    case 16:
      return "C:\\Desktop";
    case 2:
      return "C:\\Programs";
    case 3:
      return "C:\\Controls";
    case 5:
      return "C:\\Documents";
    case 6:
      return "C:\\Favorites";
    case 8:
      return "C:\\Recent";
    case 11:
      return "C:\\StartMenu";
    case 39:
      return "C:\\Pictures";
    default:
      return {};
  }
}

std::vector<std::string> TestPlaces::UserFolders() {
  std::vector<std::string> folders = {"C:\\Desktop", "C:\\Documents", "C:\\Pictures", "C:\\Downloads"};
  std::erase_if(folders, [this](const std::string& folder) { return !files_.FolderExists(folder); });
  return folders;
}

std::string TestPlaces::Made(const std::string& path) {
  if (!files_.FolderExists(path)) static_cast<void>(ErrorsIgnored([&] { files_.MakeFolder(path); }));
  return path;
}

TemporaryDrive::TemporaryDrive()
    : root_(FreshFolder()), files_(PathMapping({{'C', root_, "Test"}}, root_ + "/mounted", true)), places_(files_) {}

TemporaryDrive::~TemporaryDrive() {
  RemoveAll(root_);
}

std::string TemporaryDrive::HostPath(const std::string& path) const {
  return PathMapping({{'C', root_, "Test"}}).ToHost(path).Text();
}

void TemporaryDrive::Write(const std::string& path, const std::string& bytes) {
  const fs::path host = HostPath(path);
  fs::create_directories(host.parent_path());
  std::ofstream file(host, std::ios::binary | std::ios::trunc);
  file << bytes;
  file.close();
  if (!file) throw std::system_error(errno, std::generic_category(), host);
}

std::string TemporaryDrive::Read(const std::string& path) const {
  std::ifstream file(HostPath(path), std::ios::binary);
  if (!file) throw std::system_error(errno, std::generic_category(), path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void TemporaryDrive::MakeFolder(const std::string& path) {
  fs::create_directories(HostPath(path));
}

void TemporaryDrive::Remove(const std::string& path) {
  const std::string host = HostPath(path);
  if (fs::remove_all(host) == 0) throw std::system_error(ENOENT, std::generic_category(), host);
}

void TemporaryDrive::MakeLink(const std::string& path, const std::string& target) {
  const fs::path host = HostPath(path);
  fs::create_directories(host.parent_path());
  fs::create_symlink(target, host);
}

void TemporaryDrive::MakeFifo(const std::string& path) {
  const fs::path host = HostPath(path);
  fs::create_directories(host.parent_path());
  Check(mkfifo(host.c_str(), 0600), path);
}

void TemporaryDrive::SetMode(const std::string& path, unsigned mode) {
  Check(chmod(HostPath(path).c_str(), static_cast<mode_t>(mode)), path);
}

void TemporaryDrive::SetTime(const std::string& path, const CalendarTime& time) {
  const timespec moment = MomentOf(time).value();
  const std::array<timespec, 2> times{moment, moment};
  Check(utimensat(AT_FDCWD, HostPath(path).c_str(), times.data(), 0), path);
}

CalendarTime TemporaryDrive::WriteTime(const std::string& path) const {
  return LocalTime(Look(HostPath(path)).st_mtim);
}

CalendarTime TemporaryDrive::AccessTime(const std::string& path) const {
  return LocalTime(Look(HostPath(path)).st_atim);
}

bool TemporaryDrive::Exists(const std::string& path) const {
  return fs::symlink_status(HostPath(path)).type() != fs::file_type::not_found;
}

}  // namespace pixorra
