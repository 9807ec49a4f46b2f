// The lock of the first start, and the call of a later one. Locks are of open files, so two of them meet in one process
// as they do in two.
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/posix/RunningInstance.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class RunningInstanceTest : public ::testing::Test {
 protected:
  std::string Host(const std::string& path) const { return drive.HostPath(path); }

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
  EXPECT_FALSE(first.TakeCalls());
  RunningInstance later(Host("C:\\config"));
  auto outcome = RunningInstance::Outcome::Unanswered;
  std::thread caller([&] { outcome = later.CallFirst(20); });
  pollfd wait{first.Calls(), POLLIN, 0};
  EXPECT_EQ(poll(&wait, 1, 20000), 1);
  EXPECT_TRUE(first.TakeCalls());
  caller.join();
  EXPECT_EQ(outcome, RunningInstance::Outcome::Taken);
  EXPECT_FALSE(first.TakeCalls());
}

TEST_F(RunningInstanceTest, AFirstStartThatDoesNotAnswerIsGivenUp) {
  const RunningInstance first(Host("C:\\config"));
  // More calls than wait in a queue.
  for (int i = 0; i < 20; ++i)
    EXPECT_EQ(RunningInstance(Host("C:\\config")).CallFirst(0.05), RunningInstance::Outcome::Unanswered);
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
