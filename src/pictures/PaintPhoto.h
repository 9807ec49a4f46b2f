// Photos fitted to controls of a fixed size: thumbnails through the cache, and larger pictures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls/ImageBox.h"
#include "platform/services/Files.h"

namespace pixorra {

struct MainForm;

// Fills a thumbnail. `bDragged` is set by a cached or a new thumbnail, and left as it was where the photo cannot be
// shown.
void PaintThumbnail(MainForm& main, ImageBox& target, const std::string& path, bool& bDragged);
// The size, in pixels, in which PaintThumbnail first paints what was decoded of a photo, for a thumbnail of the usual
// size; nothing for a photo without height.
std::vector<PixelSize> ThumbnailSizes(int width, int height);
struct PaintedImage {
  int width = 0;  // the photo's own size, pixels; 0 where it cannot be shown
  int height = 0;
  bool ok = false;
  FileStamp decoded;  // of the file, when the picture was made of it
};
// The size, in pixels, in which PaintImage stretches a photo of that size for a target of that size. Raises
// DivisionByZero for a photo or target without height.
PixelSize StretchedSize(PixelSize target, PixelSize photo);
// Reduced: the photo is decoded no larger than the target needs. It looks the same to a person, and a large photo is
// ready in half the time or less.
enum class PhotoDecode : std::uint8_t { Whole, Reduced };
PaintedImage PaintImage(MainForm& main, const std::string& path, ImageBox& target, Colour backColour,
                        PhotoDecode decode = PhotoDecode::Whole);

}  // namespace pixorra
