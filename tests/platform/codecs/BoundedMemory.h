// A process of its own with a bound on its memory, in which a picture may need no more than it is worth.
#pragma once

#include <cstdio>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pixorra {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool MemoryCanBeBounded = false;  // the sanitizer needs the address space
#else
inline constexpr bool MemoryCanBeBounded = true;
#endif

inline constexpr std::int64_t MiB = 1024 * 1024;

// A figure of this process in bytes, by its name there.
inline std::int64_t OwnMemory(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::int64_t kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  return -1;
}

// The address space that `work` takes at most, in bytes, beside what the process has. To be asked once in a process.
inline std::int64_t MostTaken(const std::function<void()>& work) {
  const std::int64_t before = OwnMemory("VmSize");
  work();
  return OwnMemory("VmPeak") - before;
}

// Runs `body` in a process that cannot have more than 2 GiB. What it expects in vain fails the test.
inline void WithinTwoGigabytes(const std::function<void()>& body) {
  if (!MemoryCanBeBounded) GTEST_SKIP() << "the address space cannot be bounded in this build";
  std::fflush(nullptr);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const rlimit bound{2048UL * MiB, 2048UL * MiB};
    EXPECT_EQ(setrlimit(RLIMIT_AS, &bound), 0);
    body();
    std::fflush(nullptr);
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0) << "in the process of its own";
}

}  // namespace pixorra
