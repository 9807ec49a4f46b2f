// Which files are photos, in the program and in its slide show.
#pragma once

namespace pixorra {

// The files of every type that can be shown.
inline constexpr const char* AllPictures = "*.jpeg;*.jpg;*.bmp;*.gif";

}  // namespace pixorra
