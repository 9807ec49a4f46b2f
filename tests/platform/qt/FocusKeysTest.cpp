// Keys that only a window has: those that are held down, Tab, the key for menus; and the focus on a control without a
// widget.
#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/Accessibility.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class FocusKeysTest : public QtTest {
 protected:
  FocusKeysTest() {
    InstallAccessibility();
    form.SetClientSize(400, 300);
    form.SetKeyPreview(true);
    button.Move(10, 10, 80, 25);
    box.Move(10, 50, 80, 25);
    picture.Move(200, 100, 60, 40);
    picture.SetToolTipText("A folder");
    picture.On().Click = [](Control&) {};
    form.On().KeyDown = [this](Control&, int& code, int held) {
      codes.push_back(code);
      shifts.push_back(held);
      if (code == swallowed) code = 0;
    };
    form.Show();
    Settle();
    WindowOf(form).activateWindow();
    Settle();
  }
  // One press that is held down: the first event, and so many that the keyboard adds.
  void Hold(QWidget& widget, int qtKey, const QString& text, int repeats) {
    for (int i = 0; i <= repeats; ++i) {
      QKeyEvent press(QEvent::KeyPress, qtKey, Qt::NoModifier, text, i > 0);
      QApplication::sendEvent(&widget, &press);
    }
  }
  std::vector<int> codes;
  std::vector<int> shifts;
  int swallowed = 0;
  Form form{toolkit, "KeysForm"};
  CommandButton button{form, "Button"};
  TextBox box{form, "Box"};
  ImageBox picture{form, "Picture"};
};

TEST_F(FocusKeysTest, AHeldKeyRepeatsAMoveAndRunsACommandOnce) {
  Hold(WindowOf(form), Qt::Key_Right, {}, 3);
  EXPECT_EQ(codes, std::vector<int>(4, key::Right));
  codes.clear();
  Hold(WindowOf(form), Qt::Key_1, QStringLiteral("1"), 3);
  Hold(WindowOf(form), Qt::Key_Space, QStringLiteral(" "), 3);
  EXPECT_EQ(codes, (std::vector<int>{'1', key::Space}));
}

TEST_F(FocusKeysTest, APressAtTheMomentOfItsReleaseIsARepeatToo) {
  const auto send = [this](QEvent::Type type, quint64 moment) {
    QKeyEvent event(type, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
    event.setTimestamp(moment);
    QApplication::sendEvent(&WindowOf(form), &event);
  };
  send(QEvent::KeyPress, 1000);
  for (const quint64 moment : {1660U, 1700U, 1740U}) {
    send(QEvent::KeyRelease, moment);
    send(QEvent::KeyPress, moment);
  }
  EXPECT_EQ(codes, std::vector<int>{'1'});
  send(QEvent::KeyRelease, 1790);
  send(QEvent::KeyPress, 1850);
  EXPECT_EQ(codes, (std::vector<int>{'1', '1'})) << "a person is not so quick";
}

TEST_F(FocusKeysTest, InATextBoxAHeldKeyWritesOn) {
  box.SetFocus();
  Hold(WidgetOf<QLineEdit>(box), Qt::Key_1, QStringLiteral("1"), 3);
  EXPECT_EQ(box.Text(), "1111");
}

TEST_F(FocusKeysTest, TheKeyForMenusIsShiftF10) {
  Key(WindowOf(form), Qt::Key_Menu);
  EXPECT_EQ(codes, std::vector<int>{key::F1 + 9});
  EXPECT_EQ(shifts, std::vector<int>{shift::Shift});
}

TEST_F(FocusKeysTest, TabIsForTheFormFirstAndThenGoesFromWidgetToWidget) {
  button.SetFocus();
  swallowed = key::Tab;
  Key(WidgetOf<QPushButton>(button), Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_TRUE(button.HasFocus());
  EXPECT_TRUE(WidgetOf<QPushButton>(button).hasFocus());
  swallowed = 0;
  Key(WidgetOf<QPushButton>(button), Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_TRUE(box.HasFocus());
  Key(WidgetOf<QLineEdit>(box), Qt::Key_Backtab, QStringLiteral("\t"), Qt::ShiftModifier);
  EXPECT_TRUE(button.HasFocus());
  EXPECT_EQ(codes, std::vector<int>(3, key::Tab));
  EXPECT_EQ(shifts, (std::vector<int>{0, 0, shift::Shift}));
  form.SetKeyPreview(false);
  Key(WidgetOf<QPushButton>(button), Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_TRUE(box.HasFocus());
  EXPECT_EQ(codes.size(), 3U);
}

TEST_F(FocusKeysTest, WithTheFocusOnNoWidgetTabComesToTheFormToo) {
  swallowed = key::Tab;
  Key(WindowOf(form), Qt::Key_Tab, QStringLiteral("\t"));
  EXPECT_EQ(codes, std::vector<int>{key::Tab});
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

TEST_F(FocusKeysTest, APictureThatTakesTheFocusTakesItOffTheWidgetAndShowsIt) {
  button.SetFocus();
  const QImage before = Shot(form);
  picture.SetFocus();
  Settle();
  EXPECT_FALSE(WidgetOf<QPushButton>(button).hasFocus());
  const QImage after = Shot(form);
  EXPECT_NE(before.copy(200, 100, 60, 40), after.copy(200, 100, 60, 40));
  EXPECT_EQ(before.copy(201 + 4, 101 + 4, 50, 30), after.copy(201 + 4, 101 + 4, 50, 30)) << "a frame, and no more";
  Key(*QApplication::focusWidget(), Qt::Key_F5);
  EXPECT_EQ(codes, std::vector<int>{key::F1 + 4});
  toolkit.SetFocus(nullptr);
  Settle();
  EXPECT_EQ(before.copy(200, 100, 60, 40), Shot(form).copy(200, 100, 60, 40));
}

TEST_F(FocusKeysTest, AScreenReaderFindsTheFocusOnAPicture) {
  picture.SetFocus();
  Settle();
  QAccessibleInterface& client = *QAccessible::queryAccessibleInterface(&ClientOf(form));
  QAccessibleInterface* focus = client.focusChild();
  ASSERT_NE(focus, nullptr);
  EXPECT_EQ(focus->text(QAccessible::Name), QStringLiteral("A folder"));
  EXPECT_TRUE(focus->state().focused);
  EXPECT_TRUE(focus->state().focusable);
}

TEST_F(FocusKeysTest, APressOfTheMouseElsewhereTakesTheFocusOffAPicture) {
  picture.SetFocus();
  Click(ClientOf(form), {350, 250});
  EXPECT_EQ(toolkit.Focus(), nullptr);
}

}  // namespace
}  // namespace pixorra
