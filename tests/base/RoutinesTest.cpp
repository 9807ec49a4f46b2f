// The path and name helpers at their edges.
#include <gtest/gtest.h>

#include "base/Routines.h"
#include "platform/services/Places.h"

namespace pixorra {
namespace {

// Folders of a host that has a desktop and a drive for a home, and nothing else.
class FewPlaces : public Places {
 public:
  std::string ProgramFolder() override { return "C:\\program"; }
  std::string WindowsFolder() override { return windowsFolder; }
  std::string TemporaryFolder() override { return "C:\\cache"; }
  std::string SpecialFolder(int number) override { return number == 16 ? "C:\\home\\anna\\Desktop" : ""; }
  std::vector<std::string> KeptFolders() override { return {}; }
  std::string HomeFolder() override { return {}; }
  std::vector<std::string> UserFolders() override { return {}; }
  std::vector<Bookmark> Bookmarks() override { return {}; }

  std::string windowsFolder = "C:\\config";
};

TEST(StripTrailingBackslash, TakesExactlyOne) {
  EXPECT_EQ(StripTrailingBackslash("C:\\\\"), "C:\\");
  EXPECT_EQ(StripTrailingBackslash("C:\\"), "C:");
  EXPECT_EQ(StripTrailingBackslash("\\"), "");
}

TEST(StripTrailingBackslash, LeavesOtherTextsAsTheyAre) {
  EXPECT_EQ(StripTrailingBackslash(""), "");
  EXPECT_EQ(StripTrailingBackslash("C:\\dir"), "C:\\dir");
}

TEST(StripTrailingBackslash, DoesNotChangeTheCallersVariable) {
  std::string path = "C:\\dir\\";
  EXPECT_EQ(StripTrailingBackslash(path), "C:\\dir");
  EXPECT_EQ(path, "C:\\dir\\");
}

TEST(FileNameOf, IsWhatFollowsTheLastBackslash) {
  std::string path = "C:\\dir\\photo.jpg";
  EXPECT_EQ(FileNameOf(&path), "photo.jpg");
  EXPECT_EQ(path, "C:\\dir\\photo.jpg");
}

TEST(FileNameOf, OfATextWithoutABackslashIsEmptyAndTheVariableUnchanged) {
  std::string path = "photo.jpg";
  EXPECT_EQ(FileNameOf(&path), "");
  EXPECT_EQ(path, "photo.jpg");
}

TEST(FileNameOf, OfAFolderWithABackslashIsTheFolderAndTheVariableLosesIt) {
  std::string path = "C:\\dir\\";
  EXPECT_EQ(FileNameOf(&path), "dir");
  EXPECT_EQ(path, "C:\\dir");
}

TEST(FileNameOf, LosesOnlyOneBackslash) {
  std::string path = "C:\\dir\\\\";
  EXPECT_EQ(FileNameOf(&path), "");
  EXPECT_EQ(path, "C:\\dir\\");
}

TEST(FileNameOf, OfADriveRootIsEmpty) {
  std::string path = "C:\\";
  EXPECT_EQ(FileNameOf(&path), "");
  EXPECT_EQ(path, "C:");
  std::string empty;
  EXPECT_EQ(FileNameOf(&empty), "");
}

TEST(FileNameOf, APathThatIsNotPointedToGivesTheSameAndStays) {
  std::string path = "C:\\dir\\";
  EXPECT_EQ(FileNameOf(path), "dir");
  EXPECT_EQ(path, "C:\\dir\\");
  EXPECT_EQ(FileNameOf("C:\\a\\b"), "b");
}

TEST(BaseNameOf, CutsAtTheFirstFullStop) {
  EXPECT_EQ(BaseNameOf("C:\\IMG.001.JPG"), "IMG");
  EXPECT_EQ(BaseNameOf("C:\\dir\\photo"), "photo");
  EXPECT_EQ(BaseNameOf("C:\\dir\\.hidden"), "");
}

TEST(BaseNameOf, SearchesOnlyTheFileNameForTheFullStop) {
  EXPECT_EQ(BaseNameOf("C:\\x.y\\photo"), "photo");
}

TEST(BaseNameOf, OfATextWithoutABackslashIsEmpty) {
  EXPECT_EQ(BaseNameOf("photo.jpg"), "");
}

TEST(BaseNameOf, TheVariableLosesItsFinalBackslash) {
  std::string path = "C:\\x.y\\";
  EXPECT_EQ(BaseNameOf(&path), "x");
  EXPECT_EQ(path, "C:\\x.y");
}

TEST(FolderDisplayName, OfAPathWithAFinalBackslashIsThePathWhole) {
  EXPECT_EQ(FolderDisplayName("C:\\dir\\"), "C:\\dir\\");
  EXPECT_EQ(FolderDisplayName("E:\\"), "E:\\");
}

TEST(FolderDisplayName, OfAPathWithoutItIsTheLastName) {
  EXPECT_EQ(FolderDisplayName("C:\\dir"), "dir");
  EXPECT_EQ(FolderDisplayName("C:\\dir.x\\sub dir"), "sub dir");
}

TEST(FolderDisplayName, OfATextWithoutABackslashIsEmpty) {
  EXPECT_EQ(FolderDisplayName("C:"), "");
  EXPECT_EQ(FolderDisplayName(""), "");
}

TEST(FolderDisplayName, NeverRewritesTheVariable) {
  std::string path = "D:\\Photos\\";
  EXPECT_EQ(FolderDisplayName(path), "D:\\Photos\\");
  EXPECT_EQ(path, "D:\\Photos\\");
}

TEST(ParentPathOf, KeepsTheLastBackslash) {
  std::string path = "C:\\A\\B";
  EXPECT_EQ(ParentPathOf(&path), "C:\\A\\");
  EXPECT_EQ(path, "C:\\A\\B");
}

TEST(ParentPathOf, TheVariableLosesItsFinalBackslash) {
  std::string path = "C:\\A\\B\\";
  EXPECT_EQ(ParentPathOf(&path), "C:\\A\\");
  EXPECT_EQ(path, "C:\\A\\B");
}

TEST(ParentPathOf, OfWhatHasNoParentIsEmpty) {
  EXPECT_EQ(ParentPathOf(""), "");
  EXPECT_EQ(ParentPathOf("photo.jpg"), "");
  std::string root = "C:\\";
  EXPECT_EQ(ParentPathOf(&root), "");
  EXPECT_EQ(root, "C:");
}

TEST(IsRootPath, ADriveIsARootWithAndWithoutItsBackslash) {
  EXPECT_TRUE(IsRootPath("C:"));
  EXPECT_TRUE(IsRootPath("C:\\"));
  EXPECT_TRUE(IsRootPath("é:\\"));
}

TEST(IsRootPath, AFolderOnADriveIsNone) {
  EXPECT_FALSE(IsRootPath("C:\\x"));
  EXPECT_FALSE(IsRootPath("C:\\x\\"));
  EXPECT_FALSE(IsRootPath("C:\\\\"));
  EXPECT_FALSE(IsRootPath("C"));
  EXPECT_FALSE(IsRootPath("CC:"));
  EXPECT_FALSE(IsRootPath(":"));
  EXPECT_FALSE(IsRootPath(""));
}

TEST(IsRootPath, AShareIsARootAndItsFoldersAreNot) {
  EXPECT_TRUE(IsRootPath("\\\\server\\share"));
  EXPECT_TRUE(IsRootPath("\\\\server\\share\\"));
  EXPECT_FALSE(IsRootPath("\\\\server\\share\\dir"));
  EXPECT_FALSE(IsRootPath("\\\\server\\share\\dir\\"));
}

TEST(IsRootPath, AServerAloneIsNoRoot) {
  EXPECT_FALSE(IsRootPath("\\\\srv"));
  EXPECT_FALSE(IsRootPath("\\\\srv\\"));
  EXPECT_FALSE(IsRootPath("\\\\"));
}

TEST(IsRootPath, RewritesOnlyNetworkPaths) {
  std::string drive = "C:\\";
  EXPECT_TRUE(IsRootPath(&drive));
  EXPECT_EQ(drive, "C:\\");
  std::string folder = "C:\\x\\";
  EXPECT_FALSE(IsRootPath(&folder));
  EXPECT_EQ(folder, "C:\\x\\");
  std::string share = "\\\\server\\share\\";
  EXPECT_TRUE(IsRootPath(&share));
  EXPECT_EQ(share, "\\\\server\\share");
}

TEST(SpecialFolderPath, EndsInABackslash) {
  FewPlaces places;
  EXPECT_EQ(SpecialFolderPath(places, 16), "C:\\home\\anna\\Desktop\\");
}

TEST(SpecialFolderPath, IsEmptyWhereTheHostHasNoSuchFolder) {
  FewPlaces places;
  EXPECT_EQ(SpecialFolderPath(places, 3), "");
}

TEST(WindowsFolderPath, IsTrimmedAndEndsInABackslash) {
  FewPlaces places;
  EXPECT_EQ(WindowsFolderPath(places), "C:\\config\\");
  places.windowsFolder = " C:\\config ";
  EXPECT_EQ(WindowsFolderPath(places), "C:\\config\\");
}

TEST(JoinPath, PutsOneBackslashBetween) {
  EXPECT_EQ(JoinPath("C:\\dir", "a.jpg"), "C:\\dir\\a.jpg");
  EXPECT_EQ(JoinPath("C:\\dir\\", "a.jpg"), "C:\\dir\\a.jpg");
  EXPECT_EQ(JoinPath("C:\\", "a.jpg"), "C:\\a.jpg");
}

TEST(CountCaption, OfNothingIsEmptyWithALeadingBlank) {
  EXPECT_EQ(CountCaption(0), " Empty");
}

TEST(CountCaption, HasNoSingular) {
  EXPECT_EQ(CountCaption(1), "1 pics");
  EXPECT_EQ(CountCaption(32767), "32767 pics");
}

}  // namespace
}  // namespace pixorra
