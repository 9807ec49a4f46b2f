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

void CopyFileBytes(Files& files, FileBuffer& buffer, const std::string& source, const std::string& destination) {
  // The destination is made first: a source that cannot be read leaves it empty.
  const std::unique_ptr<File> to = files.Open(destination, OpenMode::ReadWrite);
  const std::size_t length = SizeOfArrayFor(files.Length(source));
  std::uint8_t* const bytes = buffer.Sized(length);
  std::unique_ptr<File> from = files.Open(source, OpenMode::Read);
  // A source that has become shorter meanwhile must not pass for a whole photo.
  if (from->ReadAt(0, bytes, length) != length) throw RuntimeError(error::PastEndOfFile);
  to->WriteAt(0, bytes, length);
  to->Flush();
  from.reset();
}

void CopyPhotoFile(MainForm& main, const std::string& source, const std::string& destination) {
  Files& files = main.host.files;
  CopyFileBytes(files, main.drop.copyBuffer, source, destination);
  files.FlushFolder(ParentPathOf(destination));
  if (main.preferences.KeepDateCheckBox.Value() != 1) return;
  SetFileDate(files, main.host.clock, destination, GetFileDate(files, source));
}

}  // namespace pixorra
