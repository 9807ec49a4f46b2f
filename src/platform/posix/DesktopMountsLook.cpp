#include "platform/posix/DesktopMountsLook.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <new>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/runtime/NaturalOrder.h"

namespace pixorra {

// Outlives its owner for as long as the thread hangs.
struct DesktopMountsLook::State {
  State(std::string folder, std::vector<std::string> names) : Folder(std::move(folder)), Names(std::move(names)) {}

  const std::string Folder;
  std::mutex Mutex;  // of all that follows
  std::condition_variable Changed;
  std::vector<std::string> Names;
  std::uint64_t Asked = 0;
  std::uint64_t Answered = 0;
  bool HasThread = false;
  bool Ended = false;
};

DesktopMountsLook::DesktopMountsLook(std::string folder, std::vector<std::string> names)
    : state_(std::make_shared<State>(std::move(folder), std::move(names))) {}

DesktopMountsLook::~DesktopMountsLook() {
  const std::lock_guard lock(state_->Mutex);
  state_->Ended = true;
  state_->Changed.notify_all();
}

void DesktopMountsLook::Work(const std::shared_ptr<State>& state) {
  std::unique_lock lock(state->Mutex);
  for (;;) {
    state->Changed.wait(lock, [&] { return state->Ended || state->Asked != state->Answered; });
    if (state->Ended) return;
    lock.unlock();
    std::vector<std::string> names;
    bool known = true;
    // Without memory for the names those before count.
    try {
      names = DesktopMounts(state->Folder);
    } catch (const std::bad_alloc&) {
      known = false;
    }
    lock.lock();
    if (known) state->Names = std::move(names);
    state->Answered = state->Asked;
    state->Changed.notify_all();
  }
}

namespace {

// Something is mounted there, or that cannot be known. The kernel is asked for what it knows, and not the mount.
bool MayHang(const std::string& folder) {
  struct statx known {};
  constexpr int withoutAsking = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
  if (statx(AT_FDCWD, folder.c_str(), withoutAsking, 0, &known) != 0) return errno != ENOENT;
  const bool told = (known.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
  return !told || (known.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

}  // namespace

bool DesktopMountsLook::NeedsThread() const {
  return !state_->Folder.empty() && MayHang(state_->Folder);
}

std::vector<std::string> DesktopMountsLook::Names(std::chrono::milliseconds patience) {
  State& state = *state_;
  if (state.Folder.empty()) return {};
  std::unique_lock lock(state.Mutex);
  if (!MayHang(state.Folder)) return state.Names = DesktopMounts(state.Folder);
  if (state.Asked != state.Answered) return state.Names;
  if (!state.HasThread) {
    try {
      std::thread([shared = state_] { Work(shared); }).detach();
    } catch (const std::system_error&) {
      return state.Names;
    }
    state.HasThread = true;
  }
  ++state.Asked;
  state.Changed.notify_all();
  state.Changed.wait_for(lock, patience, [&] { return state.Answered == state.Asked; });
  return state.Names;
}

std::vector<std::string> DesktopMounts(const std::string& folder) {
  std::vector<std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(folder.empty() ? nullptr : opendir(folder.c_str()), closedir);
  if (!open) return names;
  while (const dirent* entry = readdir(open.get())) {
    if (static_cast<const char*>(entry->d_name)[0] != '.') names.emplace_back(static_cast<const char*>(entry->d_name));
  }
  std::sort(names.begin(), names.end(), NaturalLess);
  return names;
}

}  // namespace pixorra
