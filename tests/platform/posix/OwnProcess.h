// A session of a test's own. GLib reads the session's variables and the desktop's lists once for each process, so what
// asks it runs in a process of its own.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pixorra {

using Variables = std::map<std::string, std::string>;

// The usual directories of a home folder, and system folders beside it, all below the host folder; no bus.
inline Variables SessionIn(const std::string& folder) {
  return {{"HOME", folder + "/home"},
          {"XDG_DATA_HOME", folder + "/home/.local/share"},
          {"XDG_CONFIG_HOME", folder + "/home/.config"},
          {"XDG_DATA_DIRS", folder + "/share"},
          {"XDG_CONFIG_DIRS", folder + "/xdg"},
          {"XDG_CURRENT_DESKTOP", ""},
          {"XDG_RUNTIME_DIR", folder + "/run"},
          {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder + "/no-bus"},
          // The system's programs are there for scripts; a test must not find a desktop's among them.
          {"PATH", folder + "/bin"},
          {"LANGUAGE", ""}};
}

// Runs `body` in a process with these variables. What it expects in vain fails the test.
inline void InOwnProcess(const Variables& variables, const std::function<void()>& body) {
  std::fflush(nullptr);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
    // Programs that it starts become its children when they are nobody's, so that it can await their end.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    body();
    std::fflush(nullptr);
    _exit(::testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0) << "in the process of its own";
}

// The programs that were started have ended when this returns.
inline void AwaitPrograms() {
  while (waitpid(-1, nullptr, 0) > 0) {
  }
}

}  // namespace pixorra
