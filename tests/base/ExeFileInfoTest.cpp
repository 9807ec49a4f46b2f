// The program that is registered for a file, and what it is called.
#include <gtest/gtest.h>

#include "base/ExeFileInfo.h"
#include "platform/headless/HeadlessShell.h"
#include "platform/runtime/Errors.h"
#include "tests/support/TemporaryDrive.h"

namespace pixorra {
namespace {

class ExeFileInfoTest : public ::testing::Test {
 protected:
  ExeFileInfoTest() { shell.SetFiles(drive.DriveFiles()); }
  void Register(const std::string& product, const std::string& description) {
    shell.RegisterProgram(".jpg", Program, {.FileDescription = description, .ProductName = product});
  }

  static constexpr const char* Program = "C:\\bin\\paint";
  TemporaryDrive drive;
  HeadlessShell shell;
};

TEST_F(ExeFileInfoTest, TheProgramOfAFileIsFoundAndAMissingFileOrFolderRaises) {
  Register("Brush", "Paints");
  drive.Write("C:\\photos\\a.jpg", "1");
  drive.Write("C:\\photos\\a.raw", "1");
  EXPECT_EQ(AssociatedProgramPath(shell, "C:\\photos\\a.jpg"), Program);
  EXPECT_EQ(AssociatedProgramPath(shell, "C:\\photos\\a.raw"), "");
  EXPECT_EQ(ErrorsIgnored([&] { AssociatedProgramPath(shell, "C:\\photos\\b.jpg"); }), error::FileNotFound);
  EXPECT_EQ(ErrorsIgnored([&] { AssociatedProgramPath(shell, "C:\\nowhere\\a.jpg"); }), error::PathNotFound);
}

TEST_F(ExeFileInfoTest, APathWithoutAFolderHasNoProgram) {
  Register("Brush", "Paints");
  EXPECT_EQ(AssociatedProgramPath(shell, "a.jpg"), "");
  EXPECT_EQ(AssociatedProgramPath(shell, ""), "");
}

TEST_F(ExeFileInfoTest, AProgramIsCalledByItsProductOrElseByItsDescription) {
  Register(" Brush ", "Paints");
  EXPECT_EQ(ProgramDisplayName(shell, Program), "Brush");
  Register("  ", " Paints ");
  EXPECT_EQ(ProgramDisplayName(shell, Program), "Paints");
  EXPECT_EQ(ProgramDisplayName(shell, "C:\\bin\\unknown"), "");
  EXPECT_EQ(ProgramDisplayName(shell, ""), "");
}

TEST_F(ExeFileInfoTest, ARecordMarksWhatItLacksAndIsEmptyWhereThereIsNone) {
  Register("Brush", "Paints");
  Shell::VersionInfo record;
  ReadVersionInfo(shell, Program, record);
  EXPECT_EQ(record.ProductName, "Brush");
  EXPECT_EQ(record.CompanyName, "?");
  ReadVersionInfo(shell, "C:\\bin\\unknown", record);
  EXPECT_EQ(record.ProductName, "");
  EXPECT_EQ(record.CompanyName, "");
}

}  // namespace
}  // namespace pixorra
