#include "pictures/QuickThumbs.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "base/FileDateTime.h"
#include "base/QuickThumbsRecord.h"
#include "base/Routines.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "platform/services/Pictures.h"
#include "platform/services/Places.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"

namespace pixorra {

using namespace quickthumbs;

namespace {

std::string InProgramFolder(MainForm& main, const char* name) {
  return StripTrailingBackslash(main.host.places.ProgramFolder()) + name;
}

// Where a picture goes that does not fit a record. What fits goes between the record's bytes and a picture object
// without a file: a strip of cached thumbnails is as quick as the disk.
std::string TemporaryFile(MainForm& main) {
  return InProgramFolder(main, "\\$PXR$TMP.$$$");
}

// `folder` has no trailing backslash. A camera's memory is never written to.
std::string CachePath(MainForm& main, const std::string& folder) {
  if (folder == StripTrailingBackslash(main.strip.CameraLocation)) return InProgramFolder(main, "\\CameraThumbs.tmp");
  return folder + "\\Thumbnails.tmp";
}

struct Sought {
  std::string Cache;
  EntryKey Key;
};

// Nothing for a path without folder or name. Raises for a photo that is not there, or of 2 GiB and more.
std::optional<Sought> Seek(MainForm& main, const std::string& path) {
  const std::string folder = StripTrailingBackslash(ParentPathOf(path));
  const std::string name = FileNameOf(path);
  if (folder.empty() || name.empty()) return std::nullopt;
  const std::int64_t length = main.host.files.Length(path);
  if (length > INT32_MAX) throw RuntimeError(error::Overflow);
  const DateValue date = GetFileDate(main.host.files, path);
  return Sought{CachePath(main, folder), MakeEntryKey(name, static_cast<std::int32_t>(length), date)};
}

// A cache file, open, made where it was missing if it may be written, and the photo's record in it.
struct Entry {
  std::unique_ptr<File> Cache;
  std::int64_t Record = 0;  // 0: it has none
};

Entry FindEntry(MainForm& main, const Sought& sought, OpenMode mode = OpenMode::ReadWrite) {
  Entry entry;
  entry.Cache = main.host.files.Open(sought.Cache, mode);
  entry.Record = main.pictures.quickThumbs.Find(sought.Cache, *entry.Cache, sought.Key);
  return entry;
}

bool ReadEntry(MainForm& main, const std::string& path, ImageBox& target, bool& bDragged) {
  const std::optional<Sought> sought = Seek(main, path);
  if (!sought) return false;
  const Entry entry = FindEntry(main, *sought);
  if (entry.Record == 0) return false;
  std::vector<std::uint8_t> fields(FieldsBytes);
  entry.Cache->ReadAt(OffsetOf(entry.Record), fields.data(), fields.size());
  target.SetPicture(main.host.pictures.FromBytes({fields.data(), ThumbnailBytes}));
  bDragged = fields[MarkOffset] != 0 || fields[MarkOffset + 1] != 0;
  return true;
}

// The thumbnail as a bitmap file, at the start of a record otherwise empty. Nothing for a picture that does not make
// exactly such a file, which then stays behind.
std::optional<std::vector<std::uint8_t>> BitmapRecord(MainForm& main, const Picture& picture) {
  Files& files = main.host.files;
  const std::string temporary = TemporaryFile(main);
  std::vector<std::uint8_t> file = main.host.pictures.BitmapFile(picture);
  if (file.size() != BitmapBytes) {
    files.Open(temporary, OpenMode::Replace)->WriteAt(0, file.data(), file.size());
    return std::nullopt;
  }
  ErrorsIgnored([&] { files.Delete(temporary); });  // one that stayed behind before
  file.resize(RecordBytes);
  return file;
}

void AddEntry(MainForm& main, const std::string& path, const Picture& picture) {
  const std::optional<Sought> sought = Seek(main, path);
  if (!sought) return;
  const Entry entry = FindEntry(main, *sought);
  if (entry.Record != 0) return;
  std::optional<std::vector<std::uint8_t>> record = BitmapRecord(main, picture);
  if (!record) return;
  std::ranges::copy(sought->Key, record->begin() + KeyOffset);
  const std::int64_t number = QuickThumbsIndex::NextRecord(entry.Cache->Length());
  if (OffsetOf(number) + RecordBytes > LongestFile) return;
  entry.Cache->WriteAt(OffsetOf(number), record->data(), record->size());
  main.pictures.quickThumbs.Added(sought->Cache, *entry.Cache, sought->Key, number);
}

void MarkEntry(MainForm& main, const std::string& path, bool dragged) {
  const std::optional<Sought> sought = Seek(main, path);
  if (!sought) return;
  const Entry entry = FindEntry(main, *sought);
  if (entry.Record == 0) return;
  const std::uint8_t half = dragged ? 0xFF : 0;
  const std::array<std::uint8_t, 2> mark{half, half};
  entry.Cache->WriteAt(OffsetOf(entry.Record) + static_cast<std::int64_t>(MarkOffset), mark.data(), mark.size());
  main.pictures.quickThumbs.Marked(sought->Cache, *entry.Cache);
}

}  // namespace

bool ReadQuickThumb(MainForm& main, const std::string& path, ImageBox& target, bool& bDragged) {
  bool hit = false;
  ErrorsIgnored([&] { hit = ReadEntry(main, path, target, bDragged); });
  return hit;
}

bool HasQuickThumb(MainForm& main, const std::string& path) {
  bool has = false;
  ErrorsIgnored([&] {
    if (const std::optional<Sought> sought = Seek(main, path)) {
      has = FindEntry(main, *sought, OpenMode::Read).Record != 0;
    }
  });
  return has;
}

void AddQuickThumb(MainForm& main, const std::string& path, const Picture& picture) {
  ErrorsIgnored([&] { AddEntry(main, path, picture); });
}

void SetQuickThumbMark(MainForm& main, const std::string& path, const std::string& text) {
  ErrorsIgnored([&] { MarkEntry(main, path, !text.empty()); });
}

void DeleteQuickThumbs(MainForm& main, const std::string& folder) {
  const std::string stripped = StripTrailingBackslash(folder);
  if (stripped.empty()) return;
  ErrorsIgnored([&] {
    const std::string cache = CachePath(main, stripped);
    main.pictures.quickThumbs.Forget(cache);
    main.host.files.Delete(cache);
  });
}

}  // namespace pixorra
