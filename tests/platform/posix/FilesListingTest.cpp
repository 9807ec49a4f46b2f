// Contract of Files: names in folders, attributes, and what is told of a path without opening it.
#include <algorithm>
#include <filesystem>

#include "platform/runtime/Text.h"
#include "tests/platform/posix/FilesContract.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class FilesListing : public FilesContract {};
PIXORRA_ON_ALL_FILES(FilesListing);

TEST_P(FilesListing, NamesMatchThePatternAndIgnoreCase) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.Write("C:\\p\\b.JPG", "1");
  drive_.Write("C:\\p\\c.bmp", "1");
  drive_.Write("C:\\p\\d.txt", "1");
  EXPECT_THAT(TheFiles().Names("C:\\p", "*.jpg;*.bmp", attribute::Normal),
              UnorderedElementsAre("a.jpg", "b.JPG", "c.bmp"));
}

TEST_P(FilesListing, TwoNamesThatDifferInCaseAreBothListed) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.Write("C:\\p\\A.JPG", "2");
  EXPECT_THAT(TheFiles().Names("C:\\p", "*.jpg", attribute::Normal), UnorderedElementsAre("a.jpg", "A.JPG"));
}

TEST_P(FilesListing, NothingButOrdinaryFilesAndLinksToThemIsListedByDefault) {
  drive_.Write("C:\\p\\file.jpg", "1");
  drive_.MakeLink("C:\\p\\link.jpg", "file.jpg");
  drive_.MakeLink("C:\\p\\nowhere.jpg", "missing");
  drive_.MakeLink("C:\\p\\tofolder.jpg", "folder.jpg");
  drive_.MakeLink("C:\\p\\loop.jpg", "loop.jpg");
  drive_.MakeFolder("C:\\p\\folder.jpg");
  drive_.MakeFifo("C:\\p\\fifo.jpg");
  drive_.Write("C:\\p\\.hidden.jpg", "1");
  EXPECT_THAT(TheFiles().Names("C:\\p", "*.jpg", attribute::Normal), UnorderedElementsAre("file.jpg", "link.jpg"));
}

TEST_P(FilesListing, EachAttributeAddsWhatItNames) {
  drive_.Write("C:\\p\\file", "1");
  drive_.Write("C:\\p\\.hidden", "1");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.MakeFolder("C:\\p\\.folder");
  drive_.MakeLink("C:\\p\\tofolder", "folder");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  drive_.MakeFifo("C:\\p\\fifo");
  Files& files = TheFiles();
  EXPECT_THAT(files.Names("C:\\p", "*.*", attribute::Hidden), UnorderedElementsAre("file", ".hidden"));
  EXPECT_THAT(files.Names("C:\\p", "*.*", attribute::Directory), UnorderedElementsAre("file", "folder", "tofolder"));
  EXPECT_THAT(files.Names("C:\\p", "*.*", attribute::System),
              UnorderedElementsAre("file", "fifo", "nowhere", "tofolder"));
  EXPECT_THAT(files.Names("C:\\p", "*.*", attribute::Hidden | attribute::System | attribute::Directory),
              UnorderedElementsAre("file", ".hidden", "folder", ".folder", "tofolder", "nowhere", "fifo"));
}

TEST_P(FilesListing, AFolderThatIsNotThereOrNoFolderIsEmpty) {
  drive_.Write("C:\\file", "1");
  EXPECT_THAT(TheFiles().Names("C:\\missing", "*.*", attribute::Normal), IsEmpty());
  EXPECT_THAT(TheFiles().Names("C:\\file", "*.*", attribute::Normal), IsEmpty());
  EXPECT_THAT(TheFiles().Names("Q:\\", "*.*", attribute::Normal), IsEmpty());
  EXPECT_THAT(TheFiles().Names("", "*.*", attribute::Normal), IsEmpty());
}

TEST_P(FilesListing, TheRootListsWithAndWithoutItsBackslash) {
  drive_.Write("C:\\file", "1");
  EXPECT_THAT(TheFiles().Names("C:\\", "*.*", attribute::Normal), ElementsAre("file"));
  EXPECT_THAT(TheFiles().Names("C:", "*.*", attribute::Normal), ElementsAre("file"));
}

TEST_P(FilesListing, AListedNameOpensTheFileThatItNames) {
  // Names that a backslash path has no room for, and those that a shell or a pattern would stumble over.
  const std::vector<std::string> hostNames = {"two  blanks .jpg",
                                              "it's \"quoted\".jpg",
                                              "100%41.jpg",
                                              "new\nline.jpg",
                                              "back\\slash.jpg",
                                              "a:b.jpg",
                                              "..\\..\\up.jpg",
                                              "C:\\x.jpg",
                                              "\xC3\xA4\xE6\x97\xA5.jpg",
                                              "latin\xE4.jpg",
                                              "\xEF\x81\x9C.jpg",
                                              "star*?.jpg",
                                              "-rf.jpg",
                                              " .jpg",
                                              std::string(251, 'x') + ".jpg"};
  drive_.MakeFolder("C:\\p");
  for (const std::string& hostName : hostNames) {
    const std::string hostPath = drive_.HostPath("C:\\p") + "/" + hostName;
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(hostPath.c_str(), "wb"), std::fclose);
    ASSERT_NE(file, nullptr) << hostName;
    std::fwrite(hostName.data(), 1, hostName.size(), file.get());
  }
  const std::vector<std::string> names = TheFiles().Names("C:\\p", "*.jpg", attribute::Hidden);
  std::vector<std::string> contents;
  for (const std::string& name : names) {
    EXPECT_EQ(name.find('\\'), std::string::npos);
    EXPECT_TRUE(TheFiles().FileExists("C:\\p\\" + name));
    contents.push_back(ReadWhole("C:\\p\\" + name));
  }
  EXPECT_THAT(contents, ::testing::UnorderedElementsAreArray(hostNames));
}

TEST_P(FilesListing, AttributesTellWhatStandsThere) {
  drive_.Write("C:\\p\\file", "1");
  drive_.Write("C:\\p\\readonly", "1");
  drive_.SetMode("C:\\p\\readonly", 0444);
  drive_.Write("C:\\p\\.hidden", "1");
  drive_.MakeFifo("C:\\p\\fifo");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  drive_.MakeLink("C:\\p\\tofolder", ".");
  drive_.MakeLink("C:\\p\\tofile", "readonly");
  Files& files = TheFiles();
  EXPECT_EQ(files.Attributes("C:\\p\\file"), attribute::Normal);
  EXPECT_EQ(files.Attributes("C:\\p\\readonly"), attribute::ReadOnly);
  EXPECT_EQ(files.Attributes("C:\\p\\.hidden"), attribute::Hidden);
  EXPECT_EQ(files.Attributes("C:\\p\\fifo"), attribute::System);
  EXPECT_EQ(files.Attributes("C:\\p\\nowhere"), attribute::System);
  EXPECT_EQ(files.Attributes("C:\\p\\tofolder"), attribute::Directory);
  EXPECT_EQ(files.Attributes("C:\\p\\tofile"), attribute::ReadOnly);
  EXPECT_EQ(files.Attributes("C:\\p"), attribute::Directory);
  EXPECT_EQ(files.Attributes("C:\\"), attribute::Directory);
  EXPECT_EQ(files.Attributes("C:"), attribute::Directory);
  EXPECT_EQ(files.Attributes("C:\\p\\missing"), std::nullopt);
  EXPECT_EQ(files.Attributes("C:\\p\\file\\below"), std::nullopt);
}

TEST_P(FilesListing, APathThatIsNoneHasNothingThere) {
  for (const char* path : {"", "\\", "\\\\", "\\\\server", "\\\\server\\share", "photo.jpg", "\\photo.jpg",
                           "C:photo.jpg", "Q:\\photo.jpg", "C:\\..", "C:\\.", "C:\\p/..", "C:\\p:x"}) {
    EXPECT_EQ(TheFiles().Attributes(path), std::nullopt) << path;
    EXPECT_FALSE(TheFiles().NameTaken(path)) << path;
    EXPECT_FALSE(TheFiles().IsLink(path)) << path;
  }
}

TEST_P(FilesListing, FilesAndFoldersAreToldApart) {
  drive_.Write("C:\\p\\file", "1");
  drive_.MakeFifo("C:\\p\\fifo");
  EXPECT_TRUE(TheFiles().FileExists("C:\\p\\file"));
  EXPECT_FALSE(TheFiles().FolderExists("C:\\p\\file"));
  EXPECT_TRUE(TheFiles().FolderExists("C:\\p\\"));
  EXPECT_FALSE(TheFiles().FileExists("C:\\p"));
  EXPECT_FALSE(TheFiles().FileExists("C:\\p\\fifo"));
}

TEST_P(FilesListing, ADanglingLinkCountsAsTaken) {
  drive_.MakeLink("C:\\p\\nowhere.jpg", "missing");
  EXPECT_TRUE(TheFiles().NameTaken("C:\\p\\nowhere.jpg"));
  EXPECT_TRUE(TheFiles().NameTaken("C:\\p\\NOWHERE.JPG"));
  EXPECT_TRUE(TheFiles().IsLink("C:\\p\\nowhere.jpg"));
  EXPECT_FALSE(TheFiles().FileExists("C:\\p\\nowhere.jpg"));
  EXPECT_FALSE(TheFiles().NameTaken("C:\\p\\missing"));
}

TEST_P(FilesListing, LinksThatGoRoundLeadNowhere) {
  drive_.MakeLink("C:\\p\\one", "two");
  drive_.MakeLink("C:\\p\\two", "one");
  EXPECT_TRUE(TheFiles().NameTaken("C:\\p\\one"));
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\one"), attribute::System);
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\one\\file"), std::nullopt);
  EXPECT_EQ(NumberOfOpen("C:\\p\\one", OpenMode::Read), error::PathAccess);
  EXPECT_EQ(NumberOfOpen("C:\\p\\one\\file", OpenMode::ReadWrite), error::PathAccess);
}

TEST_P(FilesListing, OneFileIsToldFromAnEqualOne) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.Write("C:\\p\\b.jpg", "1");
  drive_.MakeLink("C:\\p\\link", "a.jpg");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  std::filesystem::create_hard_link(drive_.HostPath("C:\\p\\a.jpg"), drive_.HostPath("C:\\p\\hard"));
  EXPECT_TRUE(TheFiles().IsSameFile("C:\\p\\a.jpg", "c:\\P\\A.JPG"));
  EXPECT_TRUE(TheFiles().IsSameFile("C:\\p\\a.jpg", "C:\\p\\link"));
  EXPECT_TRUE(TheFiles().IsSameFile("C:\\p\\hard", "C:\\p\\a.jpg"));
  EXPECT_FALSE(TheFiles().IsSameFile("C:\\p\\a.jpg", "C:\\p\\b.jpg"));
  EXPECT_FALSE(TheFiles().IsSameFile("C:\\p\\nowhere", "C:\\p\\nowhere"));
  EXPECT_FALSE(TheFiles().IsSameFile("C:\\p\\missing", "C:\\p\\missing"));
  EXPECT_FALSE(TheFiles().IsSameFile("", ""));
}

TEST_P(FilesListing, LookUpsIgnoreCaseComponentByComponent) {
  drive_.Write("C:\\Photos\\Summer\\A.jpg", "a");
  EXPECT_EQ(ReadWhole("c:\\pHOTOS\\SUMMER\\a.JPG"), "a");
  EXPECT_TRUE(TheFiles().FolderExists("C:\\photos\\summer"));
  EXPECT_TRUE(TheFiles().NameTaken("C:\\PHOTOS\\Summer\\a.jpg"));
  EXPECT_EQ(TheFiles().Length("C:\\photos\\SUMMER\\A.JPG"), 1);
}

TEST_P(FilesListing, LookUpsIgnoreTheCaseOfLettersBeyondAscii) {
  drive_.Write("C:\\\xC3\x84rger\\\xD0\x96.jpg", "a");
  EXPECT_EQ(ReadWhole("C:\\\xC3\xA4RGER\\\xD0\xB6.JPG"), "a");
}

TEST_P(FilesListing, AnExactMatchGoesBeforeAnotherCase) {
  drive_.Write("C:\\p\\A.jpg", "upper");
  drive_.Write("C:\\p\\a.jpg", "lower");
  drive_.Write("C:\\P2\\x", "upper folder");
  drive_.Write("C:\\p2\\x", "lower folder");
  EXPECT_EQ(ReadWhole("C:\\p\\A.jpg"), "upper");
  EXPECT_EQ(ReadWhole("C:\\p\\a.jpg"), "lower");
  EXPECT_EQ(ReadWhole("C:\\P2\\X"), "upper folder");
  EXPECT_EQ(ReadWhole("C:\\p2\\X"), "lower folder");
}

TEST_P(FilesListing, OfSeveralOtherCasesTheFirstByNameIsTakenWhateverTheirOrderOnTheDisk) {
  const std::vector<std::string> names = {"aB.jpg", "Ab.jpg", "AB.jpg", "ab.JPG", "aB.JPG"};
  const std::string first = *std::min_element(names.begin(), names.end(), NameLess);
  for (std::size_t turn = 0; turn < 8; ++turn) {
    const std::string folder = "C:\\" + std::to_string(turn) + "\\";
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string& name = names[(i + turn) % names.size()];
      drive_.Write(folder + name, name);
    }
    EXPECT_EQ(ReadWhole(folder + "ab.jpg"), first);
  }
}

TEST_P(FilesListing, DoubledAndFinalBackslashesCountForNothing) {
  drive_.Write("C:\\p\\q\\a.jpg", "a");
  EXPECT_EQ(ReadWhole("C:\\\\p\\\\q\\a.jpg"), "a");
  EXPECT_TRUE(TheFiles().FolderExists("C:\\p\\q\\\\"));
}

TEST_P(FilesListing, LengthIsInBytesAndThroughLinks) {
  drive_.Write("C:\\p\\a.jpg", "12345");
  drive_.MakeLink("C:\\p\\link", "a.jpg");
  drive_.Write("C:\\p\\empty", "");
  EXPECT_EQ(TheFiles().Length("C:\\p\\a.jpg"), 5);
  EXPECT_EQ(TheFiles().Length("C:\\p\\link"), 5);
  EXPECT_EQ(TheFiles().Length("C:\\p\\empty"), 0);
}

TEST_P(FilesListing, LengthOfWhatIsMissingTellsFileFromFolder) {
  drive_.MakeFolder("C:\\p");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  const auto number = [this](const std::string& path) { return ErrorsIgnored([&] { TheFiles().Length(path); }); };
  EXPECT_EQ(number("C:\\p\\missing"), error::FileNotFound);
  EXPECT_EQ(number("C:\\p\\nowhere"), error::FileNotFound);
  EXPECT_EQ(number("C:\\p"), error::FileNotFound);
  EXPECT_EQ(number("C:\\q\\missing"), error::PathNotFound);
  EXPECT_EQ(number("Q:\\missing"), error::PathNotFound);
  EXPECT_EQ(number("missing"), error::BadFileName);
}

TEST_P(FilesListing, FolderPathGivesTheDisksCaseAndOneSpelling) {
  drive_.MakeFolder("C:\\Photos\\Summer");
  drive_.MakeLink("C:\\Photos\\Link", "Summer");
  EXPECT_EQ(TheFiles().FolderPath("c:\\photos\\\\SUMMER\\"), "C:\\Photos\\Summer");
  EXPECT_EQ(TheFiles().FolderPath("C:\\Photos\\link"), "C:\\Photos\\Link");
  EXPECT_EQ(TheFiles().FolderPath("c:"), "C:\\");
  EXPECT_EQ(TheFiles().FolderPath("C:\\"), "C:\\");
}

TEST_P(FilesListing, FolderPathRaises76WhereThereIsNone) {
  drive_.Write("C:\\p\\file", "1");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  for (const char* path :
       {"", "C:\\missing", "C:\\p\\file", "C:\\p\\nowhere", "Q:\\", "\\\\server\\share", "C:\\p\\..", "p"})
    EXPECT_EQ(ErrorsIgnored([&] { TheFiles().FolderPath(path); }), error::PathNotFound) << path;
}

TEST_P(FilesListing, TheDriveIsListed) {
  const std::vector<Files::Drive> drives = TheFiles().Drives();
  ASSERT_EQ(drives.size(), 1U);
  EXPECT_EQ(drives[0].Root, "C:\\");
  EXPECT_EQ(drives[0].ShownName, "Test");
}

TEST_P(FilesListing, OnATestDrivePathsAreShownAsTheyAre) {
  EXPECT_EQ(TheFiles().ShownPath("C:\\p\\a.jpg"), "C:\\p\\a.jpg");
  EXPECT_EQ(TheFiles().ProgramPath("C:\\p\\a.jpg"), "C:\\p\\a.jpg");
  EXPECT_EQ(TheFiles().ProgramPath(drive_.HostRoot() + "/p/a.jpg"), "C:\\p\\a.jpg");
}

}  // namespace
}  // namespace pixorra
