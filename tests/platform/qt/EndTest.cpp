// The end that the host asks for, while a box or a menu of the toolkit below is up, and from where it is asked.
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <gtest/gtest.h>

#include "platform/controls/Menu.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtPlatform.h"
#include "platform/qt/printing/PrintBoxes.h"
#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"

namespace pixorra {
namespace {

class EndTest : public QtTest {
 protected:
  EndTest() {
    form.Show();
    toolkit.SetEnder([this] {
      ++closed;
      form.Unload();
      toolkit.End();
    });
  }
  void AskMeanwhile() {
    Meanwhile([this] { toolkit.AskToEnd(); });
  }
  void ExpectClosed() {
    EXPECT_FALSE(toolkit.WaitFor(10));
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }

  Form form{toolkit, "Form"};
  QtDialogs dialogs{backend};
  int closed = 0;
};

TEST_F(EndTest, ABoxIsAnsweredByTheLeast) {
  AskMeanwhile();
  EXPECT_EQ(dialogs.MsgBox("Go?", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  EXPECT_TRUE(toolkit.TakesInput(form));
  ExpectClosed();
}

TEST_F(EndTest, AnInputBoxIsCancelled) {
  AskMeanwhile();
  EXPECT_EQ(dialogs.InputBox("Name", "Title", "present"), "");
  ExpectClosed();
}

TEST_F(EndTest, AChoiceOfAColourIsCancelled) {
  AskMeanwhile();
  EXPECT_EQ(dialogs.ChooseColour(0x00123456), std::nullopt);
  ExpectClosed();
}

TEST_F(EndTest, AQuestionAboutPrintingIsAnsweredWithNo) {
  AskMeanwhile();
  EXPECT_FALSE(AskAboutPrinting(backend, "Print all the same?"));
  ExpectClosed();
}

TEST_F(EndTest, TheNameOfAFileToPrintIntoIsNotGiven) {
  QtPrinting printing(backend);
  printing.SetCurrentPrinter(PdfPrinter::PrinterName);
  AskMeanwhile();
  EXPECT_EQ(ErrorsIgnored([&] { printing.Printer().Print(" "); }), error::Printer);
  ExpectClosed();
}

TEST_F(EndTest, ABoxInABoxOfTheToolkitsOwnIsClosedFirst) {
  Meanwhile([this] {
    // As the toolkit's dialogs do it.
    QMessageBox inner(QMessageBox::Question, "Inner", "Replace?", QMessageBox::Yes | QMessageBox::No);
    Meanwhile([this] { toolkit.AskToEnd(); });
    EXPECT_NE(inner.exec(), QMessageBox::Yes);
  });
  EXPECT_EQ(dialogs.MsgBox("Outer", BoxIcon::Question, BoxButtons::YesNo, "Title"), BoxAnswer::No);
  ExpectClosed();
}

TEST_F(EndTest, APopUpMenuIsClosedAndNothingOfItRuns) {
  MenuItem menu(form, "PopMenu", "Pop");
  MenuItem item(menu, "Item", "&Item");
  menu.SetVisible(false);
  bool chosen = false;
  item.On().Click = [&](Control&) { chosen = true; };
  AskMeanwhile();
  form.PopupMenu(menu);
  EXPECT_FALSE(chosen);
  ExpectClosed();
}

TEST_F(EndTest, InARunningLoopItEndsTheLoop) {
  QMetaObject::invokeMethod(
      qApp, [this] { toolkit.AskToEnd(); }, Qt::QueuedConnection);
  backend.Run();
  EXPECT_EQ(closed, 1);
}

}  // namespace
}  // namespace pixorra
