#include "base/StampText.h"

#include "platform/runtime/Errors.h"

namespace pixorra {

std::string StampText(const FileStamp& stamp) {
  return std::to_string(stamp.Length) + "|" + std::to_string(stamp.Seconds) + "|" + std::to_string(stamp.Nanoseconds);
}

std::string StampText(Files& files, const std::string& path) {
  return OrElse(std::string(), [&] { return StampText(files.StampOf(path)); });
}

}  // namespace pixorra
