#include "platform/posix/PosixMemory.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

#include "platform/posix/UniqueFd.h"

namespace pixorra {

namespace {

// A limit so high is none.
constexpr std::int64_t NoLimit = std::int64_t{1} << 60;

// These files have no length of their own, and what matters is near their start. Empty where there is no such file.
std::string TextOf(const std::string& path) {
  const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  std::array<char, 8192> text{};
  std::size_t length = 0;
  while (fd && length < text.size()) {
    const ssize_t came = read(fd.Get(), text.data() + length, text.size() - length);
    if (came < 0 && errno == EINTR) continue;
    if (came <= 0) break;
    length += static_cast<std::size_t>(came);
  }
  return {text.data(), length};
}

std::optional<std::int64_t> NumberAt(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  std::int64_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc()) return std::nullopt;
  return number;
}

// Calls `use` with each line until it returns true.
template <typename Use>
void ForEachLine(std::string_view text, const Use& use) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (use(text.substr(0, end))) return;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

// The number after a name at the start of a line.
std::optional<std::int64_t> Field(std::string_view text, std::string_view name) {
  std::optional<std::int64_t> number;
  ForEachLine(text, [&](std::string_view line) {
    if (!line.starts_with(name)) return false;
    number = NumberAt(line.substr(name.size()));
    return true;
  });
  return number;
}

// What the two versions of control groups call their files.
struct Group {
  std::string Folder;  // of the whole hierarchy
  std::string Path;    // of this program's group in it, from a slash on
  std::array<const char*, 2> Limits;
  const char* Used;
  const char* CachePrefix;  // of the lines of memory.stat that count the groups below as well
};

// Pages of files are given back as soon as they are wanted.
std::int64_t CachedIn(const std::string& folder, const Group& group) {
  const std::string stat = TextOf(folder + "/memory.stat");
  std::int64_t cached = 0;
  for (const char* pages : {"inactive_file ", "active_file "})
    cached += Field(stat, std::string(group.CachePrefix) + pages).value_or(0);
  return cached;
}

// What the limits of one group leave; nothing where it has none.
std::optional<std::int64_t> LeftIn(const std::string& folder, const Group& group) {
  std::int64_t limit = NoLimit;
  for (const char* name : group.Limits) {
    if (name != nullptr) limit = std::min(limit, NumberAt(TextOf(folder + "/" + name)).value_or(NoLimit));
  }
  if (limit == NoLimit) return std::nullopt;
  const std::int64_t used = NumberAt(TextOf(folder + "/" + group.Used)).value_or(0);
  return std::max<std::int64_t>(0, limit - std::max<std::int64_t>(0, used - CachedIn(folder, group)));
}

// The group that a line of /proc/self/cgroup names: "0::/user.slice" or "5:memory:/docker/12".
std::optional<Group> GroupOf(std::string_view line, const std::string& root) {
  const std::size_t first = line.find(':');
  const std::size_t second = first == std::string_view::npos ? first : line.find(':', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const std::string_view controllers = line.substr(first + 1, second - first - 1);
  const std::string path(line.substr(second + 1));
  if (controllers.empty())
    return Group{root + "/sys/fs/cgroup", path, {"memory.max", "memory.high"}, "memory.current", ""};
  if (("," + std::string(controllers) + ",").find(",memory,") == std::string::npos) return std::nullopt;
  return Group{
      root + "/sys/fs/cgroup/memory", path, {"memory.limit_in_bytes", nullptr}, "memory.usage_in_bytes", "total_"};
}

}  // namespace

std::optional<std::int64_t> PosixMemory::Available() {
  const std::optional<std::int64_t> kibibytes = Field(TextOf(root_ + "/proc/meminfo"), "MemAvailable:");
  std::optional<std::int64_t> available;
  if (kibibytes) available = *kibibytes * 1024;
  // Read anew each time: a desktop may put a program into another group soon after its start.
  ForEachLine(TextOf(root_ + "/proc/self/cgroup"), [&](std::string_view line) {
    std::optional<Group> group = GroupOf(line, root_);
    // The limits of all groups above it hold as well.
    while (group) {
      const bool top = group->Path.empty() || group->Path == "/";
      const std::optional<std::int64_t> left = LeftIn(group->Folder + (top ? "" : group->Path), *group);
      if (left) available = std::min(available.value_or(*left), *left);
      if (top) break;
      group->Path.resize(group->Path.rfind('/') + 1);
      if (group->Path.size() > 1) group->Path.pop_back();
    }
    return false;
  });
  return available;
}

}  // namespace pixorra
