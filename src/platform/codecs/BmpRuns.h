// The run lengths of bitmap files of 4 and 8 bits a pixel.
#pragma once

#include "platform/codecs/BmpHeader.h"
#include "platform/codecs/ByteReader.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

// The picture in the codes that begin at `header.pixelsAt`; what they pass over has the first colour. Ends quietly
// where the codes end, leave the picture, or lead nowhere for some thousand codes. An empty bitmap where they hold no
// pixel at all, or of a large picture too small a part (SizeBound.h). Raises OutOfMemory, and what reading does.
Bitmap DecodeBmpRuns(ByteReader& in, const BmpHeader& header);

}  // namespace pixorra
