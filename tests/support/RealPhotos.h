// Where real camera files are, for tests that try them: in the folder that PIXORRA_PHOTOS names, else in
// "shared/photos" beside the source tree. It may be absent.
#pragma once

#include <filesystem>

namespace pixorra {

std::filesystem::path PhotosFolder();

}  // namespace pixorra
