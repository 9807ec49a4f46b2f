// A drive C: that is a fresh folder of the host, with real files and links in it, gone when the test ends.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "platform/services/Places.h"

namespace pixorra {

// The program's folders inside the drive, made on first use. Special folders: "C:\Desktop" (0, 16), "C:\Programs" (2),
// "C:\Controls" (3), "C:\Documents" (5), "C:\Favorites" (6), "C:\Recent" (8), "C:\StartMenu" (11), "C:\Pictures" (39);
// they are not made.
// The user's folders are those of "C:\Desktop", "C:\Documents", "C:\Pictures" and "C:\Downloads" that are there; home
// is "C:\Home".
class TestPlaces : public Places {
 public:
  explicit TestPlaces(Files& files) : files_(files) {}
  std::string ProgramFolder() override { return Made("C:\\Program"); }
  std::string WindowsFolder() override { return Made("C:\\Windows"); }
  std::string TemporaryFolder() override { return Made("C:\\Temp"); }
  std::string SpecialFolder(int number) override;
  std::vector<std::string> KeptFolders() override { return Kept; }
  std::string HomeFolder() override { return "C:\\Home"; }
  std::vector<std::string> UserFolders() override;
  std::vector<Bookmark> Bookmarks() override { return Marked; }

  std::vector<std::string> Kept;
  std::vector<Bookmark> Marked;

 private:
  std::string Made(const std::string& path);
  Files& files_;
};

class TemporaryDrive {
 public:
  TemporaryDrive();
  ~TemporaryDrive();
  TemporaryDrive(const TemporaryDrive&) = delete;
  TemporaryDrive& operator=(const TemporaryDrive&) = delete;

  // Without a final slash, and without a link in it.
  const std::string& HostRoot() const { return root_; }
  // "C:\a\b" as the host knows it. Exact case.
  std::string HostPath(const std::string& path) const;
  // The host folder of a share; the share is mounted once this is made.
  std::string HostShare(const std::string& server, const std::string& share) const {
    return root_ + "/mounted/smb-share:server=" + server + ",share=" + share;
  }
  PosixFiles& DriveFiles() { return files_; }
  TestPlaces& DrivePlaces() { return places_; }

  // These go straight to the host and throw std::system_error or std::filesystem::filesystem_error where it refuses.
  // Folders above are made as needed.
  void Write(const std::string& path, const std::string& bytes);
  std::string Read(const std::string& path) const;
  void MakeFolder(const std::string& path);
  void Remove(const std::string& path);  // with all in it
  // A symbolic link; `target` is a host path or relative to the link's folder.
  void MakeLink(const std::string& path, const std::string& target);
  void MakeFifo(const std::string& path);
  void SetMode(const std::string& path, unsigned mode);
  // Access and last-write time in local time.
  void SetTime(const std::string& path, const CalendarTime& time);
  CalendarTime WriteTime(const std::string& path) const;
  CalendarTime AccessTime(const std::string& path) const;
  // Anything at all has the name, a link that leads nowhere included. Exact case.
  bool Exists(const std::string& path) const;

 private:
  std::string root_;
  PosixFiles files_;
  TestPlaces places_;
};

}  // namespace pixorra
