// Files and folders of the host, by the program's own backslash paths.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/DateValue.h"

namespace pixorra {

namespace attribute {
inline constexpr int Normal = 0;
inline constexpr int ReadOnly = 1;  // the owner may not write it
inline constexpr int Hidden = 2;    // its name begins with a full stop
inline constexpr int System = 4;    // a FIFO, a socket, a device, or a link that leads nowhere
inline constexpr int Directory = 16;
inline constexpr int Archive = 32;
}  // namespace attribute

// Shows whether a file is still the one that was seen, unchanged: equal for as long as nobody writes it or puts another
// in its place. A change within the same moment of the disk's clock that keeps the length may go unseen.
struct FileStamp {
  std::uint64_t Disk = 0;
  std::uint64_t Number = 0;  // on its disk
  std::int64_t Length = 0;
  std::int64_t Seconds = 0;  // of the last write, with the nanoseconds below
  std::int64_t Nanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};

// An open file. Closing does not flush; Flush puts what was written on stable storage.
class File {
 public:
  virtual ~File() = default;
  virtual std::int64_t Length() = 0;
  virtual FileStamp Stamp() = 0;
  // Reads up to `count` bytes at `offset`; returns how many, fewer only at the file's end. Raises DeviceIO.
  virtual std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) = 0;
  // Writes all of it at `offset`, lengthening the file as needed. Raises DiskFull, DeviceIO, PathAccess.
  virtual void WriteAt(std::int64_t offset, const void* from, std::size_t count) = 0;
  // Copies the first `count` bytes of the source to this file's start, lengthening it as needed; returns how many,
  // fewer only at the source's end. The host copies by itself where it can; nothing the size of the file is held in
  // memory. Raises as ReadAt of the source and WriteAt do; what was written until then stays.
  virtual std::int64_t CopyFrom(File& source, std::int64_t count) { return CopyBlocks(source, 0, count); }
  // Raises as WriteAt does.
  virtual void Flush() = 0;
  // Cuts it to length 0. Raises as WriteAt does.
  virtual void Empty() = 0;

 protected:
  // CopyFrom block by block, from `offset` on; `count` and what it returns include the bytes before that.
  std::int64_t CopyBlocks(File& source, std::int64_t offset, std::int64_t count);
};

// Which folder a path leads to: one that is put in its place is another. Equal for as long as the folder is there and
// stays mounted. What the host does not know of it is 0.
struct FolderIdentity {
  std::uint64_t Disk = 0;
  std::uint64_t Number = 0;  // on its disk
  std::uint64_t Mount = 0;   // by which it was reached
  std::int64_t Born = 0;     // nanoseconds since 1970
  bool operator==(const FolderIdentity&) const = default;
};

enum class OpenMode {
  Read,       // must exist; only ordinary files open (nothing blocks on a FIFO)
  ReadWrite,  // made when missing, never shortened; not through a symbolic link
  Replace,    // made when missing, else emptied; for files that are the program's own
  CreateNew,  // made, and nobody else made it: raises FileExists where the name is taken by anything at all
};

enum class NameState { Free, Taken, Unknown };

// Look-ups ignore case and keep the case that the disk has; an exact match is preferred. Failures raise BadFileName,
// FileNotFound, DeviceIO, FileExists, DiskFull, PermissionDenied, PathAccess or PathNotFound.
class Files {
 public:
  virtual ~Files() = default;

  // Names in a folder that match `pattern` (see MatchesPattern), in no order: ordinary files, and links to such, plus
  // what `attributes` adds (Hidden, System, Directory; never "." and ".."). A folder that cannot be read is empty.
  // With System, a link counts by itself and not as what it leads to.
  virtual std::vector<std::string> Names(const std::string& folder, const std::string& pattern, int attributes) = 0;

  // As Names gives them, but all of them: raises PathNotFound, PathAccess or DeviceIO where the folder cannot be read
  // to its end.
  virtual std::vector<std::string> CompleteNames(const std::string& folder, const std::string& pattern,
                                                 int attributes) = 0;

  // Names of the folders in a folder, and of links to folders, in the order of NaturalLess; hidden ones only where
  // `attributes` has Hidden. Nothing else of them is looked at, so thousands of files beside them cost little. Raises
  // PathNotFound, PathAccess for a folder that may not be read, DeviceIO.
  virtual std::vector<std::string> Folders(const std::string& folder, int attributes) = 0;

  // The attributes of what the path leads to, or nothing. A link counts as what it leads to; IsLink tells it apart.
  virtual std::optional<int> Attributes(const std::string& path) = 0;
  virtual void SetAttributes(const std::string& path, int attributes) = 0;
  bool FileExists(const std::string& path);    // an ordinary file, or a link to one
  bool FolderExists(const std::string& path);  // a folder, or a link to one
  // The name is taken by anything at all, a link that leads nowhere included. False only where there is surely no such
  // name: a look that fails for any other reason counts as taken.
  bool NameTaken(const std::string& path) { return LookAtName(path) != NameState::Free; }
  // The same, with looks that fail told apart.
  virtual NameState LookAtName(const std::string& path) = 0;
  virtual bool IsLink(const std::string& path) = 0;
  // Both paths lead to one and the same file, by whatever names; false where either leads nowhere.
  virtual bool IsSameFile(const std::string& a, const std::string& b) = 0;

  virtual std::int64_t Length(const std::string& path) = 0;
  virtual std::unique_ptr<File> Open(const std::string& path, OpenMode mode) = 0;
  // The stamp that the file would have if it were opened to be read. Where a back end can it only looks at the file:
  // there are disks, such as cameras, that hand out a whole file whenever it is opened. Raises as Length does.
  virtual FileStamp StampOf(const std::string& path);
  // The file open for reading if it is of this length, else nothing. Raises as Length and Open do. A folder's files are
  // looked through by it, so that a back end may look each up only once.
  virtual std::unique_ptr<File> OpenOfLength(const std::string& path, std::int64_t length);
  // A file or a link itself; never a folder. Its name must be spelled as on the disk, unless the disk ignores case.
  virtual void Delete(const std::string& path) = 0;
  // Raises FileExists where `to` is taken; never replaces.
  virtual void Rename(const std::string& from, const std::string& to) = 0;
  // Puts `from` in the place of the file `to` in one step: whoever opens `to` finds the old file or the new one, whole.
  // The new one takes over the permissions. For files that are the program's own.
  virtual void RenameOver(const std::string& from, const std::string& to) = 0;
  // Keeps the file under the name `to` as well, whatever takes its place by RenameOver: as a second name of it, or on a
  // disk without such as a flushed copy with its permissions. For files that are the program's own and are not written
  // to in place. Raises FileExists where `to` is taken; PathAccess for a folder and a link; else as Open and CopyFrom
  // do, and leaves nothing then.
  virtual void LinkOrCopy(const std::string& from, const std::string& to) = 0;
  virtual void MakeFolder(const std::string& path) = 0;
  virtual void RemoveFolder(const std::string& path) = 0;  // only an empty one, never through a link
  // Removes a folder with all that is in it, what is hidden or read-only included. A link in it goes as a link: nothing
  // that it leads to is touched. Raises PathAccess, and removes nothing, where the folder is a root or not the one that
  // is meant, where it or a folder on the way to it is a link, and where another file system is mounted on it or in it.
  // Otherwise raises the error of the first folder that cannot be removed, PathAccess where it has been moved
  // meanwhile; what went before has gone.
  virtual void RemoveTree(const std::string& path, const FolderIdentity& meant) = 0;
  // The folder's entries are on stable storage when this returns.
  virtual void FlushFolder(const std::string& path) = 0;

  // The last-write time in local time of a file that opens for reading and writing; nothing where it does not.
  // Deliberate: see base/FileDateTime.h for what relies on a file that may not be written having no date.
  virtual std::optional<CalendarTime> LastWriteTime(const std::string& path) = 0;
  // The same of a file that may be read, whether or not it may be written. The file is not opened for it.
  virtual std::optional<CalendarTime> LastWriteTimeToRead(const std::string& path) = 0;
  // Sets all the times that the file system keeps to one; false where it cannot.
  virtual bool SetTimes(const std::string& path, const CalendarTime& time) = 0;

  // Roots of the drives that exist now, such as "C:\", with a name to show for each.
  struct Drive {
    std::string Root;
    std::string ShownName;
  };
  virtual std::vector<Drive> Drives() = 0;
  // The path in the disk's own case and one spelling; raises PathNotFound where no such folder can be entered.
  virtual std::string FolderPath(const std::string& path) = 0;
  // The identity of the folder, or of the one that a link leads to. Raises PathNotFound where there is surely no such
  // folder, and any other error where that cannot be known now.
  virtual FolderIdentity IdentityOf(const std::string& path) = 0;
  // The path of what it leads to, with no link in it; raises PathNotFound where it leads nowhere or out of all drives.
  virtual std::string RealPath(const std::string& path) = 0;
  // How a person here writes the path, and back: either spelling is taken.
  virtual std::string ShownPath(const std::string& path) = 0;
  virtual std::string ProgramPath(const std::string& typed) = 0;
};

}  // namespace pixorra
