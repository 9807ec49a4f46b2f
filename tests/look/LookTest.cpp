// The program's windows as a person sees them, on light and dark desktops and at all sizes: no text too pale, none cut.
#include <QApplication>
#include <functional>
#include <gmock/gmock.h>
#include <ostream>
#include <string>
#include <vector>

#include "desktop/FolderSlots.h"
#include "desktop/OpenFolder.h"
#include "drop/DuplicateAskForm.h"
#include "drop/RenameAskForm.h"
#include "filmstrip/Marks.h"
#include "platform/qt/Convert.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewPane.h"
#include "tests/look/LookAt.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "utility/ConfirmForm.h"
#include "utility/ViewReadmeForm.h"
#include "utility/frmAbout.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MenuBar.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

constexpr const char* StripFolder = "C:\\Card";
constexpr const char* LongName = "An evening at the lake with all of the cousins and their dogs";

QPalette LightDesktop() {
  return QPalette(QColor(0xEF, 0xEF, 0xEF));
}

// The values that desktops of our day have for their dark looks.
QPalette DarkDesktop() {
  QPalette palette(QColor(0x35, 0x35, 0x35));
  palette.setColor(QPalette::Window, QColor(0x35, 0x35, 0x35));
  palette.setColor(QPalette::Base, QColor(0x2D, 0x2D, 0x2D));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Active, role, QColor(0xEE, 0xEE, 0xEC));
    palette.setColor(QPalette::Inactive, role, QColor(0xEE, 0xEE, 0xEC));
  }
  return palette;
}

// For people who need all the contrast that a screen has.
[[maybe_unused]] QPalette BlackDesktop() {
  QPalette palette(Qt::black);
  palette.setColor(QPalette::Highlight, Qt::yellow);
  palette.setColor(QPalette::HighlightedText, Qt::black);
  return palette;
}

[[maybe_unused]] QPalette WhiteDesktop() {
  QPalette palette(Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0, 0, 128));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  return palette;
}

struct Desktop {
  const char* Name;
  bool Dark;
  QPalette (*Palette)();
  bool RightToLeft = false;
  double Letters = 0;  // points; 0 as they are
};

void PrintTo(const Desktop& desktop, std::ostream* out) {
  *out << desktop.Name;
}

struct WindowSize {
  int Width;
  int Height;
};

class LookTest : public ProgramTest, public ::testing::WithParamInterface<Desktop> {
 protected:
  LookTest() {
    before_ = QApplication::palette();
    QApplication::setPalette(GetParam().Palette());
    fontBefore_ = QApplication::font();
    if (GetParam().RightToLeft) QApplication::setLayoutDirection(Qt::RightToLeft);
    if (GetParam().Letters > 0) {
      QFont large = fontBefore_;
      large.setPointSizeF(GetParam().Letters);
      QApplication::setFont(large);
    }
    std::vector<std::string> folders;
    for (const char* name : {"Family", "Grandma's 80th birthday party", LongName, "B", "School", "x", "Garden"}) {
      folders.push_back(std::string("C:\\Home\\") + name);
      drive.MakeFolder(folders.back());
    }
    // The one that is open, and its longest names.
    folders.push_back(std::string("C:\\Home\\The open one, ") + LongName);
    for (const char* name : {"a", "Photograph of everybody", "PXR00001"}) {
      drive.Write(folders.back() + "\\" + name + ".jpg", JpegPhoto(320, 240));
      drive.Write(std::string(StripFolder) + "\\" + name + ".jpg", JpegPhoto(240, 320));
    }
    for (int i = 100; i < 118; ++i) {
      drive.Write(std::string(StripFolder) + "\\DSC0" + std::to_string(i) + ".JPG", JpegPhoto(320, 200 + i));
    }
    WriteSavedState(StateLines(StripFolder, folders));
  }
  ~LookTest() override {
    EndRun();
    QApplication::setFont(fontBefore_);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setPalette(before_);
  }

  void Resize(ProgramRun& run, WindowSize size) {
    const int menu = run.platform.toolkit.MenuBarHeight();
    run.person.Resize(run.main.Window, size.Width - Form::FrameWidth, size.Height - Form::FrameHeight - menu);
    run.Wait(0.5);
  }

 private:
  QPalette before_;
  QFont fontBefore_;
};

TEST_P(LookTest, EveryTextOfTheMainWindowIsReadableAtEverySize) {
  ProgramRun& run = Started();
  run.LoadAll();
  for (const int i : {1, 3, 4}) MarkDragged(run.main, run.main.strip.SrcThumbnail(i));
  std::vector<WindowSize> sizes{{782, 606}, {1280, 960}};
  // What is of a size alone is looked at where pixels are cheapest.
  if (qApp->devicePixelRatio() <= 1) sizes.insert(sizes.end(), {{1024, 768}, {1920, 1080}, {880, 790}});
  for (const WindowSize size : sizes) {
    SCOPED_TRACE(std::to_string(size.Width) + " x " + std::to_string(size.Height));
    Resize(run, size);
    PaintPicPreview(run.main, run.main.strip.SrcThumbnail(2).Tag());
    // More photos than the folder has: its figures need all of their room.
    run.main.desk.DestCountLabel.SetCaption("32767");
    LookAt look(run.main.Window);
    EXPECT_THAT(look.Faults(), IsEmpty());
    // Both kinds of names, eight folders with their counts, the strip's captions and its options.
    EXPECT_GT(look.Texts(), 30);
  }
}

TEST_P(LookTest, EveryTextOfTheEmptyProgramIsReadable) {
  WriteSavedState(StateLines("", {}));
  ProgramRun& run = Started();
  run.Wait(0.3);
  EXPECT_THAT(LookAt(run.main.Window).Faults(), IsEmpty());
}

TEST_P(LookTest, EveryTextOfTheDialogsIsReadable) {
  ProgramRun& run = Started();
  run.LoadAll();
  int looks = 0;
  const auto lookAt = [&looks](Form& form) {
    LookAt look(form);
    EXPECT_THAT(look.Faults(), IsEmpty()) << form.Name();
    EXPECT_GT(look.Texts(), 5) << form.Name();
    ++looks;
  };
  run.person.ExpectForm("RenameAskForm", [&](Person& hand, Form& form) {
    lookAt(form);
    hand.Key(key::Escape);
  });
  RenameNewPhoto(run.main, run.main.strip.SrcThumbnail(1).Tag());
  run.person.ExpectForm("DuplicateAskForm", [&](Person& hand, Form& form) {
    lookAt(form);
    hand.Key(key::Escape);
  });
  const std::string photo = run.main.strip.SrcThumbnail(2).Tag();
  DeleteDuplicate(run.main, photo, photo);
  run.person.ExpectForm("PreferencesForm", [&](Person& hand, Form& form) {
    lookAt(form);
    hand.Close(form);
  });
  run.person.ChooseMenu(run.main.menu.PreferenceMenuItem);
  run.person.ExpectForm("ChangeBackgroundForm", [&](Person& hand, Form& form) {
    LookAt look(form);
    EXPECT_THAT(look.Faults(), IsEmpty()) << form.Name();
    EXPECT_EQ(look.Texts(), 4) << form.Name();  // no photo is selected: one button is grey
    ++looks;
    hand.Key(key::Escape);
  });
  run.person.ChooseMenu(run.main.menu.ChangeBackgroundMenuItem);
  run.Wait(0.2);
  EXPECT_EQ(looks, 4);
}

TEST_P(LookTest, EveryNoticeIsReadable) {
  ProgramRun& run = Started();
  ConfirmForm& notice = ConfirmForm::Of(run.main);
  // It goes by itself soon, which on a busy machine may be before this has looked at it.
  const auto faultsOf = [&](const std::function<void()>& show) {
    do {
      show();
    } while (notice.Window.GetPeer() == nullptr);
    return LookAt(notice.Window).Faults();
  };
  // The shadow of the letters lies below them.
  const auto ofTheShadow = ::testing::StartsWith("Label1");
  EXPECT_THAT(faultsOf([&] { notice.ConfirmClipboard(); }), ::testing::Each(ofTheShadow));
  EXPECT_THAT(faultsOf([&] { notice.ConfirmSave(); }), ::testing::Each(ofTheShadow));
  EXPECT_THAT(faultsOf([&] { notice.ConfirmPrint("Printing IMG_0001, page 12 of 345"); }),
              ::testing::Each(ofTheShadow));
  notice.Window.Unload();
}

TEST_P(LookTest, EveryTextOfTheAboutWindowTheSplashAndTheReadMeIsReadable) {
  ProgramRun& run = Started();
  frmAbout about(run.host);
  about.Window.Show();
  run.Wait(0.2);
  LookAt buttons(about.Window);
  EXPECT_THAT(buttons.Faults(), IsEmpty());
  EXPECT_EQ(buttons.Texts(), 4);
  about.Window.Unload();
  about.ShowSplash(run.main.Window);
  LookAt bar(about.Window);
  EXPECT_THAT(bar.Faults(), IsEmpty());
  EXPECT_EQ(bar.Texts(), 2);
  about.Window.Unload();
  ViewReadmeForm readme(run.main);
  readme.ShowIt(run.main.Window);
  run.Wait(0.2);
  LookAt text(readme.Window);
  EXPECT_THAT(text.Faults(), IsEmpty());
  EXPECT_EQ(text.Texts(), 2);
}

TEST_P(LookTest, EveryTextOfTheBrowserIsReadableInEachOfItsWays) {
  SavedState state;
  state.FilmStrip = StripFolder;
  WriteSavedState(state);
  ProgramRun& run = Started();
  MenuBar& menu = run.main.menu;
  for (MenuItem* way : {&menu.OpenFilmStripMenuItem, &menu.ShowFolderMenuItem, &menu.SetCameraLocationMenuItem}) {
    run.person.ChooseMenu(*way);
    run.Wait(0.5);
    Form* form = run.person.Window("BrowseFolderLocationForm");
    ASSERT_NE(form, nullptr);
    LookAt look(*form);
    EXPECT_THAT(look.Faults(), IsEmpty()) << way->Name();
    EXPECT_GT(look.Texts(), 5) << way->Name();
    run.person.Key(key::Escape);
    run.Wait(0.1);
  }
}

TEST_P(LookTest, TheButtonsOfAPhotoAtFullSizeAreReadableWhateverItsShape) {
  ProgramRun& run = Started();
  for (const PixelSize size : {PixelSize{1000, 700}, PixelSize{320, 240}, PixelSize{200, 600}}) {
    const std::string path = "C:\\Home\\shape.jpg";
    drive.Write(path, JpegPhoto(size.Width, size.Height));
    DisplayFullSizePreview(run.main, path);
    run.Wait(0.2);
    Form* form = run.person.Window("PreviewForm");
    ASSERT_NE(form, nullptr);
    LookAt look(*form);
    EXPECT_THAT(look.Faults(), IsEmpty()) << size.Width;
    EXPECT_EQ(look.Texts(), 3);
    run.person.Key(key::Escape);
  }
}

TEST_P(LookTest, TheGroundsFollowTheDesktop) {
  ProgramRun& run = Started();
  run.LoadAll();
  const bool dark = GetParam().Dark;
  EXPECT_EQ(IsDark(QApplication::palette()), dark);
  Toolkit& toolkit = run.platform.toolkit;
  EXPECT_EQ(toolkit.PlainColour(run.main.strip.SrcBackShape.FillColor(), dark),
            toolkit.PlainColour(run.main.strip.FilmStripModeFrame.BackColor(), dark));
}

INSTANTIATE_TEST_SUITE_P(Desktops, LookTest,
                         ::testing::Values(Desktop{"Light", false, LightDesktop}, Desktop{"Dark", true, DarkDesktop}),
                         [](const auto& desktop) { return desktop.param.Name; });

// Nothing runs for these that does not run for those above, under the sanitizers too.
#ifndef __SANITIZE_ADDRESS__
INSTANTIATE_TEST_SUITE_P(BlackAndWhite, LookTest,
                         ::testing::Values(Desktop{"BlackFromTheRight", true, BlackDesktop, true},
                                           Desktop{"WhiteInLargeLetters", false, WhiteDesktop, false, 14}),
                         [](const auto& desktop) { return desktop.param.Name; });
#endif

}  // namespace
}  // namespace pixorra
