// Programs that the desktop has registered, and starting them, on every back end.
#include "platform/runtime/Errors.h"
#include "tests/platform/contract/host/ContractHost.h"

namespace pixorra {
namespace {

class ShellContract : public HostContract {
 protected:
  ShellContract() { host->drive.Write("C:\\photos\\a b.jpg", "1"); }
};

TEST_F(ShellContract, TheProgramThatIsRegisteredForAnEndingIsFoundWhateverItsCase) {
  host->RegisterViewer(".jpg");
  host->drive.Write("C:\\photos\\b.JPG", "1");
  host->drive.Write("C:\\photos\\c.raw", "1");
  host->drive.Write("C:\\photos.jpg\\d", "1");
  host->WithShell([](Shell& shell) {
    const std::string program = shell.FindExecutable("C:\\photos\\a b.jpg");
    EXPECT_NE(program, "");
    EXPECT_EQ(shell.FindExecutable("C:\\photos\\b.JPG"), program);
    EXPECT_EQ(shell.FindExecutable("C:\\photos\\c.raw"), "");
    EXPECT_EQ(shell.FindExecutable("C:\\photos.jpg\\d"), "");
  });
}

TEST_F(ShellContract, WithoutARegisteredProgramNoneIsFound) {
  host->WithShell([](Shell& shell) { EXPECT_EQ(shell.FindExecutable("C:\\photos\\a b.jpg"), ""); });
}

TEST_F(ShellContract, AMissingFileRaisesFileNotFoundAndAMissingFolderPathNotFound) {
  host->RegisterViewer(".jpg");
  host->WithShell([](Shell& shell) {
    EXPECT_EQ(ErrorsIgnored([&] { shell.FindExecutable("C:\\photos\\b.jpg"); }), error::FileNotFound);
    EXPECT_EQ(ErrorsIgnored([&] { shell.FindExecutable("C:\\nowhere\\b.jpg"); }), error::PathNotFound);
  });
}

TEST_F(ShellContract, TheRecordHasTheProgramsNamesAndMarksWhatItLacks) {
  host->RegisterViewer(".jpg");
  host->WithShell([](Shell& shell) {
    const Shell::VersionInfo record = shell.ReadVersionInfo(shell.FindExecutable("C:\\photos\\a b.jpg"));
    EXPECT_EQ(record.ProductName, "The viewer");
    EXPECT_EQ(record.FileDescription, "Views");
    EXPECT_EQ(record.InternalName, "viewer");
    EXPECT_EQ(record.OriginalFileName, "viewer");
    for (const std::string* field :
         {&record.CompanyName, &record.FileVersion, &record.LegalCopyright, &record.ProductVersion})
      EXPECT_EQ(*field, "?");
  });
}

TEST_F(ShellContract, WhatHasNoRecordHasEightEmptyFields) {
  host->WithShell([](Shell& shell) {
    for (const char* program : {"", "C:\\photos\\a b.jpg", "C:\\missing", "C:\\missing.desktop"}) {
      const Shell::VersionInfo record = shell.ReadVersionInfo(program);
      for (const std::string* field :
           {&record.CompanyName, &record.FileDescription, &record.FileVersion, &record.InternalName,
            &record.LegalCopyright, &record.OriginalFileName, &record.ProductName, &record.ProductVersion})
        EXPECT_EQ(*field, "") << program;
    }
  });
}

TEST_F(ShellContract, AProgramRunsWithTheRestOfTheLineBlanksAndAll) {
  host->AddProgram("C:\\Windows\\Slide Show.scr");
  host->WithShell([this](Shell& shell) {
    shell.Run("C:\\Windows\\\\Slide Show.scr /S :SS 31C:\\My  Photos ");
    EXPECT_EQ(host->HeardBy(shell, "C:\\Windows\\\\Slide Show.scr"), "/S :SS 31C:\\My  Photos ");
  });
}

TEST_F(ShellContract, OfTwoProgramsThatACommandMayMeanTheLongerPathRuns) {
  host->AddProgram("C:\\bin\\a");
  host->AddProgram("C:\\bin\\a b");
  host->WithShell([this](Shell& shell) {
    shell.Run("C:\\bin\\a b c");
    EXPECT_EQ(host->HeardBy(shell, "C:\\bin\\a b"), "c");
  });
}

TEST_F(ShellContract, AProgramThatIsMissingRaisesFileNotFoundEvenWithItsFolder) {
  host->drive.MakeFolder("C:\\Windows");
  host->WithShell([](Shell& shell) {
    for (const char* command :
         {"C:\\Windows\\\\Slide Show.scr /S :SS 31C:\\Photos", "C:\\nowhere\\Slide Show.scr /S :SS 31C:\\Photos",
          "rundll32.exe shell32.dll,Control_RunDLL desk.cpl,,1", ""})
      EXPECT_EQ(ErrorsIgnored([&] { shell.Run(command); }), error::FileNotFound) << command;
  });
}

TEST_F(ShellContract, AnInstalledProgramRunsByThePathThatItIsOfferedUnder) {
  host->AddInstalled("shown");
  host->drive.MakeFolder("C:\\Windows");
  host->WithShell([this](Shell& shell) {
    shell.OfferProgram("C:\\Windows\\My Show.scr", "shown");
    shell.OfferProgram("C:\\Windows\\My Show.scr", "shown");
    shell.Run("C:\\Windows\\\\My Show.scr 31C:\\My  Photos ");
    EXPECT_EQ(host->HeardBy(shell, "C:\\Windows\\\\My Show.scr"), "31C:\\My  Photos ");
  });
}

TEST_F(ShellContract, WhatIsNotInstalledOrHasNoFolderIsNotOffered) {
  host->AddInstalled("shown");
  host->drive.MakeFolder("C:\\Windows");
  host->WithShell([](Shell& shell) {
    shell.OfferProgram("C:\\Windows\\Other.scr", "another program");
    EXPECT_EQ(ErrorsIgnored([&] { shell.Run("C:\\Windows\\Other.scr"); }), error::FileNotFound);
    shell.OfferProgram("C:\\nowhere\\My Show.scr", "shown");
    EXPECT_EQ(ErrorsIgnored([&] { shell.Run("C:\\nowhere\\My Show.scr"); }), error::FileNotFound);
  });
}

TEST_F(ShellContract, AFileUnderTheNameOfWhatIsOfferedStays) {
  host->AddInstalled("shown");
  host->drive.Write("C:\\Windows\\My Show.scr", "mine");
  host->WithShell([](Shell& shell) { shell.OfferProgram("C:\\Windows\\My Show.scr", "shown"); });
  EXPECT_EQ(host->drive.Read("C:\\Windows\\My Show.scr"), "mine");
}

TEST_F(ShellContract, TheManualIsFoundWhereItIsInstalledAndOpensInTheProgramForItsType) {
  host->WithShell([](Shell& shell) { EXPECT_EQ(shell.FindManual(), ""); });
  const std::string page = host->AddManual();
  host->RegisterViewer(".html");
  host->WithShell([&page](Shell& shell) {
    EXPECT_EQ(shell.FindManual(), page);
    EXPECT_NE(shell.FindExecutable(page), "");
  });
}

TEST_F(ShellContract, OpeningWhatIsNotThereRaisesNothing) {
  host->WithShell([](Shell& shell) {
    EXPECT_EQ(ErrorsIgnored([&] { shell.Open("C:\\missing.jpg", "C:\\nowhere"); }), error::None);
  });
}

TEST_F(ShellContract, ADesktopWithoutWindowsOfItsOwnSaysSo) {
  host->WithShell([](Shell& shell) {
    EXPECT_FALSE(shell.OpenScreenSaverSettings());
    EXPECT_FALSE(shell.OpenSystemInformation());
  });
}

TEST_F(ShellContract, TheDesktopsOwnWindowsOpenWhereItHasThem) {
  host->AddOwnWindows();
  host->WithShell([](Shell& shell) {
    EXPECT_TRUE(shell.OpenScreenSaverSettings());
    EXPECT_TRUE(shell.OpenSystemInformation());
  });
}

}  // namespace
}  // namespace pixorra
