// The forms that delete and rename, as a person sees them on light and dark desktops: no text too pale, none cut.
#include <QApplication>
#include <gmock/gmock.h>
#include <string>

#include "delete/DeleteAllForm.h"
#include "delete/DeleteDraggedForm.h"
#include "delete/DeletePhotosForm.h"
#include "delete/DeleteSelectedForm.h"
#include "tests/look/LookAt.h"
#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

class DeleteLookTest : public ProgramTest, public ::testing::WithParamInterface<bool> {
 protected:
  DeleteLookTest() {
    const int ground = GetParam() ? 0x35 : 0xEF;
    QApplication::setPalette(QPalette(QColor(ground, ground, ground)));
    for (const char* name : {"An evening at the lake with all of the cousins.jpg", "b.jpg"})
      drive.Write(std::string(Card) + "\\" + name, JpegPhoto(320, 240));
    SavedState state;
    state.FilmStrip = Card;
    WriteSavedState(state);
  }
  ~DeleteLookTest() override {
    EndRun();
    QApplication::setPalette(before_);
  }

  static constexpr const char* Card = "C:\\Media\\A card of the old camera\\DCIM\\100CANON";

 private:
  QPalette before_ = QApplication::palette();
};

TEST_P(DeleteLookTest, EveryTextOfTheFormsIsReadable) {
  ProgramRun& run = Started();
  run.LoadAll();
  run.person.Click(run.main.strip.SrcThumbnail(1));
  run.person.DoubleClick(run.main.strip.SrcBackground(2));
  int looks = 0;
  const struct {
    const char* Name;
    void (*Show)(MainForm& main);
    int Texts;
  } forms[] = {{"DeletePhotosForm", DeleteButton_Click, 5},
               {"DeleteSelectedForm", ShowDeleteSelectedForm, 4},
               {"DeleteDraggedForm", ShowDeleteDraggedForm, 4},
               {"DeleteAllForm", ShowDeleteAllForm, 4}};
  for (const auto& [name, show, texts] : forms) {
    run.person.ExpectForm(name, [&, texts = texts](Person& hand, Form& form) {
      LookAt look(form);
      EXPECT_THAT(look.Faults(), IsEmpty()) << form.Name();
      EXPECT_EQ(look.Texts(), texts) << form.Name();
      ++looks;
      hand.Key(key::Escape);
    });
    show(run.main);
  }
  EXPECT_EQ(looks, 4);
}

INSTANTIATE_TEST_SUITE_P(Desktops, DeleteLookTest, ::testing::Bool(),
                         [](const auto& desktop) { return desktop.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace pixorra
