// The dialog ahead of proof sheets as a person sees it on light and dark desktops: no text too pale, none cut.
#include <QApplication>
#include <gmock/gmock.h>
#include <string>

#include "printing/ProofSheets.h"
#include "tests/look/LookAt.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

class ProofLookTest : public ProgramTest, public ::testing::WithParamInterface<bool> {
 protected:
  ProofLookTest() {
    const int ground = GetParam() ? 0x35 : 0xEF;
    QApplication::setPalette(QPalette(QColor(ground, ground, ground)));
    for (const char* name : {"An evening at the lake with all of the cousins.jpg", "b.jpg"})
      drive.Write(std::string(Card) + "\\" + name, JpegPhoto(320, 240));
    SavedState state;
    state.FilmStrip = Card;
    WriteSavedState(state);
  }
  ~ProofLookTest() override {
    EndRun();
    QApplication::setPalette(before_);
  }

  static constexpr const char* Card = "C:\\Media\\A card of the old camera\\DCIM\\100CANON";

 private:
  QPalette before_ = QApplication::palette();
};

TEST_P(ProofLookTest, EveryTextOfTheDialogIsReadable) {
  ProgramRun& run = Started();
  run.LoadAll();
  int looks = 0;
  run.person.ExpectForm("PrintProofForm", [&](Person& hand, Form& form) {
    LookAt look(form);
    EXPECT_THAT(look.Faults(), IsEmpty());
    EXPECT_EQ(look.Texts(), 9);
    ++looks;
    hand.Key(key::Escape);
  });
  PrintProofSheets(run.main, BatchSource::FilmStrip);
  EXPECT_EQ(looks, 1);
}

INSTANTIATE_TEST_SUITE_P(Desktops, ProofLookTest, ::testing::Bool(),
                         [](const auto& desktop) { return desktop.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace pixorra
