// Descriptors that the loop waits for beside its events.
#include <QSocketNotifier>
#include <array>
#include <fcntl.h>
#include <unistd.h>

#include "platform/posix/UniqueFd.h"
#include "platform/qt/ReadNotices.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class ReadNoticesTest : public QtTest {
 protected:
  ReadNoticesTest() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
      reading = UniqueFd(ends[0]);
      writing = UniqueFd(ends[1]);
    }
    NoticeWhenReadable(backend, owner, reading.Get(), [this] {
      ++notices;
      if (!reads) return;
      EXPECT_EQ(read(reading.Get(), &byte, 1), 1);
    });
  }
  void Write() { EXPECT_EQ(write(writing.Get(), &byte, 1), 1); }

  UniqueFd reading;
  UniqueFd writing;
  QObject owner;
  char byte = 'a';
  bool reads = true;
  int notices = 0;
};

TEST_F(ReadNoticesTest, EachWriteIsNoticedAndRead) {
  Settle();
  EXPECT_EQ(notices, 0);
  for (int i = 1; i <= 3; ++i) {
    Write();
    EXPECT_TRUE(toolkit.WaitUntil([&] { return notices == i; }, 10));
  }
}

TEST_F(ReadNoticesTest, WhatIsNotReadIsNoticedAgainUntilTheEndIsAskedForAndThenTheLoopSleeps) {
  reads = false;
  Write();
  EXPECT_TRUE(toolkit.WaitUntil([&] { return notices > 3; }, 10));
  toolkit.AskToEnd();
  const int before = notices;
  const auto* const notifier = owner.findChild<QSocketNotifier*>();
  ASSERT_NE(notifier, nullptr);
  EXPECT_TRUE(toolkit.WaitUntil([&] { return !notifier->isEnabled(); }, 10));
  EXPECT_EQ(notices, before);
}

TEST_F(ReadNoticesTest, NoDescriptorIsNeverNoticed) {
  NoticeWhenReadable(backend, owner, -1, [] { FAIL(); });
  EXPECT_EQ(owner.findChildren<QSocketNotifier*>().size(), 1);
  Settle();
}

}  // namespace
}  // namespace pixorra
