// The services that reach past the window: calls into the loop, folders that are read meanwhile, the clock's count, and
// the files that ship.
#include <gmock/gmock.h>
#include <memory>

#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"
#include "tests/platform/contract/ContractTest.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- calls into the loop
// -----------------------------------------------------------------------------------------------

using PostingContract = ContractTest;

TEST_F(PostingContract, CallsRunInTheirOrderWhenEventsDo) {
  Posting& posting = platform->GetPosting();
  posting.Post([this] { Log("first"); });
  posting.Post([this] { Log("second"); });
  EXPECT_THAT(Heard(), IsEmpty());
  platform->Settle();
  EXPECT_THAT(Heard(), ElementsAre("first", "second"));
  platform->Settle();
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(PostingContract, CallEndsAWait) {
  bool done = false;
  platform->GetPosting().Post([&] { done = true; });
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
}

TEST_F(PostingContract, CallMayPostTheNextOne) {
  Posting& posting = platform->GetPosting();
  bool done = false;
  posting.Post([&] { posting.Post([&] { done = true; }); });
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
}

// --- folders
// -----------------------------------------------------------------------------------------------------------

class FolderReaderContract : public ContractTest {
 protected:
  FolderReaderContract() {
    drive.MakeFolder("C:\\Photos\\Trip 10");
    drive.MakeFolder("C:\\Photos\\Trip 9");
    drive.MakeFolder("C:\\Photos\\.hidden");
    drive.Write("C:\\Photos\\a.jpg", "a");
  }
  using Ask = std::function<std::unique_ptr<FolderReader::Reading>(FolderReader::Handler)>;
  // What comes, or nothing when the handler was not called.
  FolderReader::Answer AnswerTo(const Ask& ask) {
    FolderReader::Answer result;
    bool came = false;
    const auto reading = ask([&](const FolderReader::Answer& answer) {
      result = answer;
      came = true;
    });
    EXPECT_FALSE(came) << "not before the loop has run";
    EXPECT_TRUE(toolkit.WaitUntil([&] { return came; }));
    return result;
  }
  FolderReader::Answer AnswerFor(const std::string& folder, int attributes = attribute::Normal) {
    return AnswerTo(
        [&](FolderReader::Handler handler) { return reader->Read(folder, attributes, std::move(handler)); });
  }
  FolderReader::Answer FilesOf(const std::string& folder, const std::string& pattern) {
    return AnswerTo(
        [&](FolderReader::Handler handler) { return reader->ReadFiles(folder, pattern, std::move(handler)); });
  }
  FolderReader::Answer AnyFileOf(const std::string& folder) {
    return AnswerTo(
        [&](FolderReader::Handler handler) { return reader->FindFile(folder, "*.jpg", std::move(handler)); });
  }
  FolderReader::Answer Found(const std::string& folder) {
    return AnswerTo([&](FolderReader::Handler handler) { return reader->FindFolder(folder, std::move(handler)); });
  }
  TemporaryDrive drive;
  std::unique_ptr<FolderReader> reader = platform->MakeFolderReader(drive);
};

TEST_F(FolderReaderContract, AnswerComesByTheLoopWithTheFoldersInTheirOrder) {
  const FolderReader::Answer answer = AnswerFor("C:\\Photos");
  EXPECT_EQ(answer.Error, error::None);
  EXPECT_THAT(answer.Names, ElementsAre("Trip 9", "Trip 10"));
  EXPECT_THAT(AnswerFor("C:\\Photos", attribute::Hidden).Names, ElementsAre(".hidden", "Trip 9", "Trip 10"));
}

TEST_F(FolderReaderContract, FailureComesAsAnAnswerToo) {
  EXPECT_EQ(AnswerFor("C:\\Nowhere").Error, error::PathNotFound);
  EXPECT_EQ(AnswerFor("C:\\Photos\\a.jpg").Error, error::PathNotFound);
  EXPECT_EQ(AnswerFor("no path").Error, error::BadFileName);
}

TEST_F(FolderReaderContract, FilesComeWithTheirLengthsByTheOrderOfNames) {
  drive.Write("C:\\Photos\\c10.JPG", std::string(300, 'c'));
  drive.Write("C:\\Photos\\c9.jpg", "");
  drive.Write("C:\\Photos\\.dot.jpg", "hidden");
  drive.Write("C:\\Photos\\notes.txt", "other");
  drive.MakeFolder("C:\\Photos\\folder.jpg");
  drive.MakeLink("C:\\Photos\\link.jpg", "a.jpg");
  drive.MakeLink("C:\\Photos\\lost.jpg", "nowhere");
  drive.MakeFifo("C:\\Photos\\pipe.jpg");
  const FolderReader::Answer answer = FilesOf("c:\\PHOTOS\\", "*.jpg;*.gif");
  EXPECT_EQ(answer.Error, error::None);
  EXPECT_EQ(answer.Path, "C:\\Photos");
  EXPECT_THAT(answer.Names, ElementsAre("a.jpg", "c10.JPG", "c9.jpg", "link.jpg"));
  EXPECT_THAT(answer.Lengths, ElementsAre(1, 300, 0, 1));
}

TEST_F(FolderReaderContract, FilesOfAFolderThatIsNotThereAreAFailure) {
  EXPECT_EQ(FilesOf("C:\\Nowhere", "*.jpg").Error, error::PathNotFound);
  EXPECT_EQ(FilesOf("C:\\Photos\\a.jpg", "*.jpg").Error, error::PathNotFound);
}

TEST_F(FolderReaderContract, OneFileOfTheKindIsFoundWhereThereAreSome) {
  drive.Write("C:\\Photos\\b.jpg", "b");
  drive.Write("C:\\Photos\\Trip 9\\.dot.jpg", "hidden");
  drive.Write("C:\\Photos\\Trip 9\\notes.txt", "other");
  const FolderReader::Answer some = AnyFileOf("c:\\PHOTOS\\");
  EXPECT_EQ(some.Path, "C:\\Photos");
  EXPECT_THAT(some.Names, ElementsAre(AnyOf("a.jpg", "b.jpg")));
  EXPECT_THAT(AnyFileOf("C:\\Photos\\Trip 9").Names, IsEmpty());
  EXPECT_EQ(AnyFileOf("C:\\Photos\\Trip 9").Error, error::None);
  EXPECT_EQ(AnyFileOf("C:\\Nowhere").Error, error::PathNotFound);
  EXPECT_EQ(AnyFileOf("C:\\Photos\\a.jpg").Error, error::PathNotFound);
}

TEST_F(FolderReaderContract, FolderIsFoundByItsPathAsTheDiskSpellsIt) {
  EXPECT_EQ(Found("c:\\photos\\TRIP 9\\").Path, "C:\\Photos\\Trip 9");
  EXPECT_EQ(Found("C:").Path, "C:\\");
  EXPECT_EQ(Found("C:\\Photos\\a.jpg").Error, error::PathNotFound);
  EXPECT_EQ(Found("C:\\Nowhere").Error, error::PathNotFound);
  EXPECT_EQ(Found("no path").Error, error::PathNotFound);
}

TEST_F(FolderReaderContract, EndedReadingIsNotAnswered) {
  bool called = false;
  auto reading = reader->Read("C:\\Photos", attribute::Normal, [&](const FolderReader::Answer&) { called = true; });
  reading.reset();
  AnswerFor("C:\\");
  platform->Settle();
  EXPECT_FALSE(called);
}

TEST_F(FolderReaderContract, HandlerMayEndItsOwnReadingAndBeginTheNext) {
  std::unique_ptr<FolderReader::Reading> reading;
  std::vector<std::string> names;
  bool done = false;
  reading = reader->Read("C:\\", attribute::Normal, [&](const FolderReader::Answer& first) {
    names = first.Names;
    reading = reader->Read("C:\\Photos", attribute::Normal, [&](const FolderReader::Answer& second) {
      names.insert(names.end(), second.Names.begin(), second.Names.end());
      reading.reset();
      done = true;
    });
  });
  EXPECT_TRUE(toolkit.WaitUntil([&] { return done; }));
  EXPECT_THAT(names, ElementsAre("Photos", "Trip 9", "Trip 10"));
}

TEST_F(FolderReaderContract, ReaderMayEndBeforeItsAnswers) {
  bool called = false;
  std::vector<std::unique_ptr<FolderReader::Reading>> readings;
  for (int i = 0; i < 20; ++i)
    readings.push_back(
        reader->Read("C:\\Photos", attribute::Normal, [&](const FolderReader::Answer&) { called = true; }));
  readings.clear();
  reader.reset();
  platform->Settle();
  EXPECT_FALSE(called);
}

// --- the clock
// ---------------------------------------------------------------------------------------------------------

using ClockContract = ContractTest;

TEST_F(ClockContract, CountTakesItsTimeAndCountsWhatFitsIntoIt) {
  Clock& clock = platform->GetClock();
  const double before = clock.Seconds();
  const std::int64_t count = clock.CountFor(0.05);
  EXPECT_GE(clock.Seconds() - before, 0.05);
  EXPECT_GT(count, 0);
  EXPECT_LE(count, 500);
  EXPECT_EQ(clock.CountFor(0), 0);
}

// --- what ships
// --------------------------------------------------------------------------------------------------------

using ShippedContract = ContractTest;

TEST_F(ShippedContract, PictureAndTextAreThereAndNothingElse) {
  Shipped& shipped = platform->GetShipped();
  EXPECT_TRUE(shipped.Bytes("Clouds.jpg").starts_with("\xFF\xD8\xFF"));
  EXPECT_TRUE(shipped.Bytes("Clouds.jpg").ends_with("\xFF\xD9"));
  EXPECT_GT(shipped.Bytes("Readme.txt").size(), 20U);
  EXPECT_EQ(ErrorOf([&] { shipped.Bytes("Other.txt"); }), error::FileNotFound);
}

}  // namespace
}  // namespace pixorra
