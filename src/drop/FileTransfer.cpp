#include "drop/FileTransfer.h"

#include "base/FileDateTime.h"
#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Files.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

// The file must fit into one array, whose upper index is 32 bits wide and cannot be below 0.
void CheckIndexOf(std::int64_t length) {
  if (length == 0) throw RuntimeError(error::BadSubscript);
  CLng(static_cast<double>(length));
}

// A source that has grown meanwhile, or become shorter, or been written to, must not pass for a whole photo.
// Returns the source's stamp.
FileStamp CopyWhole(File& from, File& to, std::int64_t length) {
  const FileStamp before = from.Stamp();
  std::uint8_t oneMore = 0;
  if (to.CopyFrom(from, length) != length || from.ReadAt(length, &oneMore, 1) != 0)
    throw RuntimeError(error::PastEndOfFile);
  if (from.Stamp() != before) throw RuntimeError(error::DeviceIO);
  return before;
}

}  // namespace

std::unique_ptr<File> CopyFileBytes(Files& files, const std::string& source, const std::string& destination,
                                    OpenMode mode, FileStamp* copied) {
  // The destination is made first: a source that cannot be read leaves it empty.
  std::unique_ptr<File> to = files.Open(destination, mode);
  const std::int64_t length = files.Length(source);
  CheckIndexOf(length);
  const std::unique_ptr<File> from = files.Open(source, OpenMode::Read);
  try {
    const FileStamp stamp = CopyWhole(*from, *to, length);
    if (copied != nullptr) *copied = stamp;
  } catch (const RuntimeError& failure) {
    // The beginning of a photo that fills its disk is left; a source that fails half-way leaves nothing.
    if (failure.Number() != error::DiskFull) ErrorsIgnored([&] { to->Empty(); });
    throw;
  }
  return to;
}

namespace {

// A copy that the disk has refused must not be found whole later, when the next drop looks for an equal file.
void FlushOrEmpty(Files& files, File& copy, const std::string& path) {
  try {
    copy.Flush();
    files.FlushFolder(ParentPathOf(path));
  } catch (const RuntimeError&) {
    ErrorsIgnored([&] {
      copy.Empty();
      copy.Flush();
    });
    throw;
  }
}

}  // namespace

CopyStamps CopyPhotoFile(MainForm& main, const std::string& source, const std::string& destination, OpenMode mode) {
  Files& files = main.host.files;
  CopyStamps stamps;
  const std::unique_ptr<File> copy = CopyFileBytes(files, source, destination, mode, &stamps.Source);
  // Ahead of the flush, which then puts the date on the disk as well.
  if (main.preferences.KeepDateCheckBox.Value() == 1)
    SetFileDate(files, main.host.clock, destination, GetFileDate(files, source));
  FlushOrEmpty(files, *copy, destination);
  stamps.Copy = copy->Stamp();
  return stamps;
}

}  // namespace pixorra
