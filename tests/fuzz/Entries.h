// Where bytes from outside come in: each entry takes any bytes at all, and aborts where what must always hold does not.
#pragma once

#include <cstdint>
#include <span>

namespace pixorra::fuzz {

using Bytes = std::span<const std::uint8_t>;

// A saved state file, read value by value.
void SavedState(Bytes bytes);
// A thumbnail cache file: an entry is found where a scan finds it.
void CacheFile(Bytes bytes);
// A picture file of any kind; a JPEG also by its header and reduced.
void PictureFile(Bytes bytes);
// A program's path, and the names of a host's path.
void Path(Bytes bytes);

}  // namespace pixorra::fuzz
