// The status that a JPEG operation returns: 0 for success, and the reasons for a failure with their texts.
#pragma once

#include <string>

namespace pixorra {

namespace jpeg {
inline constexpr int Ok = 0;
inline constexpr int BadRecord = -1;
inline constexpr int BadFile = -2;
inline constexpr int BadData = -3;
inline constexpr int Unsupported = -4;
inline constexpr int TooLarge = -5;
inline constexpr int Mismatch = -6;
inline constexpr int OutOfMemory = -7;
inline constexpr int CannotWrite = -8;
inline constexpr int NoPicture = -9;
inline constexpr int TooMuchWork = -10;
}  // namespace jpeg

std::string JpegStatusText(int status);

}  // namespace pixorra
