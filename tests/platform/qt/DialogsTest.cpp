// The host's own boxes, and the clipboard.
#include <QAccessible>
#include <QClipboard>
#include <QColorDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include "platform/controls/ImageBox.h"
#include "platform/controls/Timer.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtDialogs.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/platform/qt/hands/Hands.h"

namespace pixorra {
namespace {

class DialogsTest : public QtTest {
 protected:
  template <typename Box>
  static Box& Up() {
    auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
    if (box == nullptr) throw std::runtime_error("no such box is up");
    return *box;
  }
  QtDialogs dialogs{backend};
  Form form{toolkit, "BoxForm"};
};

TEST_F(DialogsTest, ABoxShowsPlainLinesAndItsTitle) {
  Meanwhile([] {
    auto& box = Up<QMessageBox>();
    EXPECT_EQ(box.text(), "<b>One</b> & two\nthree");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), "WARNING: Title");
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    box.button(QMessageBox::Ok)->click();
  });
  const BoxAnswer answer =
      dialogs.MsgBox("<b>One</b> & two\r\nthree", BoxIcon::Exclamation, BoxButtons::Ok, "WARNING: Title");
  EXPECT_EQ(answer, BoxAnswer::Ok);
}

TEST_F(DialogsTest, ABoxStaysWhenTheNoticeThatWasUpBeforeItGoes) {
  form.Show();
  Form notice(toolkit, "NoticeForm");
  notice.ShowOwned(&form);
  Settle();
  Meanwhile([&] {
    notice.Unload();
    Settle();
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    box->button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(dialogs.MsgBox("Go?", BoxIcon::Question, BoxButtons::YesNo, "Question"), BoxAnswer::Yes);
}

TEST_F(DialogsTest, LinesOfATextAreNotBrokenOnceMoreBelowLargeLetters) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSize(14);
  QApplication::setFont(large);
  Meanwhile([] {
    auto& box = Up<QMessageBox>();
    const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    EXPECT_GE(label->width(), label->fontMetrics().size(0, box.text()).width());
    EXPECT_LT(label->height(), 3 * label->fontMetrics().lineSpacing());
    box.button(QMessageBox::Ok)->click();
  });
  dialogs.MsgBox("A photo that is dragged into a folder is copied\r\nand shaded.", BoxIcon::Information, BoxButtons::Ok,
                 "Title");
  QApplication::setFont(before);
}

// Lines of a text that are wider than a box may be.
class WideTextTest : public DialogsTest {
 protected:
  ~WideTextTest() override { QApplication::setFont(before_); }

  void ExpectAllOfItShown(const std::string& text, int points) {
    SCOPED_TRACE(text + " at " + std::to_string(points));
    QFont font = before_;
    font.setPointSize(points);
    QApplication::setFont(font);
    Meanwhile([this] {
      auto& box = Up<QMessageBox>();
      const auto& label = *box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
      EXPECT_LE(label.mapTo(&box, QPoint(label.width(), 0)).x(), box.width());
      const int room = label.contentsRect().width() - label.indent();
      const QRect shown = label.fontMetrics().boundingRect(QRect(0, 0, room, 1), Qt::TextWordWrap, label.text());
      EXPECT_LE(shown.width(), room);
      EXPECT_LE(shown.height(), label.height());
      EXPECT_LE(box.width(), box.screen()->availableSize().width());
      EXPECT_LE(box.height(), box.screen()->availableSize().height() - TitleBar);
      shown_ = label.text();
      box.button(QMessageBox::Ok)->click();
    });
    dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, text);
  }
  // Of a text that has no room on the screen, what matters stays: its beginning, a path's beginning and its end.
  void ExpectTooLongTextsShortened() {
    std::string path = "/home/anna";
    while (path.size() < 3780) path += "/" + std::string(200, 'W');
    for (const int points : {9, 14}) {
      ExpectAllOfItShown("Not found:\r\n" + path + "/x.jpg\r\nIt has gone.", points);
      const QString shown = QString(shown_).remove(QChar(0x200B));
      EXPECT_TRUE(shown.startsWith("Not found:\n/home/anna/WWWW")) << shown_.toStdString();
      EXPECT_TRUE(shown.endsWith("WWWW/x.jpg\nIt has gone.")) << shown_.toStdString();
      EXPECT_EQ(shown.count(QChar(0x2026)), 1);
      EXPECT_GT(shown.size(), 300) << "as much as there is room for";
      std::string lines;
      for (int i = 0; i < 500; ++i) lines += "Photo " + std::to_string(i) + "\r\n";
      ExpectAllOfItShown(lines + "are not copied.", points);
      EXPECT_TRUE(shown_.startsWith("Photo 0\nPhoto 1\n")) << shown_.toStdString();
      EXPECT_TRUE(shown_.endsWith("Photo 499\nare not copied.")) << shown_.toStdString();
    }
  }
  void ExpectAllOfEachShown() {
    std::string words;
    while (words.size() < 200) words += "word ";
    const std::string path =
        "/home/anna/Photos of the summer/" + std::string(60, 'a') + "/" + std::string(60, 'b') + "/x.jpg";
    for (const int points : {9, 14}) {
      for (const std::string& text :
           {words, path, std::string(255, 'n'), "The name\r\n" + std::string(255, 'W') + "\r\nis long."})
        ExpectAllOfItShown(text, points);
    }
  }

 private:
  static constexpr int TitleBar = 30;  // pixels
  const QFont before_ = QApplication::font();
  QString shown_;  // the text of the last box
};

TEST_F(WideTextTest, NothingIsCutOffOnASmallScreen) {
  OnAScreenOf(800, 600, [this] {
    ExpectAllOfEachShown();
    ExpectTooLongTextsShortened();
  });
}

TEST_F(WideTextTest, NothingIsCutOffOnAUsualScreen) {
  OnAScreenOf(1280, 1024, [this] {
    ExpectAllOfEachShown();
    ExpectTooLongTextsShortened();
  });
}

TEST_F(WideTextTest, NothingIsCutOffOnALargeScreen) {
  OnAScreenOf(2560, 1800, [this] { ExpectAllOfEachShown(); });
}

TEST_F(DialogsTest, WhatIsCopiedFromABoxIsTheTextAsItWasGiven) {
  const std::string text = "The photo\r\n/home/anna/" + std::string(250, 'W') + "/x.jpg\r\nis not there.";
  QApplication::clipboard()->setText("before");
  Meanwhile([&text] {
    auto& box = Up<QMessageBox>();
    EXPECT_TRUE(box.text().contains(QChar(0x200B))) << "it has been broken";
    Hands::Key('C', shift::Ctrl);
    EXPECT_FALSE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name),
              QString::fromStdString(text).remove('\r'));
    box.accept();
  });
  dialogs.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, "Title");
  const QString copied = QApplication::clipboard()->text();
  EXPECT_EQ(copied, QString::fromStdString(text).remove('\r'));
}

TEST_F(DialogsTest, WhatNobodyIsThereToReadIsLoggedInOneLine) {
  toolkit.AskToEnd();
  testing::internal::CaptureStderr();
  dialogs.MsgBox("Gone:\r\n/home/anna\nb\xC2\x9Bx", BoxIcon::Exclamation, BoxButtons::Ok, "Title\x1B");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Title : Gone:  /home/anna b x\n");
}

TEST_F(DialogsTest, AQuestionIsAnsweredByItsButtonsAndNoByAnyOtherWay) {
  const auto ask = [this] { return dialogs.MsgBox("Really?", BoxIcon::Question, BoxButtons::YesNo, "Title"); };
  Meanwhile([] {
    EXPECT_EQ(Up<QMessageBox>().defaultButton(), Up<QMessageBox>().button(QMessageBox::Yes));
    Up<QMessageBox>().button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(ask(), BoxAnswer::Yes);
  Meanwhile([] { Up<QMessageBox>().button(QMessageBox::No)->click(); });
  EXPECT_EQ(ask(), BoxAnswer::No);
  Meanwhile([] { Up<QMessageBox>().close(); });
  EXPECT_EQ(ask(), BoxAnswer::No);
}

TEST_F(DialogsTest, OnlyEscIsToldFromTheOtherWaysToCloseAnOkBox) {
  const auto show = [this] { return dialogs.MsgBox("Full.", BoxIcon::Exclamation, BoxButtons::Ok, "Title"); };
  for (const int code : {key::Return, key::Space}) {
    Meanwhile([code] { Hands::Key(code, 0); });
    EXPECT_EQ(show(), BoxAnswer::Ok) << code;
  }
  Meanwhile([] { Up<QMessageBox>().close(); });
  EXPECT_EQ(show(), BoxAnswer::Ok);
  Meanwhile([] { Hands::Key(key::Escape, 0); });
  EXPECT_EQ(show(), BoxAnswer::Cancel);
}

TEST_F(DialogsTest, WhileABoxIsUpTimersRunAndNoFormTakesInput) {
  form.Show();
  Timer timer(form, "Timer", 10);
  int ticks = 0;
  timer.On().Timer = [&](Control&) {
    EXPECT_FALSE(toolkit.TakesInput(form));
    if (++ticks == 3) Up<QMessageBox>().accept();
  };
  timer.SetEnabled(true);
  dialogs.MsgBox("Wait", BoxIcon::None, BoxButtons::Ok, "Title");
  EXPECT_EQ(ticks, 3);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(DialogsTest, ABoxStandsAboveTheActiveForm) {
  form.Show();
  Meanwhile([this] {
    EXPECT_EQ(Up<QMessageBox>().parentWidget(), &WindowOf(form));
    Up<QMessageBox>().accept();
  });
  dialogs.MsgBox("Above", BoxIcon::None, BoxButtons::Ok, "Title");
}

TEST_F(DialogsTest, ABoxOutlivesTheFormThatItStandsAbove) {
  form.Show();
  Meanwhile([this] {
    form.Unload();
    Meanwhile([] {
      if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
  });
  EXPECT_EQ(dialogs.MsgBox("Gone", BoxIcon::None, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  EXPECT_TRUE(toolkit.TakesInput(form));
}

TEST_F(DialogsTest, TheEndOfTheProgramClosesABoxAndNoneComesUpAfterIt) {
  Meanwhile([this] { toolkit.End(); });
  EXPECT_EQ(dialogs.MsgBox("End", BoxIcon::None, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  EXPECT_EQ(dialogs.MsgBox("After", BoxIcon::None, BoxButtons::Ok, "Title"), BoxAnswer::Ok);
  EXPECT_EQ(dialogs.InputBox("After", "Title", "x"), "");
}

TEST_F(DialogsTest, AnInputBoxGivesWhatIsTypedAndNothingOnCancel) {
  Meanwhile([] {
    auto& box = Up<QInputDialog>();
    EXPECT_EQ(box.windowTitle(), "Title");
    EXPECT_EQ(box.textValue(), QStringLiteral("h\u00e4"));
    const auto labels = box.findChildren<QLabel*>();
    ASSERT_FALSE(labels.isEmpty());
    EXPECT_EQ(labels.first()->text(), "Name &lt;i&gt;<br>here");
    EXPECT_EQ(box.findChild<QLineEdit*>()->accessibleName(), "Name <i>\nhere") << "without marks";
    box.setTextValue("typed");
    box.accept();
  });
  EXPECT_EQ(dialogs.InputBox("Name <i>\r\nhere", "Title", "h\xC3\xA4"), "typed");
  Meanwhile([] { Up<QInputDialog>().reject(); });
  EXPECT_EQ(dialogs.InputBox("Name", "Title", "present"), "");
}

TEST_F(DialogsTest, AColourIsGivenAsTheProgramWritesIt) {
  Meanwhile([] {
    EXPECT_EQ(Up<QColorDialog>().currentColor(), QColor(1, 2, 3));
    Up<QColorDialog>().setCurrentColor(QColor(0x11, 0x22, 0x33));
    Up<QColorDialog>().accept();
  });
  EXPECT_EQ(dialogs.ChooseColour(0x030201), Colour{0x332211});
  Meanwhile([] { Up<QColorDialog>().reject(); });
  EXPECT_EQ(dialogs.ChooseColour(0), std::nullopt);
}

TEST_F(DialogsTest, TheClipboardTakesAndGivesPixels) {
  QtClipboard clipboard;
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasBitmap());
  EXPECT_TRUE(clipboard.GetBitmap().IsNothing());
  Bitmap bitmap(3, 2, PixelFormat::Bgr24);
  bitmap.Fill(0x102030);
  bitmap.Row(1)[3] = 0xFF;
  clipboard.SetBitmap(Picture(std::move(bitmap)));
  ASSERT_TRUE(clipboard.HasBitmap());
  const Picture back = clipboard.GetBitmap();
  ASSERT_EQ(back.Width(), 3);
  ASSERT_EQ(back.Height(), 2);
  EXPECT_EQ(back.Pixels().Format(), PixelFormat::Bgr24);
  EXPECT_EQ(back.Pixels().Row(0)[0], 0x10);
  EXPECT_EQ(back.Pixels().Row(0)[2], 0x30);
  EXPECT_EQ(back.Pixels().Row(1)[3], 0xFF);
  clipboard.Clear();
  EXPECT_FALSE(clipboard.HasBitmap());
}

}  // namespace
}  // namespace pixorra
