// A file system that this test answers for, as the server of a network does: one file in it, of which it says that what
// is known may be remembered for an hour. Needs root; a test skips where it cannot have it.
#pragma once

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <linux/fuse.h>
#include <string>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include "platform/posix/UniqueFd.h"
#include "tests/platform/posix/PrivateMounts.h"

namespace pixorra {

class ServedMount {
 public:
  // Whoever opens its folder waits for `delay`.
  ServedMount(std::string folder, std::string name, std::chrono::milliseconds delay = {})
      : folder_(std::move(folder)),
        name_(std::move(name)),
        delay_(delay),
        server_(open("/dev/fuse", O_RDWR | O_CLOEXEC)) {
    const std::string options = "fd=" + std::to_string(server_.Get()) + ",rootmode=40000,user_id=0,group_id=0";
    mounted_ = server_ && HavePrivateMounts() && mount("test", folder_.c_str(), "fuse", 0, options.c_str()) == 0;
    if (mounted_) thread_ = std::thread([this] { Serve(); });
  }
  ~ServedMount() {
    if (!mounted_) return;
    umount2(folder_.c_str(), MNT_DETACH);
    thread_.join();
  }
  ServedMount(const ServedMount&) = delete;
  ServedMount& operator=(const ServedMount&) = delete;
  bool Mounted() const { return mounted_; }

  std::atomic<std::uint64_t> Length = 0;  // of the file, in bytes

 private:
  static constexpr std::uint64_t File = 2;  // its number; the folder is FUSE_ROOT_ID
  static constexpr std::uint64_t Hour = 3600;

  template <typename T>
  void Answer(std::uint64_t request, const T& body) {
    std::array<char, sizeof(fuse_out_header) + sizeof(T)> all{};
    const fuse_out_header header{static_cast<std::uint32_t>(all.size()), 0, request};
    std::memcpy(all.data(), &header, sizeof header);
    std::memcpy(all.data() + sizeof header, &body, sizeof body);
    static_cast<void>(!write(server_.Get(), all.data(), all.size()));
  }
  void AnswerShortly(std::uint64_t request, int failure = 0) {
    const fuse_out_header header{sizeof header, -failure, request};
    static_cast<void>(!write(server_.Get(), &header, sizeof header));
  }

  fuse_attr AttributesOf(std::uint64_t node) const {
    fuse_attr attributes{};
    attributes.ino = node;
    attributes.mode = node == File ? S_IFREG | 0644 : S_IFDIR | 0755;
    attributes.size = node == File ? Length.load() : 0;
    attributes.nlink = 1;
    return attributes;
  }

  void LookUp(const fuse_in_header& request, const char* name) {
    if (name != name_) return AnswerShortly(request.unique, ENOENT);
    fuse_entry_out entry{};
    entry.nodeid = File;
    entry.entry_valid = entry.attr_valid = Hour;
    entry.attr = AttributesOf(File);
    Answer(request.unique, entry);
  }

  void ReadFolder(const fuse_in_header& request, std::uint64_t offset) {
    if (offset != 0) return AnswerShortly(request.unique);
    const std::size_t length = FUSE_DIRENT_ALIGN(FUSE_NAME_OFFSET + name_.size());
    std::array<char, 256> all{};
    const fuse_out_header header{static_cast<std::uint32_t>(sizeof header + length), 0, request.unique};
    fuse_dirent entry{};
    entry.ino = File;
    entry.off = 1;
    entry.namelen = static_cast<std::uint32_t>(name_.size());
    std::memcpy(all.data(), &header, sizeof header);
    std::memcpy(all.data() + sizeof header, &entry, FUSE_NAME_OFFSET);
    std::memcpy(all.data() + sizeof header + FUSE_NAME_OFFSET, name_.data(), name_.size());
    static_cast<void>(!write(server_.Get(), all.data(), header.len));
  }

  void Take(const fuse_in_header& request, const char* body) {
    switch (request.opcode) {
      case FUSE_INIT: {
        fuse_init_out answer{};
        answer.major = FUSE_KERNEL_VERSION;
        answer.minor = 31;
        answer.max_write = 4096;
        return Answer(request.unique, answer);
      }
      case FUSE_LOOKUP:
        return LookUp(request, body);
      case FUSE_GETATTR: {
        fuse_attr_out answer{};
        answer.attr_valid = Hour;
        answer.attr = AttributesOf(request.nodeid);
        return Answer(request.unique, answer);
      }
      case FUSE_OPENDIR:
        std::this_thread::sleep_for(delay_);
        return Answer(request.unique, fuse_open_out{});
      case FUSE_READDIR:
        return ReadFolder(request, reinterpret_cast<const fuse_read_in*>(body)->offset);
      case FUSE_RELEASEDIR:
        return AnswerShortly(request.unique);
      case FUSE_FORGET:
      case FUSE_BATCH_FORGET:
        return;
      default:
        AnswerShortly(request.unique, ENOSYS);
    }
  }

  // Until it is no longer mounted.
  void Serve() {
    alignas(fuse_in_header) std::array<char, 64 * 1024> request{};
    for (;;) {
      const ssize_t length = read(server_.Get(), request.data(), request.size());
      if (length < 0 && (errno == EINTR || errno == ENOENT)) continue;
      if (length < static_cast<ssize_t>(sizeof(fuse_in_header))) return;
      const auto& header = *reinterpret_cast<const fuse_in_header*>(request.data());
      Take(header, request.data() + sizeof header);
    }
  }

  std::string folder_;
  std::string name_;
  std::chrono::milliseconds delay_;
  UniqueFd server_;
  bool mounted_ = false;
  std::thread thread_;
};

}  // namespace pixorra
