// The choice of the picture behind the Desktop, and the file that it lasts by.
#include <functional>
#include <gtest/gtest.h>

#include "desktop/Background.h"
#include "platform/services/Pictures.h"
#include "preview/PreviewPane.h"
#include "tests/desktop/DesktopTest.h"
#include "window/MenuBar.h"
#include "window/PreviewState.h"

namespace pixorra {
namespace {

constexpr const char* Kept = "C:\\Program\\Background.pic";
constexpr const char* Part = "C:\\Program\\Background.pic.part";
constexpr const char* Scene = "C:\\Program\\Clouds.jpg";

class ChangeBackgroundFormTest : public DesktopTest {
 protected:
  static CommandButton& ButtonOf(Form& form, const std::string& name) {
    for (Control* control : form.Controls()) {
      if (control->Name() == name) return static_cast<CommandButton&>(*control);
    }
    throw std::runtime_error("no button " + name);
  }
  // Opens the dialog by its menu item, acts in it and closes it.
  void InTheDialog(const std::function<void(Form&)>& act) {
    person.ExpectForm("ChangeBackgroundForm", [act](Person& hand, Form& form) {
      act(form);
      hand.Click(ButtonOf(form, "CloseButton"));
    });
    person.ChooseMenu(main.menu.ChangeBackgroundMenuItem);
    EXPECT_EQ(person.Window("ChangeBackgroundForm"), nullptr);
  }
  void Press(const std::string& button) {
    InTheDialog([&](Form& form) { person.Click(ButtonOf(form, button)); });
  }
  // The photo is selected, as by a click on its thumbnail.
  void SelectPhoto(const std::string& name, Colour colour) {
    const std::string path = Folder(name);
    drive.Write(path, BmpOf(PlainBitmap(40, 30, colour)));
    PaintPicPreview(main, path);
    ASSERT_EQ(SelectedPhoto(main.preview), path);
  }
  // Of the picture behind the Desktop: blue, green, red of its first pixel as one colour.
  Colour Shown() const {
    const std::uint8_t* pixel = desk.DesktopImage.GetPicture().Pixels().Row(0);
    return static_cast<Colour>(pixel[0]) << 16 | static_cast<Colour>(pixel[1]) << 8 | pixel[2];
  }
};

TEST_F(ChangeBackgroundFormTest, ItSaysWhatItIsFor) {
  InTheDialog([](Form& form) {
    EXPECT_EQ(form.Caption(), " Change Background");
    EXPECT_EQ(ButtonOf(form, "SelectedPhotoButton").Caption(), "Use the currently Selected Photo");
    EXPECT_EQ(ButtonOf(form, "CloudSceneButton").Caption(), "Restore to default Cloud Scene");
    EXPECT_EQ(ButtonOf(form, "SolidColorButton").Caption(), "Use a solid color, only");
    EXPECT_EQ(ButtonOf(form, "CloseButton").Caption(), "Close");
    const auto& text = static_cast<const Label&>(*form.Controls().front());
    EXPECT_EQ(
        text.Caption(),
        "Select one of the buttons below to change the picture used as the background for the Pixorra desktop. This "
        "is the area at the lower left used to show the destination folders.");
  });
}

TEST_F(ChangeBackgroundFormTest, TheSelectedPhotoCanBeUsedOnlyWhereThereIsOne) {
  InTheDialog([](Form& form) { EXPECT_FALSE(ButtonOf(form, "SelectedPhotoButton").Enabled()); });
  SelectPhoto("a.bmp", 0x00112233);
  InTheDialog([](Form& form) { EXPECT_TRUE(ButtonOf(form, "SelectedPhotoButton").Enabled()); });
}

TEST_F(ChangeBackgroundFormTest, TheCloudSceneCanBeUsedOnlyWhereItsFileIsThere) {
  InTheDialog([](Form& form) { EXPECT_TRUE(ButtonOf(form, "CloudSceneButton").Enabled()); });
  drive.Remove(Scene);
  InTheDialog([](Form& form) { EXPECT_FALSE(ButtonOf(form, "CloudSceneButton").Enabled()); });
}

TEST_F(ChangeBackgroundFormTest, EscClosesIt) {
  person.ExpectForm("ChangeBackgroundForm", [](Person& hand, Form&) { hand.Key(key::Escape); });
  person.Key('B', shift::Ctrl);
  EXPECT_EQ(person.Window("ChangeBackgroundForm"), nullptr);
}

TEST_F(ChangeBackgroundFormTest, TheSelectedPhotoIsShownAndKeptAndLastsOverARestart) {
  SelectPhoto("a.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  EXPECT_EQ(Shown(), 0x00112233U);
  EXPECT_EQ(drive.Read(Kept), drive.Read(Folder("a.bmp")));
  EXPECT_FALSE(drive.Exists(Part));
  run.Close();
  const Picture& again = Started().main.desk.DesktopImage.GetPicture();
  EXPECT_EQ(again.Width(), 40);
  EXPECT_EQ(again.Pixels().Row(0)[0], 0x11);
}

TEST_F(ChangeBackgroundFormTest, TheCloudSceneReplacesAPhoto) {
  SelectPhoto("a.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  Press("CloudSceneButton");
  EXPECT_EQ(drive.Read(Kept), drive.Read(Scene));
  EXPECT_EQ(desk.DesktopImage.GetPicture().Width(), run.pictures.Load(Scene).Width());
}

TEST_F(ChangeBackgroundFormTest, AColourIsChosenFromThatOfThePresentPicture) {
  SelectPhoto("a.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  run.platform.dialogs.ExpectColour(0x00A0B0C0);
  Press("SolidColorButton");
  EXPECT_EQ(run.platform.dialogs.PresentColour(), 0x00112233U);
  EXPECT_EQ(Shown(), 0x00A0B0C0U);
  const Picture kept = run.pictures.Load(Kept);
  EXPECT_EQ(kept.Width(), 100);
  EXPECT_EQ(kept.Height(), 100);
  EXPECT_EQ(kept.Pixels().Row(99)[297], 0xA0);
}

TEST_F(ChangeBackgroundFormTest, NoColourChosenChangesNothing) {
  run.platform.dialogs.ExpectColour(std::nullopt);
  Press("SolidColorButton");
  EXPECT_FALSE(drive.Exists(Kept));
  EXPECT_EQ(desk.DesktopImage.GetPicture().ArtName(), "Clouds");
}

TEST_F(ChangeBackgroundFormTest, ABackgroundOfOnePixelHasAColourToo) {
  SelectPhoto("a.bmp", 0x00112233);
  drive.Write(Folder("a.bmp"), BmpOf(PlainBitmap(1, 1, 0x00445566)));
  Press("SelectedPhotoButton");
  EXPECT_NE(BackgroundColour(main), 0xFFFFFFFFU);
}

TEST_F(ChangeBackgroundFormTest, WhateverFailsTheOldOneStaysOnTheDesktopAndOnTheDisk) {
  SelectPhoto("old.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  const std::string old = drive.Read(Kept);
  SelectPhoto("new.bmp", 0x00998877);
  struct Failure {
    FileCall Call;
    int Number;
    const char* Where;
  };
  for (const Failure& failure :
       {Failure{FileCall::OpenToRead, error::PathAccess, "new.bmp"},
        Failure{FileCall::Read, error::DeviceIO, "new.bmp"}, Failure{FileCall::OpenToWrite, error::PathAccess, ".part"},
        Failure{FileCall::Write, error::DiskFull, ".part"}, Failure{FileCall::Flush, error::DiskFull, ".part"},
        Failure{FileCall::OpenToRead, error::PathAccess, ".part"},
        Failure{FileCall::Rename, error::PathAccess, ".part"}}) {
    run.files.FailAlways(failure.Call, failure.Number, failure.Where);
    for (const char* button : {"SelectedPhotoButton", "SolidColorButton"}) {
      if (std::string(failure.Where) == "new.bmp" && std::string(button) == "SolidColorButton") continue;
      if (std::string(button) == "SolidColorButton") run.platform.dialogs.ExpectColour(0x00ABCDEF);
      Press(button);
      EXPECT_EQ(drive.Read(Kept), old) << button << " " << failure.Where << " " << failure.Number;
      EXPECT_EQ(Shown(), 0x00112233U) << button << " " << failure.Where << " " << failure.Number;
    }
    run.files.Heal();
  }
  EXPECT_TRUE(run.platform.dialogs.Boxes().empty()) << "no message is shown";
  Press("SelectedPhotoButton");
  EXPECT_EQ(Shown(), 0x00998877U);
}

TEST_F(ChangeBackgroundFormTest, ADiskThatFillsUpAtAnyByteLeavesTheOldOne) {
  SelectPhoto("old.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  const std::string old = drive.Read(Kept);
  SelectPhoto("new.bmp", 0x00998877);
  for (const int room : {0, 1, 53, 54, 2000, 3653}) {
    run.files.FillDiskAfter(room);
    Press("SelectedPhotoButton");
    run.files.Heal();
    EXPECT_EQ(drive.Read(Kept), old) << room;
    EXPECT_FALSE(drive.Exists(Part)) << room;
    EXPECT_EQ(Shown(), 0x00112233U) << room;
  }
}

TEST_F(ChangeBackgroundFormTest, APhotoThatIsNoPictureAnyMoreLeavesTheOldOne) {
  SelectPhoto("old.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  const std::string old = drive.Read(Kept);
  SelectPhoto("new.bmp", 0x00998877);
  for (const std::string& bytes : {std::string(), std::string("no picture at all")}) {
    drive.Write(Folder("new.bmp"), bytes);
    Press("SelectedPhotoButton");
    EXPECT_EQ(drive.Read(Kept), old);
    EXPECT_EQ(Shown(), 0x00112233U);
    EXPECT_FALSE(drive.Exists(Part));
  }
}

TEST_F(ChangeBackgroundFormTest, APhotoThatBecomesShorterWhileItIsCopiedLeavesTheOldOne) {
  SelectPhoto("old.bmp", 0x00112233);
  Press("SelectedPhotoButton");
  SelectPhoto("new.bmp", 0x00998877);
  const std::string whole = drive.Read(Folder("new.bmp"));
  run.files.BeforeNth(
      FileCall::Read, 1, [&] { drive.Write(Folder("new.bmp"), whole.substr(0, 2000)); }, "new.bmp");
  Press("SelectedPhotoButton");
  EXPECT_EQ(drive.Read(Kept), drive.Read(Folder("old.bmp")));
  EXPECT_EQ(Shown(), 0x00112233U);
}

TEST_F(ChangeBackgroundFormTest, WhatAKilledProgramHasLeftOfOneGoesAtTheNextStart) {
  run.Close();
  drive.Write(Part, "half");
  Started();
  EXPECT_FALSE(drive.Exists(Part));
}

}  // namespace
}  // namespace pixorra
