#include "platform/codecs/JpegStatus.h"

namespace pixorra {

std::string JpegStatusText(int status) {
  switch (status) {
    case jpeg::Ok:
      return "No error";
    case jpeg::BadRecord:
      return "The description of the transfer is not valid";
    case jpeg::BadFile:
      return "The file cannot be opened or read";
    case jpeg::BadData:
      return "The data is damaged or is no JPEG picture";
    case jpeg::Unsupported:
      return "This kind of JPEG picture is not supported";
    case jpeg::TooLarge:
      return "The picture is larger than its data or the memory allows";
    case jpeg::Mismatch:
      return "The surface does not fit the picture";
    case jpeg::OutOfMemory:
      return "Out of memory";
    case jpeg::CannotWrite:
      return "The file cannot be written";
    case jpeg::NoPicture:
      return "The data ends before the picture begins";
    case jpeg::TooMuchWork:
      return "The picture cannot be decoded in a reasonable time";
    default:
      return "Unknown error";
  }
}

}  // namespace pixorra
