// The record of the thumbnail cache files: its layout, and the part of it by which a photo's entry is found.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/runtime/DateValue.h"

namespace pixorra::quickthumbs {

// Records follow each other from the file's start, numbered from 1; numbers in them are little-endian.
inline constexpr std::int64_t RecordBytes = 14776;
inline constexpr std::size_t BitmapBytes = 14454;     // a whole bitmap file, at the record's start
inline constexpr std::size_t BitmapHeaderBytes = 54;  // of it; the pixels follow
inline constexpr std::size_t BitmapInfoBytes = 40;    // of the header, after the file's own 14
inline constexpr std::size_t ThumbnailBytes = 14455;  // the field that holds it is one byte longer
inline constexpr std::size_t NameBytes = 100;
inline constexpr std::size_t KeyOffset = ThumbnailBytes;         // name, length (4 bytes), date (8 bytes)
inline constexpr std::size_t KeyBytes = NameBytes + 4 + 8;       //
inline constexpr std::size_t MarkOffset = KeyOffset + KeyBytes;  // 16 bits: 0, or -1 for a dragged photo
inline constexpr std::size_t FieldsBytes = MarkOffset + 2;       // what follows them has no meaning for others
// Four characters, EditedNote where the photo has been changed since it was dragged: it has the mark of its former
// self. Anything else says nothing.
inline constexpr std::size_t NoteOffset = FieldsBytes;
inline constexpr std::size_t NoteBytes = 4;
inline constexpr std::string_view EditedNote = "EDIT";
// Records are addressed by 32 bits with sign.
inline constexpr std::int64_t LongestFile = 0x7FFFFFFF;

inline std::int64_t OffsetOf(std::int64_t record) {
  return (record - 1) * RecordBytes;
}

// Name, length and date as they are in a record: two entries are for the same photo when these bytes are the same.
using EntryKey = std::array<std::uint8_t, KeyBytes>;

// The name is cut to 100 bytes, no character split, and padded with blanks.
EntryKey MakeEntryKey(std::string_view name, std::int32_t length, DateValue date);

}  // namespace pixorra::quickthumbs
