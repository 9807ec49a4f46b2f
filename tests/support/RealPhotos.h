// Where real camera files are, for tests that try them: in the folder that PIXORRA_PHOTOS names, else in
// "shared/photos" beside the source tree. It may be absent.
#pragma once

#include <cstdlib>
#include <filesystem>

namespace pixorra {

inline std::filesystem::path PhotosFolder() {
  const char* named = std::getenv("PIXORRA_PHOTOS");
  if (named != nullptr) return named;
  // Normalized by name, as the folder it starts from need not exist.
  return (std::filesystem::path(PIXORRA_TEST_DATA) / "../../../shared/photos").lexically_normal();
}

}  // namespace pixorra
