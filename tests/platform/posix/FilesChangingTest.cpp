// Contract of Files: deleting, renaming, folders and attributes.
#include <sys/stat.h>

#include "tests/platform/posix/FilesContract.h"

namespace pixorra {
namespace {

class FilesChanging : public FilesContract {
 protected:
  int NumberOfDelete(const std::string& path) {
    return ErrorsIgnored([&] { TheFiles().Delete(path); });
  }
  int NumberOfRename(const std::string& from, const std::string& to) {
    return ErrorsIgnored([&] { TheFiles().Rename(from, to); });
  }
  int NumberOfMakeFolder(const std::string& path) {
    return ErrorsIgnored([&] { TheFiles().MakeFolder(path); });
  }
  int NumberOfRemoveFolder(const std::string& path) {
    return ErrorsIgnored([&] { TheFiles().RemoveFolder(path); });
  }
};
PIXORRA_ON_ALL_FILES(FilesChanging);

TEST_P(FilesChanging, DeleteLeavesAFileOfAnotherCaseWhereTheDiskTellsThemApart) {
  drive_.Write("C:\\p\\a.jpg", "1");
  EXPECT_EQ(NumberOfDelete("C:\\p\\A.JPG"), error::FileNotFound);
  EXPECT_EQ(drive_.Read("C:\\p\\a.jpg"), "1");
  EXPECT_EQ(NumberOfDelete("C:\\P\\a.jpg"), error::FileNotFound) << "another folder, perhaps";
  EXPECT_EQ(drive_.Read("C:\\p\\a.jpg"), "1");
  TheFiles().Delete("C:\\p\\a.jpg");
  EXPECT_FALSE(drive_.Exists("C:\\p\\a.jpg"));
}

TEST_P(FilesChanging, DeleteTakesOnlyTheFileOfTheExactCaseWhereBothAreThere) {
  drive_.Write("C:\\p\\a.jpg", "1");
  drive_.Write("C:\\p\\A.jpg", "2");
  TheFiles().Delete("C:\\p\\A.jpg");
  EXPECT_TRUE(drive_.Exists("C:\\p\\a.jpg"));
  EXPECT_FALSE(drive_.Exists("C:\\p\\A.jpg"));
}

TEST_P(FilesChanging, DeleteTakesALinkItselfAndNotItsTarget) {
  drive_.Write("C:\\p\\target", "keep");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.MakeLink("C:\\p\\link", "target");
  drive_.MakeLink("C:\\p\\tofolder", "folder");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  for (const char* path : {"C:\\p\\link", "C:\\p\\tofolder", "C:\\p\\nowhere"}) {
    TheFiles().Delete(path);
    EXPECT_FALSE(drive_.Exists(path)) << path;
  }
  EXPECT_EQ(drive_.Read("C:\\p\\target"), "keep");
  EXPECT_TRUE(drive_.Exists("C:\\p\\folder"));
}

TEST_P(FilesChanging, DeleteNeverTakesAFolder) {
  drive_.MakeFolder("C:\\p");
  EXPECT_EQ(NumberOfDelete("C:\\p"), error::PathAccess);
  EXPECT_EQ(NumberOfDelete("C:\\"), error::PathAccess);
  EXPECT_TRUE(drive_.Exists("C:\\p"));
}

TEST_P(FilesChanging, DeleteOfWhatIsMissingTellsFileFromFolder) {
  drive_.MakeFolder("C:\\p");
  EXPECT_EQ(NumberOfDelete("C:\\p\\a"), error::FileNotFound);
  EXPECT_EQ(NumberOfDelete("C:\\q\\a"), error::PathNotFound);
  EXPECT_EQ(NumberOfDelete("C:\\p\\.."), error::BadFileName);
}

TEST_P(FilesChanging, AnOpenFileOutlivesItsName) {
  drive_.Write("C:\\p\\a", "still here");
  const std::unique_ptr<File> file = TheFiles().Open("C:\\p\\a", OpenMode::Read);
  TheFiles().Delete("C:\\p\\a");
  EXPECT_EQ(file->Length(), 10);
}

TEST_P(FilesChanging, RenameMovesAFileToAFreeName) {
  drive_.Write("C:\\p\\a.jpg", "a");
  drive_.MakeFolder("C:\\q");
  TheFiles().Rename("C:\\P\\A.jpg", "C:\\Q\\b.jpg");
  EXPECT_EQ(drive_.Read("C:\\q\\b.jpg"), "a");
  EXPECT_FALSE(drive_.Exists("C:\\p\\a.jpg"));
}

TEST_P(FilesChanging, RenameNeverReplaces) {
  drive_.Write("C:\\p\\a", "a");
  drive_.Write("C:\\p\\b", "b");
  drive_.Write("C:\\p\\Other", "o");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  drive_.MakeFolder("C:\\p\\empty");
  drive_.MakeFolder("C:\\folder");
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\b"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\OTHER"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\nowhere"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\empty"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\folder", "C:\\p\\empty"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\a"), error::FileExists);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\"), error::FileExists);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "a");
  EXPECT_EQ(drive_.Read("C:\\p\\b"), "b");
  EXPECT_EQ(drive_.Read("C:\\p\\Other"), "o");
}

TEST_P(FilesChanging, RenameOverPutsAFileInTheOthersPlace) {
  drive_.Write("C:\\p\\new", "new");
  drive_.Write("C:\\p\\old", "old");
  TheFiles().RenameOver("C:\\p\\new", "C:\\p\\old");
  EXPECT_EQ(drive_.Read("C:\\p\\old"), "new");
  EXPECT_FALSE(drive_.Exists("C:\\p\\new"));
  TheFiles().RenameOver("C:\\p\\old", "C:\\p\\free");
  EXPECT_EQ(drive_.Read("C:\\p\\free"), "new");
}

TEST_P(FilesChanging, RenameOverKeepsThePermissionsOfTheFileThatItReplaces) {
  drive_.Write("C:\\p\\new", "new");
  drive_.Write("C:\\p\\old", "old");
  drive_.SetMode("C:\\p\\old", 0600);
  TheFiles().RenameOver("C:\\p\\new", "C:\\p\\old");
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\p\\old").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0600U);
}

TEST_P(FilesChanging, RenameOverTakesThePlaceOfNoFolderAndNoLink) {
  drive_.Write("C:\\p\\new", "new");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.Write("C:\\p\\target", "target");
  drive_.MakeLink("C:\\p\\link", "target");
  for (const char* to : {"C:\\p\\folder", "C:\\p\\link"})
    EXPECT_EQ(ErrorsIgnored([&] { TheFiles().RenameOver("C:\\p\\new", to); }), error::PathAccess) << to;
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().RenameOver("C:\\p\\gone", "C:\\p\\x"); }), error::FileNotFound);
  EXPECT_EQ(drive_.Read("C:\\p\\new"), "new");
}

TEST_P(FilesChanging, LinkOrCopyKeepsAFileWithItsPermissionsWhateverTakesItsPlace) {
  drive_.Write("C:\\p\\new", "new");
  drive_.Write("C:\\p\\old", "old");
  drive_.SetMode("C:\\p\\old", 0600);
  TheFiles().LinkOrCopy("C:\\p\\old", "C:\\p\\kept");
  EXPECT_EQ(drive_.Read("C:\\p\\old"), "old");
  TheFiles().RenameOver("C:\\p\\new", "C:\\p\\old");
  EXPECT_EQ(drive_.Read("C:\\p\\old"), "new");
  EXPECT_EQ(drive_.Read("C:\\p\\kept"), "old");
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\p\\kept").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0600U);
}

TEST_P(FilesChanging, LinkOrCopyNeverReplaces) {
  drive_.Write("C:\\p\\a", "a");
  drive_.Write("C:\\p\\Other", "o");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.MakeLink("C:\\p\\nowhere", "missing");
  for (const char* to : {"C:\\p\\a", "C:\\p\\Other", "C:\\p\\OTHER", "C:\\p\\folder", "C:\\p\\nowhere"})
    EXPECT_EQ(ErrorsIgnored([&] { TheFiles().LinkOrCopy("C:\\p\\a", to); }), error::FileExists) << to;
  EXPECT_EQ(drive_.Read("C:\\p\\Other"), "o");
  EXPECT_FALSE(drive_.Exists("C:\\p\\missing"));
}

TEST_P(FilesChanging, LinkOrCopyTakesNoFolderAndNoLinkAndTellsWhatIsMissing) {
  drive_.Write("C:\\p\\a", "a");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.MakeLink("C:\\p\\link", "a");
  const auto failureOf = [this](const std::string& from, const std::string& to) {
    return ErrorsIgnored([&] { TheFiles().LinkOrCopy(from, to); });
  };
  EXPECT_EQ(failureOf("C:\\p\\folder", "C:\\p\\b"), error::PathAccess);
  EXPECT_EQ(failureOf("C:\\p\\link", "C:\\p\\b"), error::PathAccess);
  EXPECT_EQ(failureOf("C:\\p\\gone", "C:\\p\\b"), error::FileNotFound);
  EXPECT_EQ(failureOf("C:\\p\\a", "C:\\q\\b"), error::PathNotFound);
  EXPECT_FALSE(drive_.Exists("C:\\p\\b"));
}

TEST_P(FilesChanging, RenameChangesTheCaseOfAName) {
  drive_.Write("C:\\p\\a.jpg", "a");
  TheFiles().Rename("C:\\p\\a.jpg", "C:\\p\\A.JPG");
  EXPECT_EQ(drive_.Read("C:\\p\\A.JPG"), "a");
  EXPECT_FALSE(drive_.Exists("C:\\p\\a.jpg"));
  TheFiles().Rename("C:\\P", "C:\\Photos");
  TheFiles().Rename("C:\\Photos", "C:\\PHOTOS");
  EXPECT_EQ(drive_.Read("C:\\PHOTOS\\A.JPG"), "a");
}

TEST_P(FilesChanging, RenameMovesAFolderWithAllInIt) {
  drive_.Write("C:\\old\\sub\\a", "a");
  TheFiles().Rename("C:\\old", "C:\\new name");
  EXPECT_EQ(drive_.Read("C:\\new name\\sub\\a"), "a");
}

TEST_P(FilesChanging, RenameMovesALinkItself) {
  drive_.Write("C:\\p\\target", "keep");
  drive_.MakeLink("C:\\p\\link", "target");
  TheFiles().Rename("C:\\p\\link", "C:\\p\\other");
  EXPECT_TRUE(TheFiles().IsLink("C:\\p\\other"));
  EXPECT_EQ(drive_.Read("C:\\p\\target"), "keep");
}

TEST_P(FilesChanging, RenameTellsWhatIsMissing) {
  drive_.Write("C:\\p\\a", "a");
  EXPECT_EQ(NumberOfRename("C:\\p\\missing", "C:\\p\\b"), error::FileNotFound);
  EXPECT_EQ(NumberOfRename("C:\\q\\missing", "C:\\p\\b"), error::PathNotFound);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\q\\b"), error::PathNotFound);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\.."), error::BadFileName);
  EXPECT_EQ(NumberOfRename("C:\\p\\a", "C:\\p\\x:y"), error::BadFileName);
  EXPECT_EQ(NumberOfRename("C:\\", "C:\\p\\b"), error::PathAccess);
  EXPECT_EQ(drive_.Read("C:\\p\\a"), "a");
}

TEST_P(FilesChanging, MakeFolderMakesOneAndNotItsParents) {
  TheFiles().MakeFolder("C:\\New Folder");
  EXPECT_TRUE(TheFiles().FolderExists("C:\\New Folder"));
  TheFiles().MakeFolder("C:\\NEW FOLDER\\Sub");
  EXPECT_TRUE(drive_.Exists("C:\\New Folder\\Sub"));
  EXPECT_EQ(NumberOfMakeFolder("C:\\missing\\Sub"), error::PathNotFound);
}

TEST_P(FilesChanging, MakeFolderRaises58WhereTheNameIsTaken) {
  drive_.MakeFolder("C:\\Folder");
  drive_.Write("C:\\File", "1");
  drive_.MakeLink("C:\\nowhere", "missing");
  for (const char* path : {"C:\\Folder", "C:\\FOLDER", "C:\\file", "C:\\nowhere", "C:\\"})
    EXPECT_EQ(NumberOfMakeFolder(path), error::FileExists) << path;
  EXPECT_FALSE(drive_.Exists("C:\\missing"));
}

TEST_P(FilesChanging, RemoveFolderTakesOnlyAnEmptyOne) {
  drive_.MakeFolder("C:\\p\\empty");
  drive_.Write("C:\\p\\full\\.hidden", "1");
  drive_.MakeFolder("C:\\p\\nested\\sub");
  TheFiles().RemoveFolder("C:\\P\\EMPTY");
  EXPECT_FALSE(drive_.Exists("C:\\p\\empty"));
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\full"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\nested"), error::PathAccess);
  EXPECT_TRUE(drive_.Exists("C:\\p\\full\\.hidden"));
}

TEST_P(FilesChanging, RemoveFolderTakesNoFileNoLinkAndNoDrive) {
  drive_.Write("C:\\p\\file", "1");
  drive_.MakeFolder("C:\\p\\folder");
  drive_.MakeLink("C:\\p\\link", "folder");
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\file"), error::PathNotFound);
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\link"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\link\\"), error::PathAccess);
  EXPECT_EQ(NumberOfRemoveFolder("C:\\p\\missing"), error::PathNotFound);
  drive_.Remove("C:\\p");
  EXPECT_EQ(NumberOfRemoveFolder("C:\\"), error::PathAccess);
  EXPECT_TRUE(TheFiles().FolderExists("C:\\"));
}

TEST_P(FilesChanging, ClearingAttributesMakesAFileWritableByItsOwner) {
  drive_.Write("C:\\p\\a", "1");
  drive_.SetMode("C:\\p\\a", 0444);
  TheFiles().SetAttributes("C:\\p\\A", attribute::Normal);
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\a"), attribute::Normal);
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\p\\a").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0644U);
}

TEST_P(FilesChanging, TheReadOnlyAttributeTakesWritingFromAll) {
  drive_.Write("C:\\p\\a", "1");
  drive_.SetMode("C:\\p\\a", 0666);
  TheFiles().SetAttributes("C:\\p\\a", attribute::ReadOnly);
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\a"), attribute::ReadOnly);
  struct stat entry {};
  ASSERT_EQ(stat(drive_.HostPath("C:\\p\\a").c_str(), &entry), 0);
  EXPECT_EQ(entry.st_mode & 0777U, 0444U);
}

TEST_P(FilesChanging, SettingAttributesLeavesWhatALinkLeadsToAlone) {
  drive_.Write("C:\\p\\target", "1");
  drive_.SetMode("C:\\p\\target", 0444);
  drive_.MakeLink("C:\\p\\link", "target");
  TheFiles().SetAttributes("C:\\p\\link", attribute::Normal);
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\target"), attribute::ReadOnly);
  drive_.SetMode("C:\\p\\target", 0644);
  TheFiles().SetAttributes("C:\\p\\link", attribute::ReadOnly);
  EXPECT_EQ(TheFiles().Attributes("C:\\p\\target"), attribute::Normal);
}

TEST_P(FilesChanging, SettingAttributesOfWhatIsMissingRaises) {
  drive_.MakeFolder("C:\\p");
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().SetAttributes("C:\\p\\a", 0); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().SetAttributes("C:\\q\\a", 0); }), error::PathNotFound);
}

TEST_P(FilesChanging, FlushingAMissingFolderRaises76) {
  drive_.Write("C:\\file", "1");
  TheFiles().FlushFolder("C:\\");
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().FlushFolder("C:\\q"); }), error::PathNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { TheFiles().FlushFolder("C:\\file"); }), error::PathNotFound);
}

}  // namespace
}  // namespace pixorra
