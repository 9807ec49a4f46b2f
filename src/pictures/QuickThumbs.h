// Thumbnails kept on disk beside the photos, with their dragged marks.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/ImageBox.h"
#include "platform/services/Files.h"

namespace pixorra {

class Pictures;
class Places;
class QuickThumbsIndex;
struct MainForm;

// A photo's copy, and the stamps that the two files had then.
struct CopiedPhoto {
  std::string From;
  FileStamp Copied;
  std::string To;
  FileStamp Copy;
};

// The cache of a folder's photos is one file in it; the camera's is kept in the program's folder. No function raises:
// what cannot be cached is a miss.
class QuickThumbs {
 public:
  // What is passed must live on, but for the path of the camera's folder; empty: there is none.
  QuickThumbs(Files& files, Places& places, Pictures& pictures, QuickThumbsIndex& index, std::string cameraLocation)
      : files_(files),
        places_(places),
        pictures_(pictures),
        index_(index),
        cameraLocation_(std::move(cameraLocation)) {}

  // True when the cache holds the photo's thumbnail; it is then in the target, and its mark in `bDragged`. Makes a
  // cache file, still empty, where there is none.
  bool ReadQuickThumb(const std::string& path, ImageBox& target, bool& bDragged) const;
  // Whether it would, without a trace: not even a cache file is made.
  bool HasQuickThumb(const std::string& path) const;
  // `decoded` is the stamp that the photo's file had before the picture was made of it. A photo that has been changed
  // or replaced since gets no entry: the picture is not its own.
  void AddQuickThumb(const std::string& path, const Picture& picture, const FileStamp& decoded) const;
  // The copy takes over the photo's thumbnail, unmarked, and need not be decoded. It gets none where either file has
  // been changed or replaced since, and none of a record without a date: that may be of another photo.
  void CopyQuickThumb(const CopiedPhoto& photo) const;
  // The photo has been renamed in its folder: its thumbnail and its mark are its own under the new name too.
  void RenameQuickThumb(const std::string& from, const std::string& to) const;
  // An empty text clears the mark, any other sets it; without an entry nothing changes.
  void SetQuickThumbMark(const std::string& path, const std::string& text) const;
  // The mark of a photo that has been changed since it was dragged, to be called after the mark is set. It ends when
  // the mark is set or cleared the next time.
  void NoteEdited(const std::string& path) const;
  // The photo has a mark that NoteEdited was called for.
  bool WasEditedSinceDragged(const std::string& path) const;
  // Clears the photo's mark, on stable storage. False where the photo may be marked still, or cannot be looked at; a
  // photo without an entry, or without a mark in a cache that cannot be written, has none.
  bool ClearQuickThumbMark(const std::string& path) const;
  // Clears the marks of all photos of a folder. Only the cache file is looked at, not the photos: a camera would fetch
  // each of them whole.
  void ClearQuickThumbMarks(const std::string& folder) const;
  // Deletes the folder's cache file.
  void DeleteQuickThumbs(const std::string& folder) const;

 private:
  struct Sought;
  struct Entry;

  std::string CachePath(const std::string& folder) const;
  std::optional<Sought> Seek(const std::string& path) const;
  std::int64_t FindByTrueDate(const Sought& sought, File& cache) const;
  Entry FindEntry(const Sought& sought, OpenMode mode = OpenMode::ReadWrite) const;
  Entry FindEntryToRead(const Sought& sought) const;
  bool ReadEntry(const std::string& path, ImageBox& target, bool& bDragged) const;
  std::optional<std::vector<std::uint8_t>> BitmapRecord(const Picture& picture) const;
  void AddRecord(const Sought& sought, const Entry& entry, std::vector<std::uint8_t> record) const;
  bool IsStill(const std::string& path, const FileStamp& decoded) const;
  void AddEntry(const std::string& path, const Picture& picture, const FileStamp& decoded) const;
  void CopyEntry(const CopiedPhoto& photo) const;
  void RenameEntry(const std::string& from, const std::string& to) const;
  void MarkEntry(const Sought& sought, const Entry& entry, bool dragged) const;
  bool MayBeMarked(const Sought& sought) const;
  void WriteNote(const Sought& sought, const Entry& entry, bool edited) const;

  Files& files_;
  Places& places_;
  Pictures& pictures_;
  QuickThumbsIndex& index_;
  std::string cameraLocation_;
};

// Those of the program, for the camera's present folder.
QuickThumbs QuickThumbsOf(MainForm& main);

}  // namespace pixorra
