// Desktops that read from right to left: the program's windows look the same there.
#include <QMenu>
#include <QMenuBar>

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/Menu.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/FormPeer.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class RightToLeftTest : public QtTest {
 protected:
  // The text cursor is there all the time.
  RightToLeftTest() { QApplication::setCursorFlashTime(0); }
  ~RightToLeftTest() override {
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setCursorFlashTime(flashTime_);
  }

 private:
  const int flashTime_ = QApplication::cursorFlashTime();
};

TEST_F(RightToLeftTest, NothingOfAWindowIsMirrored) {
  Form form(toolkit, "Form");
  form.SetClientSize(300, 200);
  MenuItem file(form, "FileMenu", "&File");
  const MenuItem open(file, "OpenItem", "&Open", 'O', shift::Ctrl);
  Label label(form, "Label");
  label.Move(10, 10, 200, 20);
  label.SetCaption("12 pics");
  CheckBox check(form, "Check");
  check.Move(10, 40, 200, 20);
  check.SetCaption("Auto Scroll");
  ScrollBar bar(form, "Bar", Orientation::Horizontal);
  bar.Move(10, 70, 200, 20);
  bar.SetMax(100);
  bar.SetValue(10);
  ListBox list(form, "List");
  list.Move(10, 100, 100, 50);
  list.SetColumns({{0, Alignment::Left}, {40, Alignment::Right}});
  list.AddItem("a.jpg\t12Kb");
  TextBox text(form, "Text");
  text.Move(10, 160, 100, 24);
  text.SetText("name");
  PictureBox drawn(form, "Drawn");
  drawn.Move(150, 100, 100, 50);
  drawn.PrintAt(5, 5, "12 pics");
  form.Show();
  Settle();
  WindowOf(form).activateWindow();
  Settle();
  const auto window = [&] { return WindowOf(form).grab().toImage(); };
  const QImage before = window();
  ASSERT_TRUE(window() == before);
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  drawn.Cls();
  drawn.PrintAt(5, 5, "12 pics");
  Settle();
  EXPECT_TRUE(window() == before);
  QMenu& menu = *static_cast<FormPeer*>(form.GetPeer())->Window().MenuBar().actions().at(0)->menu();
  EXPECT_EQ(menu.layoutDirection(), Qt::LeftToRight);
}

}  // namespace
}  // namespace pixorra
