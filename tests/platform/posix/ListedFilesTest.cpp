// Files that are opened as they were listed.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/posix/ListedFiles.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class ListedFilesTest : public ::testing::Test {
 protected:
  std::int64_t LengthOf(const std::string& path) { return files.Open(path, OpenMode::Read)->Length(); }

  TemporaryDrive drive;
  ListedFiles files{
      std::make_shared<FixedMapping>(PathMapping({{'C', drive.HostRoot(), "Test"}}, drive.HostRoot() + "/mounted"))};
};

TEST_F(ListedFilesTest, AFileIsOpenedByItsExactNameAlone) {
  drive.Write("C:\\Photos\\a.jpg", "four");
  EXPECT_EQ(LengthOf("C:\\Photos\\a.jpg"), 4);
  EXPECT_EQ(ErrorOf([&] { files.Open("C:\\Photos\\A.jpg", OpenMode::Read); }), error::FileNotFound)
      << "the folder is not looked through for another case";
  EXPECT_EQ(ErrorOf([&] { files.Open("C:\\Photos\\b.jpg", OpenMode::Read); }), error::FileNotFound);
}

TEST_F(ListedFilesTest, AFileOfAShareIsFoundHoweverTheShareIsMounted) {
  const std::string mount = drive.HostRoot() + "/mounted/smb-share:server=nas,share=photos,user=anna";
  std::filesystem::create_directories(mount);
  std::ofstream(mount + "/a.jpg") << "four";
  EXPECT_EQ(LengthOf("\\\\nas\\photos\\a.jpg"), 4);
}

}  // namespace
}  // namespace pixorra
