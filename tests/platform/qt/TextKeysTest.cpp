// Text boxes, the keyboard and the focus.
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "platform/controls/Buttons.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Menu.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class TextKeysTest : public QtTest {
 protected:
  TextKeysTest() {
    form.SetClientSize(400, 300);
    box.Move(0, 0, 200, 25);
    other.Move(0, 40, 200, 25);
    button.Move(0, 80, 100, 25);
    box.On().Change = [this](Control&) { ++changes; };
  }
  void ShowForm() {
    form.Show();
    Settle();
    WindowOf(form).activateWindow();
    Settle();
    changes = 0;
  }
  QLineEdit& Line() { return WidgetOf<QLineEdit>(box); }

  Form form{toolkit, "TextForm"};
  TextBox box{form, "Box"};
  TextBox other{form, "Other"};
  CommandButton button{form, "Button"};
  int changes = 0;
};

TEST_F(TextKeysTest, TypingChangesTheTextAndKeepsTheSelectionInStep) {
  ShowForm();
  box.SetFocus();
  Type(Line(), QStringLiteral("a\u00e4b"));
  EXPECT_EQ(box.Text(),
            "a\xC3\xA4"
            "b");
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(box.SelStart(), 4);
  Settle();
  EXPECT_EQ(Line().cursorPosition(), 3);
  Line().setSelection(1, 2);
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(box.SelLength(), 3);
}

TEST_F(TextKeysTest, CodesOwnTextsDoNotComeBack) {
  ShowForm();
  box.SetText("h\xC3\xA4llo");
  EXPECT_EQ(changes, 1);
  box.Select(1, 2);
  Settle();
  EXPECT_EQ(Line().text(), QStringLiteral("h\u00e4llo"));
  EXPECT_EQ(Line().selectedText(), QStringLiteral("\u00e4"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(box.SelLength(), 2);
}

TEST_F(TextKeysTest, AHandlerMayRewriteWhatIsTyped) {
  ShowForm();
  box.SetFocus();
  box.On().Change = [this](Control&) { box.SetText("fixed"); };
  Type(Line(), "x");
  Settle();
  EXPECT_EQ(Line().text(), "fixed");
}

TEST_F(TextKeysTest, ARefusedCharacterIsNotTyped) {
  box.On().KeyPress = [](Control&, int& code) {
    if (code == '*') code = 0;
  };
  ShowForm();
  box.SetFocus();
  Type(Line(), "a*b");
  EXPECT_EQ(box.Text(), "ab");
}

TEST_F(TextKeysTest, AnInputMethodsCharactersMayBeRefusedToo) {
  box.On().KeyPress = [](Control&, int& code) {
    if (code == 0xE4) code = 0;
  };
  ShowForm();
  box.SetFocus();
  for (const QString& text : {QStringLiteral("\u00e4"), QStringLiteral("\u00f6")}) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&Line(), &event);
  }
  EXPECT_EQ(box.Text(), "\xC3\xB6");
}

TEST_F(TextKeysTest, TheFormSeesKeysBeforeTheFocusedControl) {
  std::vector<std::string> events;
  form.SetKeyPreview(true);
  form.On().KeyDown = [&](Control&, int& code, int held) {
    events.push_back("form " + std::to_string(code) + " " + std::to_string(held));
    if (code == 'Q') code = 0;
  };
  box.On().KeyDown = [&](Control&, int& code, int) { events.push_back("box " + std::to_string(code)); };
  ShowForm();
  box.SetFocus();
  Key(Line(), Qt::Key_W, "W", Qt::ShiftModifier);
  Key(Line(), Qt::Key_Q, "q");
  EXPECT_EQ(events, (std::vector<std::string>{"form 87 1", "box 87", "form 81 0"}));
  EXPECT_EQ(box.Text(), "W");
}

TEST_F(TextKeysTest, AKeyIsToldOnceThoughNobodyUsesIt) {
  int keys = 0;
  form.SetKeyPreview(true);
  form.On().KeyDown = [&](Control&, int&, int) { ++keys; };
  ShowForm();
  button.SetFocus();
  Key(WidgetOf<QPushButton>(button), Qt::Key_F5);
  EXPECT_EQ(keys, 1);
  Key(WindowOf(form), Qt::Key_F5);
  EXPECT_EQ(keys, 2);
}

TEST_F(TextKeysTest, ReturnAndEscapePressTheFormsButtonsOnce) {
  CommandButton cancel(form, "Cancel");
  button.SetDefault(true);
  cancel.SetCancel(true);
  int pressed = 0;
  int cancelled = 0;
  button.On().Click = [&](Control&) { ++pressed; };
  cancel.On().Click = [&](Control&) { ++cancelled; };
  ShowForm();
  box.SetFocus();
  Key(Line(), Qt::Key_Return, "\r");
  Key(Line(), Qt::Key_Escape, "\x1b");
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(cancelled, 1);
  button.SetFocus();
  Key(WidgetOf<QPushButton>(button), Qt::Key_Return, "\r");
  EXPECT_EQ(pressed, 2);
  Key(WidgetOf<QPushButton>(button), Qt::Key_Space, " ");
  EXPECT_EQ(pressed, 3);
}

TEST_F(TextKeysTest, AShortcutIsNotTypedAndRunsOnlyWhereNoTextIs) {
  MenuItem menu(form, "Menu", "&Menu");
  MenuItem item(menu, "Item", "&Item", 'O', shift::Ctrl);
  int runs = 0;
  item.On().Click = [&](Control&) { ++runs; };
  ShowForm();
  box.SetFocus();
  Key(Line(), Qt::Key_O, QString(QChar(15)), Qt::ControlModifier);
  EXPECT_EQ(runs, 0);
  EXPECT_EQ(box.Text(), "");
  button.SetFocus();
  Key(WidgetOf<QPushButton>(button), Qt::Key_O, QString(QChar(15)), Qt::ControlModifier);
  EXPECT_EQ(runs, 1);
}

TEST_F(TextKeysTest, APeerMayGoInItsOwnKey) {
  ShowForm();
  box.SetFocus();
  QLineEdit& line = Line();
  box.On().KeyPress = [&](Control&, int&) { form.Unload(); };
  Key(line, Qt::Key_A, "a");
  EXPECT_EQ(box.GetPeer(), nullptr);
  Settle();
}

TEST_F(TextKeysTest, TabMovesTheFocusAndTheModelHearsOfIt) {
  std::vector<std::string> events;
  box.On().LostFocus = [&](Control&) { events.emplace_back("box lost"); };
  other.On().GotFocus = [&](Control&) { events.emplace_back("other got"); };
  ShowForm();
  box.SetFocus();
  Key(Line(), Qt::Key_Tab, "\t");
  EXPECT_TRUE(other.HasFocus());
  EXPECT_EQ(events, (std::vector<std::string>{"box lost", "other got"}));
}

TEST_F(TextKeysTest, KeysMeantForALightControlDoNotReachTheWidgetThatWasLeft) {
  ImageBox image(form, "Image");
  int clicks = 0;
  button.On().Click = [&](Control&) { ++clicks; };
  ShowForm();
  button.SetFocus();
  image.SetFocus();
  Key(WidgetOf<QPushButton>(button), Qt::Key_Space, " ");
  EXPECT_EQ(clicks, 0);
}

TEST_F(TextKeysTest, FocusThatWasSetBeforeTheWindowIsShownIsThereWhenItIs) {
  other.SetFocus();
  ShowForm();
  EXPECT_TRUE(WidgetOf<QLineEdit>(other).hasFocus());
  EXPECT_TRUE(other.HasFocus());
}

TEST_F(TextKeysTest, ALockedBoxCannotBeTypedIn) {
  box.SetLocked(true);
  box.SetText("as it is");
  ShowForm();
  box.SetFocus();
  Type(Line(), "x");
  EXPECT_EQ(box.Text(), "as it is");
  EXPECT_EQ(Line().text(), "as it is");
}

TEST_F(TextKeysTest, ABoxOfSeveralLinesKeepsTheProgramsLineEnds) {
  TextBox lines(form, "Lines");
  lines.SetMultiLine(true);
  lines.Move(0, 120, 200, 80);
  lines.SetText("one\r\ntwo");
  ShowForm();
  auto& widget = WidgetOf<QPlainTextEdit>(lines);
  EXPECT_EQ(widget.toPlainText(), "one\ntwo");
  lines.SetFocus();
  widget.moveCursor(QTextCursor::End);
  EXPECT_EQ(lines.SelStart(), 8);
  Key(widget, Qt::Key_Return, "\r");
  Type(widget, "3");
  EXPECT_EQ(lines.Text(), "one\r\ntwo\r\n3");
  EXPECT_EQ(lines.SelStart(), 11);
  Settle();
  EXPECT_EQ(widget.textCursor().position(), 9);
}

}  // namespace
}  // namespace pixorra
