// The bridge between surfaces and JPEG files: decodes a file into a surface, whole or reduced, and encodes a surface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/cDIBsection.h"
#include "platform/services/Dialogs.h"
#include "platform/services/FileBytes.h"
#include "platform/services/Files.h"
#include "platform/services/JpegCodec.h"

namespace pixorra {

struct JpegBridge {
  JpegCodec& codec;
  Files& files;
  Dialogs& dialogs;
  // LoadJPG's block of file bytes, kept for its next call; one of more bytes than this is given back.
  static constexpr std::size_t MostSpare = std::size_t{64} * 1024 * 1024;
  FileBytes spare{};
};

// lScale is 1, 2, 4 or 8: the surface becomes that much smaller, sizes rounded up. At any other scale nothing is read,
// and the surface is blank and of full size. A grey picture is read as 3 channels. False where it fails: the codec's
// refusals are shown in a message box, everything else is silent.

// Reads the file into memory first; raises nothing.
bool LoadJPG(JpegBridge& bridge, cDIBsection& surface, const std::string& fileName, int lScale);
bool LoadJPG(JpegBridge& bridge, cDIBsection& surface, File& file, int lScale);
// The codec opens the file. Raises Overflow where the surface leaves 32 bits.
bool LoadJPGFromFile(JpegBridge& bridge, cDIBsection& surface, const std::string& fileName, int lScale);
// Raises Overflow where the surface leaves 32 bits.
bool LoadJPGFromMemory(JpegBridge& bridge, cDIBsection& surface, const std::uint8_t* address, std::int32_t length,
                       int lScale);

// Writes the surface as a JPEG file of this quality, 0 to 100, in place of what has the name. False where it fails,
// with no message but for a codec that does not start. Raises Overflow as DibPadBytes does.
bool SaveJPG(JpegBridge& bridge, const cDIBsection& surface, const std::string& fileName, int quality);
// The same file as bytes in `jpeg`.
bool EncodeJPG(JpegBridge& bridge, const cDIBsection& surface, int quality, std::vector<std::uint8_t>& jpeg);
bool SavePictureAsJPG(JpegBridge& bridge, const Picture& picture, const std::string& fileName, int quality);

// The bytes that pad a row of so many pixels to a multiple of 4. Raises Overflow where a step leaves 32 bits.
std::int32_t DibPadBytes(std::int32_t width, std::int32_t channels);

// Shows a codec's status in a message box, the prefix after it.
void IJLErrorMessage(JpegBridge& bridge, const std::string& prefix, int status);

}  // namespace pixorra
