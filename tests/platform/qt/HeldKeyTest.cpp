// A key that is held down: what it sends while the program is busy with it is not made up for afterwards.
#include <QCoreApplication>
#include <QKeyEvent>
#include <QThread>
#include <QTimer>
#include <utility>

#include "platform/controls/Buttons.h"
#include "platform/controls/Lists.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class HeldKeyTest : public QtTest {
 protected:
  HeldKeyTest() {
    form.SetKeyPreview(true);
    form.On().KeyDown = [this](Control&, int& code, int) {
      ++handled;
      code = 0;
      if (busy > 0) QThread::msleep(static_cast<unsigned long>(busy));
      if (meanwhile) {
        QTimer::singleShot(0, [this] { std::exchange(meanwhile, {})(); });
        toolkit.DoEvents();
      }
    };
    form.Show();
    Settle();
  }
  // As the window system sends it; it waits to be handled.
  void Send(bool repeat) {
    QCoreApplication::postEvent(&WindowOf(form),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), repeat));
  }

  Form form{toolkit, "HeldKeyForm"};
  int handled = 0;
  int busy = 0;                     // milliseconds that a key takes
  std::function<void()> meanwhile;  // what happens when the handler lets events run
};

TEST_F(HeldKeyTest, EachRepeatIsHandledWhereTheProgramIsQuick) {
  for (int i = 0; i < 5; ++i) Send(i > 0);
  Settle();
  EXPECT_EQ(handled, 5);
}

TEST_F(HeldKeyTest, AKeyThatIsHeldSinceBeforeIsNotPressedInAFormThatTakesEveryKey) {
  form.SetTakesEveryKey(true);
  for (int i = 0; i < 3; ++i) Send(true);
  Settle();
  EXPECT_EQ(handled, 0);
  Send(false);
  Settle();
  EXPECT_EQ(handled, 1);
}

TEST_F(HeldKeyTest, AButtonWithoutANameIsAKeyToAFormThatTakesEveryKey) {
  Press(ClientOf(form), {20, 20}, Qt::BackButton);
  Release(ClientOf(form), {20, 20}, Qt::BackButton);
  EXPECT_EQ(handled, 0);
  form.SetTakesEveryKey(true);
  Press(ClientOf(form), {20, 20}, Qt::ForwardButton);
  EXPECT_EQ(handled, 1);
}

TEST_F(HeldKeyTest, RepeatsThatHavePiledUpAreDroppedAndTheNextOneIsHandled) {
  busy = 60;
  for (int i = 0; i < 5; ++i) Send(i > 0);
  Settle();
  EXPECT_EQ(handled, 1);
  Send(true);
  Settle();
  EXPECT_EQ(handled, 2);
}

TEST_F(HeldKeyTest, SeveralPressesAreAllHandledHoweverLongEachTakes) {
  busy = 60;
  for (int i = 0; i < 3; ++i) Send(false);
  Settle();
  EXPECT_EQ(handled, 3);
}

TEST_F(HeldKeyTest, RepeatsThatComeWhileTheHandlerLetsEventsRunAreDropped) {
  bool came = false;
  meanwhile = [&] {
    came = true;
    for (int i = 0; i < 3; ++i) {
      QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
      QCoreApplication::sendEvent(&WindowOf(form), &repeat);
    }
  };
  Send(false);
  Settle();
  EXPECT_TRUE(came);
  EXPECT_EQ(handled, 1);
}

TEST_F(HeldKeyTest, AHeldReturnOrEscapePressesAButtonOnceAlsoWhereTextIsTyped) {
  Form asking{toolkit, "AskingForm"};
  TextBox name{asking, "NameBox"};
  ListBox names{asking, "NamesList"};
  CommandButton yes{asking, "YesButton"};
  CommandButton no{asking, "NoButton"};
  yes.SetDefault(true);
  no.SetCancel(true);
  int answers = 0;
  yes.On().Click = [&](Control&) { ++answers; };
  no.On().Click = [&](Control&) { ++answers; };
  asking.Show();
  for (Control* focus : {static_cast<Control*>(&name), static_cast<Control*>(&names)}) {
    focus->SetFocus();
    Settle();
    for (const Qt::Key code : {Qt::Key_Return, Qt::Key_Escape}) {
      answers = 0;
      for (int i = 0; i < 4; ++i) {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, QString(), i > 0);
        QCoreApplication::sendEvent(&WindowOf(asking), &press);
      }
      EXPECT_EQ(answers, 1) << code;
    }
  }
}

}  // namespace
}  // namespace pixorra
