// Dialogs, text, drawings, shell, registry and settings of the headless platform.
#include <filesystem>
#include <gmock/gmock.h>

#include "tests/platform/runtime/RaisesError.h"
#include "tests/support/headless/HeadlessTest.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

class HeadlessServicesTest : public HeadlessTest {
 protected:
  BoxAnswer Ask(const std::string& text) {
    return platform.dialogs.MsgBox(text, BoxIcon::Question, BoxButtons::YesNo, "Title");
  }
  std::vector<std::string> Failures() { return platform.failures.Take(); }
};

TEST_F(HeadlessServicesTest, BoxIsAnsweredByTheFirstThatFits) {
  person.ExpectBox("Title", "second", BoxAnswer::Yes);
  person.ExpectBox("Title", "first", BoxAnswer::No);
  person.ExpectBox("Title", "second", BoxAnswer::No);
  EXPECT_EQ(Ask("the first one"), BoxAnswer::No);
  EXPECT_EQ(Ask("the second one"), BoxAnswer::Yes);
  EXPECT_EQ(Ask("the second one"), BoxAnswer::No);
  ASSERT_EQ(platform.dialogs.Boxes().size(), 3U);
  EXPECT_EQ(platform.dialogs.Boxes()[1].Answer, BoxAnswer::Yes);
  EXPECT_EQ(platform.dialogs.Boxes()[1].Icon, BoxIcon::Question);
}

TEST_F(HeadlessServicesTest, BoxThatNobodyExpectedIsAFailureAndAnsweredNo) {
  KeepFailures();
  person.ExpectBox("Another title", "Delete?", BoxAnswer::Yes);
  EXPECT_EQ(Ask("Delete?"), BoxAnswer::No);
  EXPECT_THAT(Failures(), ElementsAre("unexpected box \"Title\": \"Delete?\""));
  platform.Finish();
  EXPECT_THAT(Failures(), ElementsAre("expected box \"Another title\" never came up: \"Delete?\""));
  platform.Finish();
  EXPECT_THAT(Failures(), IsEmpty());
}

TEST_F(HeadlessServicesTest, WindowsMenusAndActionsThatNeverCameUpAreFailures) {
  KeepFailures();
  person.ExpectForm("AskForm", [](Person&, Form&) {});
  person.During([] {});
  platform.Finish();
  EXPECT_THAT(Failures(), ElementsAre("expected window AskForm, it never came up",
                                      "expected something to do meanwhile, it never came up"));
}

TEST_F(HeadlessServicesTest, BoxInsideABoxIsNamedInFront) {
  person.ExpectBox("Title", "outer", BoxAnswer::Yes, [&] {
    person.ExpectBox("Title", "inner");
    Ask("inner");
    EXPECT_EQ(platform.backend.BoxIsUp(), "box \"Title\": \"outer\"");
  });
  Ask("outer");
  EXPECT_EQ(platform.backend.BoxIsUp(), "");
}

TEST_F(HeadlessServicesTest, InputsColoursAndBeeps) {
  person.ExpectInput("Title", "Name", "typed");
  EXPECT_EQ(platform.dialogs.InputBox("Name of it:", "Title", "before"), "typed");
  EXPECT_EQ(platform.dialogs.PresentInput(), "before");
  platform.dialogs.ExpectColour(0x00123456);
  EXPECT_EQ(platform.dialogs.ChooseColour(7), 0x00123456U);
  EXPECT_EQ(platform.dialogs.PresentColour(), 7U);
  platform.dialogs.ExpectColour(std::nullopt);
  EXPECT_EQ(platform.dialogs.ChooseColour(7), std::nullopt);
  platform.dialogs.Beep();
  EXPECT_EQ(platform.dialogs.Beeps(), 1);
}

TEST_F(HeadlessServicesTest, TextsHaveFixedMeasureAndDifferInTheirPixels) {
  HeadlessText text;
  EXPECT_EQ(text.Measure(Font{}, "äbc").Width, 18);
  EXPECT_EQ(text.Measure(Font{}, "a\r\nbcd").Width, 18);
  EXPECT_EQ(text.Measure(Font{"", 16.5, false}, "a").Height, 26);
  const auto drawn = [&](const std::string& what) {
    Bitmap target(40, 16, PixelFormat::Bgr24);
    target.Fill(0x00FFFFFF);
    text.Draw(target, Font{}, 0, 0, what, 0);
    return std::string(reinterpret_cast<const char*>(target.Row(0)), target.Stride() * 16);
  };
  EXPECT_EQ(drawn("abc"), drawn("abc"));
  EXPECT_NE(drawn("abc"), drawn("abd"));
}

// The drawings themselves lie beside the sources, for the back end that renders them.
TEST_F(HeadlessServicesTest, KnowsTheNamesOfAllDrawings) {
  std::vector<std::string> files;
  const std::filesystem::path art = std::filesystem::path(PIXORRA_TEST_DATA) / "../../assets/art";
  for (const auto& entry : std::filesystem::directory_iterator(art)) files.push_back(entry.path().stem().string());
  EXPECT_THAT(HeadlessArtwork::Names(), UnorderedElementsAreArray(files));
}

TEST_F(HeadlessServicesTest, SameDrawingIsTheSamePicture) {
  EXPECT_EQ(platform.artwork.Drawing("Logo", 10, 10), platform.artwork.Drawing("Logo", 10, 10));
  EXPECT_FALSE(platform.artwork.Drawing("Logo", 10, 10) == platform.artwork.Drawing("Logo", 10, 11));
}

TEST_F(HeadlessServicesTest, ShellStartsNothingAndKeepsWhatWasAskedOfIt) {
  HeadlessShell& shell = platform.shell;
  shell.Open("C:\\a.jpg", "C:\\");
  ASSERT_EQ(shell.AllOpened().size(), 1U);
  EXPECT_EQ(shell.AllOpened()[0].Target, "C:\\a.jpg");
  EXPECT_EQ(shell.AllOpened()[0].WorkingFolder, "C:\\");
  shell.SetMissing("gone");
  EXPECT_EQ(ErrorOf([&] { shell.Run("gone.scr /s"); }), error::FileNotFound);
  shell.Run("show.scr /s");
  EXPECT_THAT(shell.AllRun(), ElementsAre("show.scr /s"));
  shell.OpenSystemInformation();
  shell.SetHasOwnWindows(true);
  shell.OpenSystemInformation();
  EXPECT_EQ(shell.SystemInformationOpened(), 1);
  EXPECT_EQ(shell.ScreenSaverSettingsOpened(), 0);
}

TEST_F(HeadlessServicesTest, RegistryGivesBackWhatIsWritten) {
  platform.registry.SetKeyValue(registry::ClassesRoot, "Folder\\shell\\x", "", "command");
  EXPECT_EQ(platform.registry.Value(registry::ClassesRoot, "Folder\\SHELL\\x", ""), "command");
  EXPECT_EQ(platform.registry.Value(registry::LocalMachine, "Folder\\shell\\x", ""), "");
  EXPECT_EQ(platform.registry.Value(registry::ClassesRoot, "Folder\\shell", ""), "");
}

}  // namespace
}  // namespace pixorra
