// The lock of the first start, and the call of a later one. Locks are of open files, so two of them meet in one process
// as they do in two.
#include <atomic>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/posix/RunningInstance.h"
#include "platform/posix/UniqueFd.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RunningInstanceTest : public ::testing::Test {
 protected:
  std::string Host(const std::string& path) const { return drive.HostPath(path); }
  // The messages of the next calls, when there are some.
  static std::vector<std::string> AwaitCalls(const RunningInstance& first) {
    std::vector<std::string> calls;
    // A caller that a busy machine keeps from its message is let go, and calls again.
    while (calls.empty()) {
      pollfd wait{first.Calls(), POLLIN, 0};
      EXPECT_EQ(poll(&wait, 1, 20000), 1);
      if (wait.revents == 0) break;
      calls = first.TakeCalls();
    }
    return calls;
  }
  // The end of a caller who has said this. One who has not said all keeps silent from then on.
  static UniqueFd Caller(const UniqueFd& folder, const std::string& said, bool all) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = "/proc/self/fd/" + std::to_string(folder.Get()) + "/running";
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    UniqueFd caller(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_EQ(connect(caller.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(write(caller.Get(), said.data(), said.size()), static_cast<ssize_t>(said.size()));
    if (all) shutdown(caller.Get(), SHUT_WR);
    return caller;
  }

  TemporaryDrive drive;
};

TEST_F(RunningInstanceTest, OnlyOneStartIsTheFirst) {
  const RunningInstance first(Host("C:\\home\\config"));
  const RunningInstance second(Host("C:\\home\\config"));
  EXPECT_TRUE(first.IsFirst());
  EXPECT_FALSE(second.IsFirst());
  EXPECT_LT(second.Calls(), 0);
}

TEST_F(RunningInstanceTest, HomesOfTheirOwnDoNotMeet) {
  const RunningInstance one(Host("C:\\one"));
  const RunningInstance other(Host("C:\\other"));
  EXPECT_TRUE(one.IsFirst());
  EXPECT_TRUE(other.IsFirst());
}

TEST_F(RunningInstanceTest, TheLockDiesWithItsHolder) {
  const pid_t holder = fork();
  if (holder == 0) {
    const RunningInstance first(Host("C:\\config"));
    _exit(first.IsFirst() ? 0 : 1);
  }
  int status = 1;
  ASSERT_EQ(waitpid(holder, &status, 0), holder);
  EXPECT_EQ(status, 0);
  // Its socket is still there, and is in nobody's way.
  const RunningInstance next(Host("C:\\config"));
  EXPECT_TRUE(next.IsFirst());
  EXPECT_GE(next.Calls(), 0);
}

TEST_F(RunningInstanceTest, ALaterStartIsHeardByTheFirst) {
  const RunningInstance first(Host("C:\\config"));
  EXPECT_THAT(first.TakeCalls(), IsEmpty());
  RunningInstance later(Host("C:\\config"));
  auto outcome = RunningInstance::Outcome::Unanswered;
  std::thread caller([&] { outcome = later.CallFirst(20); });
  EXPECT_THAT(AwaitCalls(first), ElementsAre(""));
  caller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::Taken);
  EXPECT_THAT(first.TakeCalls(), IsEmpty());
}

TEST_F(RunningInstanceTest, ItsMessageIsHeardByteForByte) {
  const RunningInstance first(Host("C:\\config"));
  RunningInstance later(Host("C:\\config"));
  const std::string message("/home/anna/My photos\0\n\xFF\xC3\xA4", 25);
  auto outcome = RunningInstance::Outcome::Unanswered;
  std::thread caller([&] { outcome = later.CallFirst(20, message); });
  EXPECT_THAT(AwaitCalls(first), ElementsAre(message));
  caller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::Taken);
}

TEST_F(RunningInstanceTest, ALongMessageIsTakenAndATooLongOneIsNot) {
  const RunningInstance first(Host("C:\\config"));
  RunningInstance later(Host("C:\\config"));
  const std::string longest(RunningInstance::MostBytes, 'x');
  auto outcome = RunningInstance::Outcome::Unanswered;
  std::thread caller([&] { outcome = later.CallFirst(20, longest); });
  EXPECT_THAT(AwaitCalls(first), ElementsAre(longest));
  caller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::Taken);
  std::atomic<bool> over = false;
  std::thread secondCaller([&] {
    outcome = later.CallFirst(0.2, longest + 'x');
    over = true;
  });
  while (!over) EXPECT_THAT(first.TakeCalls(), IsEmpty());
  secondCaller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::Unanswered);
}

TEST_F(RunningInstanceTest, CallersThatDoNotFinishAreLetGoAndTheNextOneIsHeard) {
  const RunningInstance first(Host("C:\\config"));
  const UniqueFd folder(open(Host("C:\\config").c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  const UniqueFd silent = Caller(folder, "", false);
  const UniqueFd stuck = Caller(folder, "half a mess", false);
  const UniqueFd next = Caller(folder, "a message", true);
  ASSERT_THAT(first.TakeCalls(), ElementsAre("a message"));
  char answer = 0;
  EXPECT_EQ(recv(silent.Get(), &answer, 1, 0), 0);
  EXPECT_LE(recv(stuck.Get(), &answer, 1, 0), 0) << "it has an end, and no answer";
  EXPECT_EQ(recv(next.Get(), &answer, 1, 0), 1);
}

TEST_F(RunningInstanceTest, AFirstStartThatDoesNotAnswerIsGivenUp) {
  const RunningInstance first(Host("C:\\config"));
  // More calls than wait in a queue.
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(RunningInstance(Host("C:\\config")).CallFirst(0.05), RunningInstance::Outcome::Unanswered);
}

// Its user has been told that nothing was taken.
TEST_F(RunningInstanceTest, ACallThatWasGivenUpIsNotHeardLater) {
  const RunningInstance first(Host("C:\\config"));
  EXPECT_EQ(RunningInstance(Host("C:\\config")).CallFirst(0.05, "/home"), RunningInstance::Outcome::Unanswered);
  EXPECT_THAT(first.TakeCalls(), IsEmpty());
}

TEST_F(RunningInstanceTest, ALaterStartWhoseFirstEndsWithoutAnAnswerBecomesTheFirst) {
  auto first = std::make_unique<RunningInstance>(Host("C:\\config"));
  RunningInstance later(Host("C:\\config"));
  auto outcome = RunningInstance::Outcome::Unanswered;
  std::thread caller([&] { outcome = later.CallFirst(20); });
  pollfd wait{first->Calls(), POLLIN, 0};
  EXPECT_EQ(poll(&wait, 1, 20000), 1);
  first.reset();
  caller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::IsFirst);
  EXPECT_TRUE(later.IsFirst());
  EXPECT_GE(later.Calls(), 0);
  EXPECT_FALSE(RunningInstance(Host("C:\\config")).IsFirst());
}

TEST_F(RunningInstanceTest, APathLongerThanAnAddressIsFine) {
  const std::string folder = Host("C:\\" + std::string(200, 'a') + "\\" + std::string(200, 'b'));
  const RunningInstance first(folder);
  EXPECT_GE(first.Calls(), 0);
  EXPECT_FALSE(RunningInstance(folder).IsFirst());
}

TEST_F(RunningInstanceTest, ItsFilesAreTheUsersAlone) {
  const RunningInstance first(Host("C:\\config"));
  for (const char* name : {"lock", "running"}) {
    struct stat entry {};
    ASSERT_EQ(stat((Host("C:\\config") + '/' + name).c_str(), &entry), 0) << name;
    EXPECT_EQ(entry.st_mode & 0777U, 0600U) << name;
  }
}

TEST_F(RunningInstanceTest, WithoutAFolderToWriteInEveryStartIsTheFirst) {
  drive.Write("C:\\file", "in the way");
  EXPECT_TRUE(RunningInstance(Host("C:\\file")).IsFirst());
  EXPECT_TRUE(RunningInstance(Host("C:\\file")).IsFirst());
}

}  // namespace
}  // namespace pixorra
