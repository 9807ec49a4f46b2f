// The JPEG codec's modes and statuses as the bridge uses them.
#pragma once

#include <optional>
#include <string>

#include "platform/services/JpegCodec.h"

namespace pixorra {

enum class JpegRoute { File, Memory };

// The mode that reads a header.
int HeaderMode(JpegRoute route);
// The mode that reads the pixels at 1/lScale of their size; nothing for a scale other than 1, 2, 4 and 8.
std::optional<int> PixelMode(JpegRoute route, int lScale);

// The codec's text for a status.
std::string StatusText(JpegCodec& codec, int status);

// A zero-terminated text as a string; empty for no address.
std::string TextFromPointer(const char* address);

}  // namespace pixorra
