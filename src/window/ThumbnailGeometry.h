// The sizes of thumbnails, and of what carries them in the film strip and in the open folder. Pixels.
#pragma once

namespace pixorra {

inline constexpr int ThumbnailWidth = 80;
inline constexpr int ThumbnailHeight = 60;
inline constexpr int ThumbNameHeight = 14;

// A frame of the film strip, and how many frames make a page of it.
inline constexpr int SrcFrameWidth = 97;
inline constexpr int SrcFrameHeight = 105;
inline constexpr int SrcFramesPerPage = 50;

// A cell of the open folder, and how many rows of cells make a page of it.
inline constexpr int CellWidth = 97;
inline constexpr int CellHeight = 89;
inline constexpr int RowsPerPage = 50;

// Slots and cells have numbers of 16 bits: photos beyond that are counted, and not loaded.
inline constexpr int MostThumbnails = 32767;

}  // namespace pixorra
