// Folders that do not answer. The kernel holds up whoever opens them until somebody permits it, as a dead network does.
#include <chrono>
#include <condition_variable>
#include <deque>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <mutex>
#include <sys/fanotify.h>
#include <sys/ioctl.h>
#include <thread>

#include "platform/posix/PosixFolderReader.h"
#include "platform/posix/UniqueFd.h"
#include "platform/services/Files.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Holds up whoever opens these folders, until its end.
class HeldUp {
 public:
  HeldUp() : watch_(fanotify_init(FAN_CLASS_CONTENT | FAN_CLOEXEC | FAN_NONBLOCK, O_RDONLY)) {}
  bool Add(const std::string& hostFolder) {
    return watch_ &&
           fanotify_mark(watch_.Get(), FAN_MARK_ADD, FAN_OPEN_PERM | FAN_ONDIR, AT_FDCWD, hostFolder.c_str()) == 0;
  }
  bool HoldsSomebody() const {
    int waiting = 0;
    return ioctl(watch_.Get(), FIONREAD, &waiting) == 0 && waiting > 0;
  }

 private:
  UniqueFd watch_;
};

// The program's loop: what other threads post is run here.
class TestLoop : public Posting {
 public:
  void Post(std::function<void()> call) override {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    posted_.notify_one();
  }
  // Runs the next call; false where none comes for a long time.
  bool RunOne() {
    std::unique_lock lock(mutex_);
    if (!posted_.wait_for(lock, std::chrono::seconds(20), [this] { return !calls_.empty(); })) return false;
    const std::function<void()> call = std::move(calls_.front());
    calls_.pop_front();
    lock.unlock();
    call();
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> calls_;
};

class PosixFolderReaderTest : public ::testing::Test {
 protected:
  PosixFolderReaderTest() {
    drive.MakeFolder("C:\\Dead\\a");
    drive.MakeFolder("C:\\Other\\b");
  }
  std::unique_ptr<FolderReader::Reading> Read(const std::string& folder) {
    return reader->Read(folder, attribute::Normal, [this](const FolderReader::Answer& answer) {
      for (const std::string& name : answer.Names) heard.push_back(name);
    });
  }
  TemporaryDrive drive;
  TestLoop loop;
  std::vector<std::string> heard;
  std::unique_ptr<PosixFolderReader> reader = std::make_unique<PosixFolderReader>(
      std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "C"}})), loop);
};

TEST_F(PosixFolderReaderTest, FolderThatDoesNotAnswerKeepsNoOtherOneWaiting) {
  HeldUp held;
  if (!held.Add(drive.HostPath("C:\\Dead"))) GTEST_SKIP() << "folders cannot be held up here";
  std::vector<std::unique_ptr<FolderReader::Reading>> readings;
  for (int i = 0; i < PosixFolderReader::MostThreads - 1; ++i) readings.push_back(Read("C:\\Dead"));
  for (int i = 0; i < 3; ++i) readings.push_back(Read("C:\\Other"));
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(loop.RunOne());
  EXPECT_THAT(heard, ElementsAre("b", "b", "b"));
  readings.clear();
  reader.reset();
}

TEST_F(PosixFolderReaderTest, FolderThatAnswersAtLastIsHeard) {
  auto held = std::make_unique<HeldUp>();
  if (!held->Add(drive.HostPath("C:\\Dead"))) GTEST_SKIP() << "folders cannot be held up here";
  const auto dead = Read("C:\\Dead");
  const auto other = Read("C:\\Other");
  ASSERT_TRUE(loop.RunOne());
  EXPECT_THAT(heard, ElementsAre("b"));
  held.reset();
  ASSERT_TRUE(loop.RunOne());
  EXPECT_THAT(heard, ElementsAre("b", "a"));
}

TEST_F(PosixFolderReaderTest, FilesAreListedAlikeWhereNobodyWantsTheirLengths) {
  drive.Write("C:\\Other\\one.jpg", "1");
  drive.MakeLink("C:\\Other\\two.jpg", "one.jpg");
  drive.MakeLink("C:\\Other\\gone.jpg", "nowhere");
  drive.MakeFolder("C:\\Other\\folder.jpg");
  drive.MakeFifo("C:\\Other\\pipe.jpg");
  PosixFolderReader plain(std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "C"}})), loop,
                          PosixFolderReader::Lengths::Unknown);
  FolderReader::Answer answer;
  const auto reading =
      plain.ReadFiles("C:\\Other", "*.jpg", [&](const FolderReader::Answer& heardOf) { answer = heardOf; });
  ASSERT_TRUE(loop.RunOne());
  EXPECT_THAT(answer.Names, ElementsAre("one.jpg", "two.jpg"));
  ASSERT_EQ(answer.Lengths.size(), 2U);
  EXPECT_EQ(answer.Lengths[0], std::nullopt) << "it has not been looked at";
}

// A reader that waited for its threads would hang here, and nothing would be posted to a loop that has gone.
TEST_F(PosixFolderReaderTest, EndDoesNotWaitForAFolder) {
  HeldUp held;
  if (!held.Add(drive.HostPath("C:\\Dead"))) GTEST_SKIP() << "folders cannot be held up here";
  auto reading = Read("C:\\Dead");
  while (!held.HoldsSomebody()) std::this_thread::yield();
  reader.reset();
  reading.reset();
  EXPECT_THAT(heard, IsEmpty());
}

}  // namespace
}  // namespace pixorra
