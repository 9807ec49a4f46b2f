// Signals that ask to end wait to be taken, and end nothing by themselves.
#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/posix/EndSignals.h"

namespace pixorra {
namespace {

bool CanBeRead(const EndSignals& signals) {
  pollfd wait{signals.Descriptor(), POLLIN, 0};
  return poll(&wait, 1, 0) == 1;
}

// What the function gives, in a process of its own; the signal that ended it instead, plus 128.
template <typename Function>
int InAProcess(Function function) {
  const pid_t child = fork();
  if (child == 0) _exit(function());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

class EndSignalsTest : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Each, EndSignalsTest, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_P(EndSignalsTest, ItWaitsToBeTakenAndIsTakenOnce) {
  EXPECT_EQ(InAProcess([signal = GetParam()] {
              std::signal(signal, SIG_DFL);
              const EndSignals signals;
              if (CanBeRead(signals) || signals.Take()) return 1;
              raise(signal);
              if (!CanBeRead(signals)) return 2;
              return signals.Take() && !signals.Take() && !CanBeRead(signals) ? 0 : 3;
            }),
            0);
}

TEST_P(EndSignalsTest, ManyOfThemEndNothingEither) {
  EXPECT_EQ(InAProcess([signal = GetParam()] {
              std::signal(signal, SIG_DFL);
              const EndSignals signals;
              for (int i = 0; i < 100000; ++i) raise(signal);
              return signals.Take() && !signals.Take() ? 0 : 1;
            }),
            0);
}

TEST_P(EndSignalsTest, OneThatIsIgnoredStaysSo) {
  EXPECT_EQ(InAProcess([signal = GetParam()] {
              std::signal(signal, SIG_IGN);
              const EndSignals signals;
              raise(signal);
              return signals.Take() ? 1 : 0;
            }),
            0);
}

TEST_P(EndSignalsTest, AfterwardsItEndsTheProcessAgain) {
  EXPECT_EQ(InAProcess([signal = GetParam()] {
              std::signal(signal, SIG_DFL);
              { const EndSignals signals; }
              raise(signal);
              return 0;
            }),
            128 + GetParam());
}

}  // namespace
}  // namespace pixorra
