// The dialog before photos are printed, as a person sees it on light and dark desktops: no text too pale, none cut.
#include <QApplication>
#include <gmock/gmock.h>
#include <string>

#include "printing/PrintPhotoForm.h"
#include "printing/PrintSetupForm.h"
#include "tests/look/LookAt.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

class PrintLookTest : public ProgramTest, public ::testing::WithParamInterface<bool> {
 protected:
  PrintLookTest() {
    const int ground = GetParam() ? 0x35 : 0xEF;
    QApplication::setPalette(QPalette(QColor(ground, ground, ground)));
    drive.Write(std::string(Card) + "\\An evening at the lake.jpg", JpegPhoto(320, 240));
    SavedState state;
    state.FilmStrip = Card;
    WriteSavedState(state);
  }
  ~PrintLookTest() override {
    EndRun();
    QApplication::setPalette(before_);
  }

  static constexpr const char* Card = "C:\\Media\\A card of the old camera\\DCIM\\100CANON";

 private:
  QPalette before_ = QApplication::palette();
};

TEST_P(PrintLookTest, EveryTextOfTheDialogIsReadable) {
  ProgramRun& run = Started();
  run.LoadAll();
  run.person.Click(run.main.strip.SrcThumbnail(1));
  int looks = 0;
  for (const auto ask : {+[](MainForm& main) { AskZoomOfSelected(main); },
                         +[](MainForm& main) { AskZoomOfBatch(main, BatchSource::FilmStrip); }}) {
    run.person.ExpectForm("PrintPhotoForm", [&](Person& hand, Form& form) {
      LookAt look(form);
      EXPECT_THAT(look.Faults(), IsEmpty());
      EXPECT_EQ(look.Texts(), 13);
      ++looks;
      hand.Key(key::Escape);
    });
    ask(run.main);
  }
  EXPECT_EQ(looks, 2);
}

TEST_P(PrintLookTest, EveryTextOfTheChooserIsReadable) {
  ProgramRun& run = Started();
  PrintSetupForm form(run.main);
  form.Window.ShowOwned(&run.main.Window);
  run.Wait(0.1);
  EXPECT_THAT(LookAt(form.Window).Faults(), IsEmpty());
  form.Window.Unload();
}

INSTANTIATE_TEST_SUITE_P(Desktops, PrintLookTest, ::testing::Bool(),
                         [](const auto& desktop) { return desktop.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace pixorra
