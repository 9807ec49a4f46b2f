#include <gmock/gmock.h>

#include "platform/controls/ControlArray.h"
#include "platform/controls/FileListBox.h"
#include "tests/platform/controls/ModelTest.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FileListBoxTest : public ModelTest {
 protected:
  FileListBoxTest() {
    drive.MakeFolder("C:\\Photos");
    drive.MakeFolder("C:\\Empty");
    for (const char* name : {"B.JPG", "a.jpg", "c.txt", "A2.jpg"}) drive.Write(std::string("C:\\Photos\\") + name, "x");
    list.SetPattern("*.jpg");
    list.On().PathChange = [this](Control&) { Log("path " + list.Path() + " " + std::to_string(list.ListCount())); };
  }
  static std::vector<std::string> All(const FileListBox& box) {
    std::vector<std::string> names;
    for (int i = 0; i < box.ListCount(); ++i) names.push_back(box.List(i));
    return names;
  }

  TemporaryDrive drive;
  FileListBox list{form, "Files", drive.DriveFiles()};
};

TEST_F(FileListBoxTest, ListsAFolderSortedWithCaseIgnored) {
  list.SetPath("C:\\Photos");
  EXPECT_THAT(All(list), ElementsAre("a.jpg", "A2.jpg", "B.JPG"));
}

TEST_F(FileListBoxTest, FullPathIsTheNameInItsFolderOrRootWithOneBackslashBetween) {
  drive.Write("C:\\root.jpg", "x");
  list.Refresh();
  EXPECT_EQ(list.FullPath(0), "C:\\root.jpg");
  list.SetPath("C:\\Photos\\");
  EXPECT_EQ(list.FullPath(1), "C:\\Photos\\A2.jpg");
  EXPECT_EQ(ErrorOf([&] { list.FullPath(3); }), error::BadSubscript);
}

TEST_F(FileListBoxTest, NamesThatDifferInCaseAloneBothStand) {
  drive.Write("C:\\Photos\\A.JPG", "x");
  list.SetPath("C:\\Photos");
  EXPECT_THAT(All(list), ElementsAre("A.JPG", "a.jpg", "A2.jpg", "B.JPG"));
}

TEST_F(FileListBoxTest, WhatIsAddedRenamedAndDeletedIsInItsPlaceAfterARefresh) {
  list.SetPath("C:\\Photos");
  for (const char* name : {"0.jpg", "b.jpg", "z.jpg", "a10.jpg"}) drive.Write(std::string("C:\\Photos\\") + name, "x");
  drive.Remove("C:\\Photos\\A2.jpg");
  drive.DriveFiles().Rename("C:\\Photos\\a.jpg", "C:\\Photos\\x.jpg");
  list.Refresh();
  EXPECT_THAT(All(list), ElementsAre("0.jpg", "a10.jpg", "B.JPG", "b.jpg", "x.jpg", "z.jpg"));
  list.Refresh();
  EXPECT_THAT(All(list), ElementsAre("0.jpg", "a10.jpg", "B.JPG", "b.jpg", "x.jpg", "z.jpg"));
}

TEST_F(FileListBoxTest, TheNamesOfAnotherListAreTakenOnlyForTheSameFolderAndPattern) {
  FileListBox other(form, "Other", drive.DriveFiles());
  other.SetPattern("*.jpg");
  other.SetPath("C:\\Photos");
  list.SetPath("C:\\Photos");
  drive.Write("C:\\Photos\\new.jpg", "x");
  const unsigned before = list.Generation();
  list.RefreshAs(other);
  EXPECT_THAT(All(list), ElementsAre("a.jpg", "A2.jpg", "B.JPG")) << "as the other one has them";
  EXPECT_NE(list.Generation(), before);
  other.SetPattern("*.txt");
  list.RefreshAs(other);
  EXPECT_THAT(All(list), ElementsAre("a.jpg", "A2.jpg", "B.JPG", "new.jpg"));
  other.SetPattern("*.jpg");
  other.SetPath("C:\\Empty");
  list.RefreshAs(other);
  EXPECT_EQ(list.ListCount(), 4);
}

TEST_F(FileListBoxTest, PathChangeComesWithADifferentPathOnlyAndSeesItsFiles) {
  list.SetPath("C:\\Photos");
  list.SetPath("C:\\Photos\\");
  list.SetPath("c:\\PHOTOS");
  EXPECT_THAT(Heard(), ElementsAre("path C:\\Photos 3"));
  list.SetPath("C:\\Empty");
  EXPECT_THAT(Heard(), ElementsAre("path C:\\Empty 0"));
}

TEST_F(FileListBoxTest, FolderThatIsNotThereRaises76AndKeepsThePath) {
  list.SetPath("C:\\Photos");
  Heard();
  EXPECT_EQ(ErrorOf([&] { list.SetPath("C:\\Missing"); }), error::PathNotFound);
  EXPECT_EQ(list.Path(), "C:\\Photos");
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(FileListBoxTest, RefreshSeesWhatHasChangedAndAFolderThatHasGone) {
  list.SetPath("C:\\Photos");
  drive.Write("C:\\Photos\\new.jpg", "x");
  EXPECT_EQ(list.ListCount(), 3);
  const unsigned generation = list.Generation();
  list.Refresh();
  EXPECT_EQ(list.ListCount(), 4);
  EXPECT_NE(list.Generation(), generation);
  drive.Remove("C:\\Photos");
  list.Refresh();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.Path(), "C:\\Photos");
}

TEST_F(FileListBoxTest, AnotherPatternListsAnew) {
  list.SetPath("C:\\Photos");
  list.SetPattern("*.txt;*.JPG");
  EXPECT_EQ(list.ListCount(), 4);
  EXPECT_THAT(Heard(), ElementsAre("path C:\\Photos 3"));
}

TEST_F(FileListBoxTest, SamePatternAndPathAreNotReadAgain) {
  FaultyFiles counted(drive.DriveFiles());
  FileListBox box(form, "Counted", counted);
  box.SetPath("C:\\Photos");
  const int calls = counted.Count(FileCall::Names);
  box.SetPath("C:\\Photos");
  box.SetPattern("");
  EXPECT_EQ(counted.Count(FileCall::Names), calls);
}

TEST_F(FileListBoxTest, TheSamePatternsInAnotherOrderAreNotReadAgain) {
  FaultyFiles counted(drive.DriveFiles());
  FileListBox box(form, "Counted", counted);
  box.SetPattern("*.jpg;*.txt");
  box.SetPath("C:\\Photos");
  const int calls = counted.Count(FileCall::Names);
  box.SetPattern("*.txt;*.jpg");
  EXPECT_EQ(counted.Count(FileCall::Names), calls);
  EXPECT_EQ(box.Pattern(), "*.txt;*.jpg");
  EXPECT_EQ(box.ListCount(), 4);
  box.SetPattern("*.txt;*.txt");
  EXPECT_EQ(box.ListCount(), 1);
}

TEST_F(FileListBoxTest, EntryOutsideTheListRaises9) {
  list.SetPath("C:\\Photos");
  EXPECT_EQ(ErrorOf([&] { list.List(3); }), error::BadSubscript);
  EXPECT_EQ(ErrorOf([&] { list.List(-1); }), error::BadSubscript);
}

TEST_F(FileListBoxTest, RootIsReadAlthoughEveryListBeginsThere) {
  drive.Write("C:\\root.txt", "x");
  FileListBox box(form, "Root", drive.DriveFiles());
  box.SetPath("C:\\");
  EXPECT_THAT(All(box), ElementsAre("root.txt"));
}

TEST_F(FileListBoxTest, LoadedElementHasItsTemplatesFolderAndFiles) {
  ControlArray<FileListBox> array(form, "Array", drive.DriveFiles());
  array(0).SetPattern("*.jpg");
  array(0).SetPath("C:\\Photos");
  FileListBox& one = array.Load(1);
  EXPECT_EQ(one.Path(), "C:\\Photos");
  EXPECT_EQ(one.ListCount(), 3);
  one.SetPath("C:\\Empty");
  EXPECT_EQ(array(0).Path(), "C:\\Photos");
}

TEST_F(FileListBoxTest, HandlerMaySetAnotherPath) {
  list.On().PathChange = [this](Control&) {
    Log(list.Path());
    list.SetPath("C:\\Empty");
  };
  list.SetPath("C:\\Photos");
  EXPECT_THAT(Heard(), ElementsAre("C:\\Photos", "C:\\Empty"));
}

}  // namespace
}  // namespace pixorra
