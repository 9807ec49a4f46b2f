#include "drop/FileTransfer.h"

#include <cstddef>

#include "base/FileBuffer.h"
#include "base/FileDateTime.h"
#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Files.h"
#include "window/DropState.h"
#include "window/MainForm.h"
#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

// The file must fit into one array, whose upper index is 32 bits wide and cannot be below 0.
std::size_t SizeOfArrayFor(std::int64_t length) {
  if (length == 0) throw RuntimeError(error::BadSubscript);
  return static_cast<std::size_t>(CLng(static_cast<double>(length)));
}

}  // namespace

std::unique_ptr<File> CopyFileBytes(Files& files, FileBuffer& buffer, const std::string& source,
                                    const std::string& destination, OpenMode mode) {
  // The destination is made first: a source that cannot be read leaves it empty.
  std::unique_ptr<File> to = files.Open(destination, mode);
  const std::size_t length = SizeOfArrayFor(files.Length(source));
  std::uint8_t* const bytes = buffer.Sized(length + 1);
  const std::unique_ptr<File> from = files.Open(source, OpenMode::Read);
  const FileStamp before = from->Stamp();
  // One byte more than there should be: a source that has grown meanwhile, or become shorter, or been written to, must
  // not pass for a whole photo.
  if (from->ReadAt(0, bytes, length + 1) != length) throw RuntimeError(error::PastEndOfFile);
  if (from->Stamp() != before) throw RuntimeError(error::DeviceIO);
  to->WriteAt(0, bytes, length);
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

void CopyPhotoFile(MainForm& main, const std::string& source, const std::string& destination, OpenMode mode) {
  Files& files = main.host.files;
  const std::unique_ptr<File> copy = CopyFileBytes(files, main.drop.copyBuffer, source, destination, mode);
  // Ahead of the flush, which then puts the date on the disk as well.
  if (main.preferences.KeepDateCheckBox.Value() == 1)
    SetFileDate(files, main.host.clock, destination, GetFileDate(files, source));
  FlushOrEmpty(files, *copy, destination);
}

}  // namespace pixorra
