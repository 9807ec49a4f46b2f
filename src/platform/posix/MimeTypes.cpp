// Types by globs.
#include "platform/posix/MimeTypes.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fnmatch.h>

#include "platform/posix/SmallFiles.h"
#include "platform/runtime/Text.h"

namespace pixorra {

namespace {

constexpr std::string_view ownGlobs =
    "50:image/jpeg:*.jpg\n50:image/jpeg:*.jpeg\n50:image/bmp:*.bmp\n50:image/gif:*.gif\n50:text/plain:*.txt\n";

// Takes the text up to the separator off the front.
std::string_view TakeField(std::string_view& rest, char separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return field;
}

bool Matches(const std::string& glob, const std::string& name, bool caseCounts) {
  return fnmatch(glob.c_str(), name.c_str(), 0) == 0 ||
         (!caseCounts && fnmatch(LCase(glob).c_str(), LCase(name).c_str(), 0) == 0);
}

}  // namespace

std::string TypeByGlobs(std::string_view globs, std::string_view name) {
  const std::string whole(name);
  std::string best;
  int bestWeight = -1;
  std::size_t bestLength = 0;
  while (!globs.empty()) {
    std::string_view line = TakeField(globs, '\n');
    const std::string_view weightText = TakeField(line, ':');
    const std::string_view type = TakeField(line, ':');
    const std::string glob(TakeField(line, ':'));
    const bool caseCounts = line.find("cs") != std::string_view::npos;
    int weight = 0;
    const auto read = std::from_chars(weightText.data(), weightText.data() + weightText.size(), weight);
    if (read.ec != std::errc() || glob.empty()) continue;
    const bool better = weight > bestWeight || (weight == bestWeight && glob.size() > bestLength);
    if (!better || !Matches(glob, whole, caseCounts)) continue;
    best = type;
    bestWeight = weight;
    bestLength = glob.size();
  }
  return best;
}

std::string TypeOfFile(const std::vector<std::string>& dataFolders, std::string_view hostName) {
  for (const std::string& folder : dataFolders) {
    std::string type = TypeByGlobs(ReadSmallFile(folder + "/mime/globs2").value_or(""), hostName);
    if (!type.empty()) return type;
  }
  return TypeByGlobs(ownGlobs, hostName);
}

}  // namespace pixorra
