#include "pictures/QuickThumbs.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
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
#include "window/ThumbnailGeometry.h"

namespace pixorra {

using namespace quickthumbs;

namespace {

std::string InProgramFolder(Places& places, const char* name) {
  return StripTrailingBackslash(places.ProgramFolder()) + name;
}

// Where a picture is written that does not fit a record. What fits is passed between the record's bytes and a picture
// object without a file: a strip of cached thumbnails is as quick as the disk.
std::string TemporaryFile(Places& places) {
  return InProgramFolder(places, "\\$PXR$TMP.$$$");
}

// What a record holds as its thumbnail, by the header of its bitmap file. Anything else there could be a picture of any
// size, or of any cost.
bool IsThumbnail(std::span<const std::uint8_t> file) {
  const auto number = [file](std::size_t at, std::size_t length) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i) value |= static_cast<std::uint32_t>(file[at + i]) << 8U * i;
    return value;
  };
  return file.size() >= BitmapHeaderBytes && file[0] == 'B' && file[1] == 'M' && number(2, 4) == BitmapBytes &&
         number(10, 4) == BitmapHeaderBytes && number(14, 4) == BitmapInfoBytes && number(18, 4) == ThumbnailWidth &&
         number(22, 4) == ThumbnailHeight && number(28, 2) == 24 && number(30, 4) == 0;
}

}  // namespace

struct QuickThumbs::Sought {
  std::string Path;
  std::string Name;
  std::string Cache;
  std::int32_t Length = 0;
  DateValue Date = 0;  // NoFileDate for a photo that cannot be written
  EntryKey Key;
};

// The cache file, open, made where it was missing if it may be written, and the photo's record in it.
struct QuickThumbs::Entry {
  std::unique_ptr<File> Cache;
  std::int64_t Record = 0;  // 0: it has none
};

// `folder` has no trailing backslash. A camera's memory is never written to.
std::string QuickThumbs::CachePath(const std::string& folder) const {
  if (folder == StripTrailingBackslash(cameraLocation_)) return InProgramFolder(places_, "\\CameraThumbs.tmp");
  return folder + "\\Thumbnails.tmp";
}

// Nothing for a path without folder or name. Raises for a photo that is not there, or of 2 GiB and more.
std::optional<QuickThumbs::Sought> QuickThumbs::Seek(const std::string& path) const {
  const std::string folder = StripTrailingBackslash(ParentPathOf(path));
  const std::string name = FileNameOf(path);
  if (folder.empty() || name.empty()) return std::nullopt;
  const std::int64_t length = files_.Length(path);
  if (length > INT32_MAX) throw RuntimeError(error::Overflow);
  const DateValue date = GetFileDate(files_, path);
  const auto bytes = static_cast<std::int32_t>(length);
  return Sought{path, name, CachePath(folder), bytes, date, MakeEntryKey(name, bytes, date)};
}

// By the date that the photo really has, 0 also where it has none. What is found is of no photo that was once in its
// place: those that cannot be written all have one date.
std::int64_t QuickThumbs::FindByTrueDate(const Sought& sought, File& cache) const {
  if (sought.Date != NoFileDate()) return index_.Find(sought.Cache, cache, sought.Key);
  const DateValue date = GetFileDateToRead(files_, sought.Path);
  if (date == NoFileDate()) return 0;
  return index_.Find(sought.Cache, cache, MakeEntryKey(sought.Name, sought.Length, date));
}

// A photo on a card that was locked only later has its record under its true date.
QuickThumbs::Entry QuickThumbs::FindEntry(const Sought& sought, OpenMode mode) const {
  Entry entry;
  entry.Cache = files_.Open(sought.Cache, mode);
  entry.Record = index_.Find(sought.Cache, *entry.Cache, sought.Key);
  if (entry.Record == 0 && sought.Date == NoFileDate()) entry.Record = FindByTrueDate(sought, *entry.Cache);
  return entry;
}

// A cache that may not be written is read all the same, so that a locked card shows its thumbnails and marks.
QuickThumbs::Entry QuickThumbs::FindEntryToRead(const Sought& sought) const {
  try {
    return FindEntry(sought);
  } catch (const RuntimeError&) {
    if (files_.IsLink(sought.Cache)) throw;  // another folder's, perhaps
    return FindEntry(sought, OpenMode::Read);
  }
}

bool QuickThumbs::ReadEntry(const std::string& path, ImageBox& target, bool& bDragged) const {
  const std::optional<Sought> sought = Seek(path);
  if (!sought) return false;
  const Entry entry = FindEntryToRead(*sought);
  if (entry.Record == 0) return false;
  std::vector<std::uint8_t> fields(FieldsBytes);
  entry.Cache->ReadAt(OffsetOf(entry.Record), fields.data(), fields.size());
  if (!IsThumbnail(fields)) return false;
  target.SetPicture(pictures_.FromBytes({fields.data(), ThumbnailBytes}));
  bDragged = fields[MarkOffset] != 0 || fields[MarkOffset + 1] != 0;
  return true;
}

// The thumbnail as a bitmap file, at the start of a record otherwise empty. Nothing for a picture that does not make
// exactly such a file, which is then left behind.
std::optional<std::vector<std::uint8_t>> QuickThumbs::BitmapRecord(const Picture& picture) const {
  const std::string temporary = TemporaryFile(places_);
  std::vector<std::uint8_t> file = pictures_.BitmapFile(picture);
  if (file.size() != BitmapBytes) {
    files_.Open(temporary, OpenMode::Replace)->WriteAt(0, file.data(), file.size());
    return std::nullopt;
  }
  ErrorsIgnored([&] { files_.Delete(temporary); });  // one that was left behind before
  file.resize(RecordBytes);
  return file;
}

bool QuickThumbs::IsStill(const std::string& path, const FileStamp& decoded) const {
  return files_.StampOf(path) == decoded;
}

// `record` has the bitmap and is otherwise empty. There are never two records of one photo.
void QuickThumbs::AddRecord(const Sought& sought, const Entry& entry, std::vector<std::uint8_t> record) const {
  if (entry.Record != 0) return;
  std::ranges::copy(sought.Key, record.begin() + KeyOffset);
  const std::int64_t number = QuickThumbsIndex::NextRecord(entry.Cache->Length());
  if (OffsetOf(number) + RecordBytes > LongestFile) return;
  entry.Cache->WriteAt(OffsetOf(number), record.data(), record.size());
  index_.Added(sought.Cache, *entry.Cache, sought.Key, number);
}

void QuickThumbs::AddEntry(const std::string& path, const Picture& picture, const FileStamp& decoded) const {
  const std::optional<Sought> sought = Seek(path);
  // Looked at after its length and date, which are then those of the file that was decoded.
  if (!sought || !IsStill(path, decoded)) return;
  const Entry entry = FindEntry(*sought);
  if (entry.Record != 0) return;
  if (std::optional<std::vector<std::uint8_t>> record = BitmapRecord(picture))
    AddRecord(*sought, entry, *std::move(record));
}

void QuickThumbs::CopyEntry(const CopiedPhoto& photo) const {
  const std::optional<Sought> source = Seek(photo.From);
  const std::optional<Sought> sought = Seek(photo.To);
  if (!source || !sought) return;
  const Entry known = FindEntryToRead(*source);
  const std::int64_t number = known.Record != 0 ? FindByTrueDate(*source, *known.Cache) : 0;
  if (number == 0) return;
  std::vector<std::uint8_t> record(ThumbnailBytes);
  known.Cache->ReadAt(OffsetOf(number), record.data(), BitmapBytes);
  if (!IsThumbnail(record)) return;
  // Looked at after the lengths and dates, which are then those of the bytes that were copied.
  if (!IsStill(photo.From, photo.Copied) || !IsStill(photo.To, photo.Copy)) return;
  record.resize(RecordBytes);
  AddRecord(*sought, FindEntry(*sought), std::move(record));
}

// The record takes the new name. One that the new name has already, of a photo that was once called so, is of no use
// any more: it takes over all that the photo's own record has, and that one is left behind.
void QuickThumbs::RenameEntry(const std::string& from, const std::string& to) const {
  const std::optional<Sought> renamed = Seek(to);
  if (!renamed) return;
  Sought former = *renamed;
  former.Name = FileNameOf(from);
  former.Key = MakeEntryKey(former.Name, former.Length, former.Date);
  const Entry own = FindEntry(former);
  if (own.Record == 0) return;
  std::vector<std::uint8_t> fields(FieldsBytes + NoteBytes);
  own.Cache->ReadAt(OffsetOf(own.Record), fields.data(), fields.size());
  const auto key = fields.begin() + KeyOffset;
  // Its length and date stay as they are, also where it was found by a date that the photo does not have for others.
  std::copy_n(renamed->Key.begin(), NameBytes, key);
  EntryKey newKey;
  std::copy_n(key, newKey.size(), newKey.begin());
  const std::int64_t taken = index_.Find(renamed->Cache, *own.Cache, newKey);
  index_.Forget(renamed->Cache);
  if (taken == 0) {
    own.Cache->WriteAt(OffsetOf(own.Record) + static_cast<std::int64_t>(KeyOffset), newKey.data(), newKey.size());
  } else {
    own.Cache->WriteAt(OffsetOf(taken), fields.data(), fields.size());
  }
}

// `entry` has a record.
void QuickThumbs::MarkEntry(const Sought& sought, const Entry& entry, bool dragged) const {
  const std::uint8_t half = dragged ? 0xFF : 0;
  const std::array<std::uint8_t, 2> mark{half, half};
  entry.Cache->WriteAt(OffsetOf(entry.Record) + static_cast<std::int64_t>(MarkOffset), mark.data(), mark.size());
  index_.Marked(sought.Cache, *entry.Cache);
}

// By a cache that is only read. Raises where it cannot be.
bool QuickThumbs::MayBeMarked(const Sought& sought) const {
  // No marks are read through a link.
  if (files_.LookAtName(sought.Cache) == NameState::Free || files_.IsLink(sought.Cache)) return false;
  const Entry entry = FindEntry(sought, OpenMode::Read);
  if (entry.Record == 0) return false;
  std::array<std::uint8_t, 2> mark{};
  entry.Cache->ReadAt(OffsetOf(entry.Record) + static_cast<std::int64_t>(MarkOffset), mark.data(), mark.size());
  return mark[0] != 0 || mark[1] != 0;
}

bool QuickThumbs::ReadQuickThumb(const std::string& path, ImageBox& target, bool& bDragged) const {
  bool hit = false;
  ErrorsIgnored([&] { hit = ReadEntry(path, target, bDragged); });
  return hit;
}

bool QuickThumbs::HasQuickThumb(const std::string& path) const {
  bool has = false;
  ErrorsIgnored([&] {
    if (const std::optional<Sought> sought = Seek(path)) {
      const Entry entry = FindEntry(*sought, OpenMode::Read);
      if (entry.Record == 0) return;
      std::array<std::uint8_t, BitmapHeaderBytes> header{};
      entry.Cache->ReadAt(OffsetOf(entry.Record), header.data(), header.size());
      has = IsThumbnail(header) && !files_.IsLink(sought->Cache);
    }
  });
  return has;
}

void QuickThumbs::AddQuickThumb(const std::string& path, const Picture& picture, const FileStamp& decoded) const {
  ErrorsIgnored([&] { AddEntry(path, picture, decoded); });
}

void QuickThumbs::CopyQuickThumb(const CopiedPhoto& photo) const {
  ErrorsIgnored([&] { CopyEntry(photo); });
}

void QuickThumbs::RenameQuickThumb(const std::string& from, const std::string& to) const {
  ErrorsIgnored([&] { RenameEntry(from, to); });
}

void QuickThumbs::WriteNote(const Sought& sought, const Entry& entry, bool edited) const {
  const std::int64_t place = OffsetOf(entry.Record) + static_cast<std::int64_t>(NoteOffset);
  std::array<char, NoteBytes> note{};
  entry.Cache->ReadAt(place, note.data(), note.size());
  if ((std::string_view(note.data(), note.size()) == EditedNote) == edited) return;
  note.fill(0);
  if (edited) std::ranges::copy(EditedNote, note.begin());
  entry.Cache->WriteAt(place, note.data(), note.size());
  index_.Marked(sought.Cache, *entry.Cache);
}

// The note first: a mark never has that of a mark before.
void QuickThumbs::SetQuickThumbMark(const std::string& path, const std::string& text) const {
  ErrorsIgnored([&] {
    const std::optional<Sought> sought = Seek(path);
    if (!sought) return;
    const Entry entry = FindEntry(*sought);
    if (entry.Record == 0) return;
    WriteNote(*sought, entry, false);
    MarkEntry(*sought, entry, !text.empty());
  });
}

void QuickThumbs::NoteEdited(const std::string& path) const {
  ErrorsIgnored([&] {
    const std::optional<Sought> sought = Seek(path);
    if (!sought) return;
    const Entry entry = FindEntry(*sought);
    if (entry.Record != 0) WriteNote(*sought, entry, true);
  });
}

bool QuickThumbs::WasEditedSinceDragged(const std::string& path) const {
  bool edited = false;
  ErrorsIgnored([&] {
    const std::optional<Sought> sought = Seek(path);
    if (!sought) return;
    const Entry entry = FindEntryToRead(*sought);
    if (entry.Record == 0) return;
    std::array<char, NoteBytes> note{};
    entry.Cache->ReadAt(OffsetOf(entry.Record) + static_cast<std::int64_t>(NoteOffset), note.data(), note.size());
    edited = std::string_view(note.data(), note.size()) == EditedNote;
  });
  return edited;
}

bool QuickThumbs::ClearQuickThumbMark(const std::string& path) const {
  bool unmarked = false;
  const int failure = ErrorsIgnored([&] {
    const std::optional<Sought> sought = Seek(path);
    Entry entry;
    if (!sought) {
      unmarked = true;
    } else if (ErrorsIgnored([&] { entry = FindEntry(*sought); }) != error::None) {
      unmarked = !MayBeMarked(*sought);
    } else {
      if (entry.Record != 0) {
        MarkEntry(*sought, entry, false);
        entry.Cache->Flush();
      }
      unmarked = true;
    }
  });
  // One of 2 GiB and more never has an entry.
  return unmarked || failure == error::Overflow;
}

void QuickThumbs::ClearQuickThumbMarks(const std::string& folder) const {
  ErrorsIgnored([&] {
    const std::string path = CachePath(StripTrailingBackslash(folder));
    if (!files_.FileExists(path)) return;
    const std::unique_ptr<File> cache = files_.Open(path, OpenMode::ReadWrite);
    const std::int64_t end = cache->Length();
    constexpr std::array<std::uint8_t, 2> unmarked{};
    bool changed = false;
    for (std::int64_t record = 1; OffsetOf(record) + static_cast<std::int64_t>(FieldsBytes) <= end; ++record) {
      const std::int64_t place = OffsetOf(record) + static_cast<std::int64_t>(MarkOffset);
      std::array<std::uint8_t, 2> mark{};
      cache->ReadAt(place, mark.data(), mark.size());
      if (mark == unmarked) continue;
      cache->WriteAt(place, unmarked.data(), unmarked.size());
      changed = true;
    }
    if (changed) index_.Forget(path);
  });
}

void QuickThumbs::DeleteQuickThumbs(const std::string& folder) const {
  const std::string stripped = StripTrailingBackslash(folder);
  if (stripped.empty()) return;
  ErrorsIgnored([&] {
    const std::string cache = CachePath(stripped);
    index_.Forget(cache);
    if (ErrorsIgnored([&] { files_.Delete(cache); }) != error::FileNotFound) return;
    // It is found in letters of another case too, and so must go by that name.
    const std::string parent = ParentPathOf(cache);
    for (const std::string& name : files_.Names(parent, FileNameOf(cache), attribute::Hidden))
      files_.Delete(JoinPath(parent, name));
  });
}

QuickThumbs QuickThumbsOf(MainForm& main) {
  return {main.host.files, main.host.places, main.host.pictures, main.pictures.quickThumbs, main.strip.CameraLocation};
}

}  // namespace pixorra
