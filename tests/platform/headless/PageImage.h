// A printed page as it would be seen.
#pragma once

#include "platform/headless/HeadlessPrinting.h"

namespace pixorra {

// Its printable area, 20 twips to a pixel.
Bitmap PageImage(const HeadlessPrinter& printer, const PrintedPage& page);

}  // namespace pixorra
