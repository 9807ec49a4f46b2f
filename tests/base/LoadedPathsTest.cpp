// Finding the next photo of a list without a place: the same answers as a plain search, at the same cost however many
// photos there are.
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "base/LoadedPaths.h"
#include "platform/controls/Form.h"
#include "platform/headless/HeadlessPlatform.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class LoadedPathsTest : public ::testing::Test {
 protected:
  void WriteFiles(const std::vector<std::string>& names) {
    for (const std::string& name : names) drive.Write("C:\\P\\" + name, "");
    list.Refresh();
  }
  std::string Next() {
    return paths.FirstMissing(list, [this](int place) -> const std::string& {
      ++looks;
      return places[static_cast<std::size_t>(place)];
    });
  }
  // As a plain scan of all places for each entry finds it.
  std::string PlainNext() const {
    for (int i = 0; i < list.ListCount(); ++i) {
      const std::string path = "C:\\P\\" + list.List(i);
      if (std::find(places.begin() + 1, places.end(), path) == places.end()) return path;
    }
    return {};
  }
  void Add(const std::string& path) {
    places.push_back(path);
    paths.Add(path, static_cast<int>(places.size()) - 1);
  }
  void AddAll() {
    for (std::string path = Next(); !path.empty(); path = Next()) Add(path);
  }

  TemporaryDrive drive;
  HeadlessPlatform platform;
  Form form{platform.toolkit, "Form"};
  FileListBox list{form, "List", drive.DriveFiles()};
  LoadedPaths paths;
  std::vector<std::string> places{""};  // from 1
  long looks = 0;

  void SetUp() override {
    drive.MakeFolder("C:\\P");
    list.SetPath("C:\\P");
  }
};

TEST_F(LoadedPathsTest, AnEmptyListHasNothingMissing) {
  EXPECT_EQ(Next(), "");
}

TEST_F(LoadedPathsTest, EntriesComeInTheListsOrder) {
  WriteFiles({"b", "A", "c"});
  AddAll();
  EXPECT_EQ(places, (std::vector<std::string>{"", "C:\\P\\A", "C:\\P\\b", "C:\\P\\c"}));
}

TEST_F(LoadedPathsTest, TheSameEntryIsMissingUntilItHasAPlace) {
  WriteFiles({"a", "b"});
  EXPECT_EQ(Next(), "C:\\P\\a");
  EXPECT_EQ(Next(), "C:\\P\\a");
  Add("C:\\P\\b");
  EXPECT_EQ(Next(), "C:\\P\\a");
  Add("C:\\P\\a");
  EXPECT_EQ(Next(), "");
}

TEST_F(LoadedPathsTest, ALateFileAheadInTheListIsFoundOnceTheListIsReadAgain) {
  WriteFiles({"b", "c"});
  AddAll();
  WriteFiles({"a"});
  EXPECT_EQ(Next(), "C:\\P\\a");
}

TEST_F(LoadedPathsTest, AFileWhosePlaceHasGoneIsMissingAgain) {
  WriteFiles({"a", "b", "c"});
  AddAll();
  places[2].clear();
  paths.StartOver();
  EXPECT_EQ(Next(), "C:\\P\\b");
}

TEST_F(LoadedPathsTest, AfterClearEverythingIsMissing) {
  WriteFiles({"a", "b"});
  AddAll();
  paths.Clear();
  places = {""};
  EXPECT_EQ(Next(), "C:\\P\\a");
}

TEST_F(LoadedPathsTest, AnswersAsAPlainSearchWouldWhateverHappens) {
  std::mt19937 random(20040615);
  const auto upTo = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int step = 0; step < 600; ++step) {
    const int what = upTo(10);
    const std::string name = std::to_string(upTo(40));
    if (what < 2) {
      WriteFiles({name});
    } else if (what == 2 && drive.Exists("C:\\P\\" + name)) {
      drive.Remove("C:\\P\\" + name);
      list.Refresh();
    } else if (what == 3 && places.size() > 1) {
      const auto place = static_cast<std::size_t>(1 + upTo(static_cast<int>(places.size()) - 1));
      places[place] = upTo(2) == 0 ? "" : "C:\\P\\renamed" + name;
      if (!places[place].empty()) paths.Add(places[place], static_cast<int>(place));
      paths.StartOver();
    } else if (const std::string path = Next(); !path.empty()) {
      Add(path);
    }
    ASSERT_EQ(Next(), PlainNext()) << "step " << step;
  }
  EXPECT_GT(places.size(), 10U);
}

TEST_F(LoadedPathsTest, TheThousandthPhotoIsFoundInAsFewStepsAsTheFirst) {
  std::vector<std::string> names;
  for (int i = 0; i < 1000; ++i) names.push_back(std::to_string(10000 + i));
  WriteFiles(names);
  long most = 0;
  for (int i = 0; i < 1000; ++i) {
    looks = 0;
    const std::string path = Next();
    ASSERT_EQ(path, "C:\\P\\" + names[static_cast<std::size_t>(i)]);
    most = std::max(most, looks);
    Add(path);
  }
  EXPECT_LE(most, 1);
  looks = 0;
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(Next(), "");
  EXPECT_LE(looks, 1) << "a strip that is complete is not searched again";
}

TEST_F(LoadedPathsTest, TheMissingOnesComeInTheListsOrderAndNoMoreThanAskedFor) {
  const auto missing = [this](int most) {
    return paths.Missing(
        list, [this](int place) -> const std::string& { return places[static_cast<std::size_t>(place)]; }, most);
  };
  EXPECT_TRUE(missing(3).empty());
  WriteFiles({"a", "b", "c", "d", "e"});
  Add("C:\\P\\a");
  Add("C:\\P\\c");
  EXPECT_EQ(missing(2), (std::vector<std::string>{"C:\\P\\b", "C:\\P\\d"}));
  EXPECT_EQ(missing(9), (std::vector<std::string>{"C:\\P\\b", "C:\\P\\d", "C:\\P\\e"}));
  EXPECT_EQ(Next(), "C:\\P\\b") << "asking passes nothing over";
  AddAll();
  EXPECT_TRUE(missing(3).empty());
}

}  // namespace
}  // namespace pixorra
