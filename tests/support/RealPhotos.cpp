#include "tests/support/RealPhotos.h"

#include <cstdlib>

namespace pixorra {

std::filesystem::path PhotosFolder() {
  const char* named = std::getenv("PIXORRA_PHOTOS");
  if (named != nullptr) return named;
  // Normalized by name, as the folder it starts from need not exist.
  return (std::filesystem::path(PIXORRA_TEST_DATA) / "../../../shared/photos").lexically_normal();
}

}  // namespace pixorra
