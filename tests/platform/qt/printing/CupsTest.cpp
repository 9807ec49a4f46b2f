// Printing through a real print server.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <cups/cups.h>
#include <gmock/gmock.h>

#include "platform/qt/printing/CupsServer.h"
#include "platform/qt/printing/QtPrinting.h"
#include "platform/runtime/Errors.h"
#include "tests/platform/qt/QtTest.h"
#include "tests/platform/qt/hands/Hands.h"
#include "tests/platform/qt/printing/PrintLine.h"
#include "tests/platform/qt/printing/PrintServer.h"

namespace pixorra {
namespace {

using ::testing::ElementsAre;

// Of a server that hangs. Before that it must answer in this time, however busy the machine is.
constexpr CupsPatience Brief{.AnswerSeconds = 2};

void AskAt(int port) {
  cupsSetServer(QStringLiteral("127.0.0.1:%1").arg(port).toUtf8().constData());
}

class CupsTest : public QtTest {
 protected:
  void SetUp() override {
    if (!server.WhyNot().empty()) GTEST_SKIP() << server.WhyNot();
  }
  void PrintTwoPages(PrintSurface& page) {
    page.SetOrientation(2);
    page.SetDocumentName("Photos of June");
    page.Print("first");
    page.NewPage();
    page.Print("second");
  }
  static RuntimeError ErrorOf(const std::function<void()>& statement) {
    try {
      statement();
    } catch (const RuntimeError& e) {
      return e;
    }
    return RuntimeError(error::None, "");
  }
  static QPrintDialog* Dialog() { return qobject_cast<QPrintDialog*>(QApplication::activeModalWidget()); }
  // In the next print setup dialog: the printer is chosen, something more done, and the dialog closed.
  void InSetup(const QString& printer, QDialogButtonBox::StandardButton button,
               const std::function<void(QPrintDialog&)>& more = {}) {
    Hands::Meanwhile([] { return Dialog() != nullptr; },
                     [=] {
                       auto* const list = Dialog()->findChild<QComboBox*>("allPrinters");
                       ASSERT_NE(list, nullptr);
                       EXPECT_GE(list->findText(printer), 0) << printer.toStdString();
                       list->setCurrentIndex(list->findText(printer));
                       if (more) more(*Dialog());
                       Dialog()->findChild<QDialogButtonBox*>()->button(button)->click();
                     });
  }

  // In the next dialog about the paper.
  void ChoosePaper(const QString& paper) {
    Hands::Meanwhile([] { return qobject_cast<QPageSetupDialog*>(QApplication::activeModalWidget()) != nullptr; },
                     [=] {
                       QWidget* const dialog = QApplication::activeModalWidget();
                       auto* const sizes = dialog->findChild<QComboBox*>("pageSizeCombo");
                       EXPECT_GE(sizes->findText(paper), 0) << "the printer's own papers are there";
                       sizes->setCurrentIndex(sizes->findText(paper));
                       dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
                     });
  }

  PrintServer server;
};

TEST_F(CupsTest, PrintersAreListedWithTheFilesPrinterAndTheDefaultIsCurrent) {
  QtPrinting printing(backend);
  std::string told;
  printing.WhenDefaultIsKnown([&](const std::string& name) { told = name; });
  EXPECT_EQ(told, "") << "nobody has asked yet";
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  EXPECT_EQ(told, "Office");
  EXPECT_THAT(printing.PrinterNames(), ElementsAre("Office", "Save as PDF"));
  EXPECT_TRUE(printing.IsReady("Office"));
  PrintSurface& page = printing.Printer();
  EXPECT_EQ(page.PaperSize(), 9);
  EXPECT_EQ(page.DriverName(), "Test Office");
  EXPECT_NEAR(page.TwipsPerPixelX(), 2.4, 0.001);
  page.SetOrientation(2);
  EXPECT_EQ(page.SheetWidth(), 842 * 20);
  EXPECT_NEAR(page.ScaleWidth(), (842 - 2 * 36) * 20, 25) << "the larger one of both ends";
  EXPECT_NEAR(page.ScaleHeight(), (595 - 2 * 10) * 20, 25);
}

TEST_F(CupsTest, DocumentArrivesWithItsPagesAndTitle) {
  QtPrinting printing(backend);
  PrintTwoPages(printing.Printer());
  EXPECT_TRUE(server.HasNothing()) << "not before its end";
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(1), 2);
  EXPECT_TRUE(server.Info(1, "Page size").startsWith("842 x 595")) << server.Info(1, "Page size").toStdString();
  EXPECT_EQ(server.Info(1, "Page rot"), "0");
  EXPECT_EQ(server.Title(1), "Photos of June");
  EXPECT_TRUE(server.Options(1).contains("media=A4")) << server.Options(1).join(' ').toStdString();
  EXPECT_TRUE(server.Options(1).contains("print-scaling=none"));
  EXPECT_TRUE(server.Options(1).filter("landscape").isEmpty());
  PrintTwoPages(printing.Printer());
  printing.Printer().NewPage();
  printing.Printer().Print("third");
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(2), 3);
}

TEST_F(CupsTest, DroppedDocumentDoesNotArrive) {
  QtPrinting printing(backend);
  PrintTwoPages(printing.Printer());
  printing.Printer().KillDoc();
  printing.Printer().Print("another");
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(1), 1);
}

TEST_F(CupsTest, StoppedPrinterIsToldWithTheFirstPrint) {
  QtPrinting printing(backend);
  PrintSurface& page = printing.Printer();
  server.Administer("cupsdisable", {"-r", "Paper jam", "Office"});
  const RuntimeError stopped = ErrorOf([&] { page.Print(" "); });
  EXPECT_EQ(stopped.Number(), error::DeviceIO);
  EXPECT_EQ(stopped.Description(), "The printer \"Office\" is stopped: Paper jam");
  EXPECT_FALSE(printing.IsReady("Office"));
  server.Administer("cupsenable", {"Office"});
  server.Administer("cupsreject", {"-r", "Closed today", "Office"});
  const RuntimeError closed = ErrorOf([&] { page.Print(" "); });
  EXPECT_EQ(closed.Number(), error::DeviceIO);
  EXPECT_EQ(closed.Description(), "The printer \"Office\" takes no documents now: Closed today");
  EXPECT_EQ(ErrorOf([&] { page.EndDoc(); }).Number(), error::None);
}

TEST_F(CupsTest, PrinterThatIsStoppedMeanwhileIsToldAtTheEnd) {
  QtPrinting printing(backend);
  PrintTwoPages(printing.Printer());
  server.Administer("cupsdisable", {"-r", "Paper jam", "Office"});
  const RuntimeError stopped = ErrorOf([&] { printing.Printer().EndDoc(); });
  EXPECT_EQ(stopped.Number(), error::Printer);
  EXPECT_EQ(stopped.Description(), "The printer \"Office\" is stopped: Paper jam");
  EXPECT_EQ(ErrorOf([&] { printing.Printer().EndDoc(); }).Number(), error::None) << "the document is gone";
}

TEST_F(CupsTest, DeletedPrinterIsTold) {
  QtPrinting printing(backend);
  PrintTwoPages(printing.Printer());
  server.Administer("lpadmin", {"-x", "Office"});
  const RuntimeError gone = ErrorOf([&] { printing.Printer().EndDoc(); });
  EXPECT_EQ(gone.Number(), error::Printer);
  EXPECT_EQ(gone.Description(), "The printer \"Office\" is not there any more");
}

TEST_F(CupsTest, ServerThatHasGoneIsTold) {
  QtPrinting printing(backend);
  PrintTwoPages(printing.Printer());
  server.Stop();
  const RuntimeError gone = ErrorOf([&] { printing.Printer().EndDoc(); });
  EXPECT_EQ(gone.Number(), error::Printer);
  EXPECT_EQ(gone.Description(), "The print system does not answer");
}

TEST_F(CupsTest, WithoutTheServerSetupOffersPdfFiles) {
  QtPrinting printing(backend, {.ListSeconds = 0});
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  server.Stop();
  QString told;
  const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
  const auto paper = [] { return qobject_cast<QPageSetupDialog*>(QApplication::activeModalWidget()); };
  const auto setUp = [&](QDialogButtonBox::StandardButton answer) {
    told.clear();
    Hands::Meanwhile([&] { return box() != nullptr; },
                     [&] {
                       told = box()->text();
                       box()->button(QMessageBox::Ok)->click();
                     });
    Hands::Meanwhile([&] { return paper() != nullptr; },
                     [&] { paper()->findChild<QDialogButtonBox*>()->button(answer)->click(); });
    return printing.ShowPrintSetup();
  };
  EXPECT_FALSE(setUp(QDialogButtonBox::Cancel));
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  EXPECT_TRUE(setUp(QDialogButtonBox::Ok));
  EXPECT_TRUE(told.startsWith("The print system does not answer")) << told.toStdString();
  EXPECT_EQ(printing.CurrentPrinterName(), "Save as PDF");
}

TEST_F(CupsTest, ServerThatGoesWhileAPrinterIsAskedAboutDoesNotAnswer) {
  const auto reached = CupsServer::Reach();
  ASSERT_NE(reached, nullptr);
  EXPECT_EQ(ReasonAgainst("Nobody", reached->StateOf("Nobody")), "The printer \"Nobody\" is not there any more");
  server.Stop();
  EXPECT_EQ(ReasonAgainst("Office", reached->StateOf("Office")), "The print system does not answer");
}

TEST_F(CupsTest, PrinterThatWasChosenStaysWhenOthersComeAndNoneIsTheDefault) {
  server.Administer("lpadmin", {"-p", "Spare", "-E", "-v", "keep:/"});
  server.Administer("lpadmin", {"-x", "Office"});
  QtPrinting printing(backend, {.ListSeconds = 0});
  EXPECT_EQ(printing.CurrentPrinterName(), "Spare") << "the first one";
  server.Administer("lpadmin", {"-p", "Annex", "-E", "-v", "keep:/"});
  EXPECT_THAT(printing.PrinterNames(), ElementsAre("Annex", "Spare", "Save as PDF"));
  EXPECT_EQ(printing.CurrentPrinterName(), "Spare");
  server.Administer("lpadmin", {"-d", "Annex"});
  EXPECT_EQ(printing.CurrentPrinterName(), "Annex") << "a default that is set is followed";
}

TEST_F(CupsTest, PrinterThatHasGoneSinceItWasListedIsToldAndNotChosen) {
  server.Administer("lpadmin", {"-p", "Spare", "-E", "-v", "keep:/", "-P", server.DescriptionFile()});
  QtPrinting printing(backend, {.ListSeconds = 600});
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  server.Administer("lpadmin", {"-x", "Spare"});
  const RuntimeError gone = ErrorOf([&] { printing.SetCurrentPrinter("Spare"); });
  EXPECT_EQ(gone.Number(), error::Printer);
  EXPECT_EQ(gone.Description(), "The printer \"Spare\" is not there any more");
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
}

TEST_F(CupsTest, WhereTheCurrentPrinterHasGoneSetupTellsItAndOffersPdfFiles) {
  QtPrinting printing(backend, {.ListSeconds = 600});
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  server.Administer("lpadmin", {"-x", "Office"});
  QString told;
  Hands::Meanwhile([] { return qobject_cast<QDialog*>(QApplication::activeModalWidget()) != nullptr; },
                   [&] {
                     if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                       told = box->text();
                     qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
                   });
  Hands::Meanwhile([] { return qobject_cast<QPageSetupDialog*>(QApplication::activeModalWidget()) != nullptr; },
                   [] { QApplication::activeModalWidget()->close(); });
  EXPECT_FALSE(printing.ShowPrintSetup());
  EXPECT_TRUE(told.startsWith("The printer \"Office\" is not there any more")) << told.toStdString();
}

TEST_F(CupsTest, LongTitleArrivesOnOneLineAndCutAtACharacter) {
  QtPrinting printing(backend);
  std::string name = "Two\nlines ";
  for (int i = 0; i < 200; ++i) name += "\xC3\xA4";
  printing.Printer().SetDocumentName(name);
  printing.Printer().Print("a page");
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(1), 1);
  EXPECT_EQ(server.Title(1), "Two lines " + QString(122, QChar(0xE4)));
}

// A question to a server that hangs takes seconds, and some of the print system's own minutes.
TEST_F(CupsTest, ServerThatHangsMeanwhileIsToldAndNotAskedAgain) {
  const PrintLine line(server.Port());
  AskAt(line.Port());
  const auto reached = CupsServer::Reach(Brief);
  ASSERT_NE(reached, nullptr);
  const int before = line.Connections();
  server.Hang();
  EXPECT_EQ(ReasonAgainst("Office", reached->StateOf("Office")), "The print system does not answer");
  EXPECT_EQ(line.Connections(), before);
}

TEST_F(CupsTest, PrinterThatIsHeldDoesNotFollowTheDefault) {
  QtPrinting printing(backend, {.ListSeconds = 0});
  printing.HoldPrinter(true);
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  server.Administer("lpadmin", {"-p", "Attic", "-E", "-v", "keep:/", "-m", "raw"});
  server.Administer("lpadmin", {"-d", "Attic"});
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  printing.HoldPrinter(false);
  EXPECT_EQ(printing.CurrentPrinterName(), "Attic");
}

TEST_F(CupsTest, ListThatFailsIsNotAListWithoutPrinters) {
  const auto reached = CupsServer::Reach(Brief);
  ASSERT_NE(reached, nullptr);
  EXPECT_EQ(reached->Queues()->size(), 1U);
  server.Hang();
  EXPECT_FALSE(reached->Queues().has_value());
}

TEST_F(CupsTest, ServerWithoutPrintersListsNone) {
  server.Administer("lpadmin", {"-x", "Office"});
  const auto queues = CupsServer::Reach()->Queues();
  ASSERT_TRUE(queues.has_value());
  EXPECT_TRUE(queues->empty());
}

TEST_F(CupsTest, SetupDialogOffersTheFilesPrinterAndCancelChangesNothing) {
  QtPrinting printing(backend);
  InSetup("Save as PDF", QDialogButtonBox::Cancel);
  EXPECT_FALSE(printing.ShowPrintSetup());
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  InSetup("Save as PDF", QDialogButtonBox::Ok);
  EXPECT_TRUE(printing.ShowPrintSetup());
  EXPECT_EQ(printing.CurrentPrinterName(), "Save as PDF");
  InSetup("Office", QDialogButtonBox::Ok, [](QPrintDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->text(), "OK");
    dialog.findChild<QSpinBox*>("copies")->setValue(3);
  });
  printing.Printer().SetOrientation(2);
  EXPECT_TRUE(printing.ShowPrintSetup());
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  EXPECT_EQ(printing.Printer().SheetWidth(), 842 * 20) << "the orientation stays";
  PrintTwoPages(printing.Printer());
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(1), 2);
  EXPECT_TRUE(server.Options(1).filter("landscape").isEmpty());
  EXPECT_EQ(server.Copies(1), 3);
}

// The toolkit would ask it again and again for minutes.
TEST_F(CupsTest, ServerThatHangsIsAskedOnceByEachThatNeedsAPrinterOfIt) {
  server.Administer("lpadmin", {"-p", "Spare", "-E", "-v", "keep:/", "-P", server.DescriptionFile()});
  const PrintLine line(server.Port());
  AskAt(line.Port());
  QtPrinting printing(backend, {.AnswerSeconds = Brief.AnswerSeconds, .ListSeconds = 600});
  EXPECT_EQ(printing.CurrentPrinterName(), "Office");
  server.Hang();
  const int before = line.Connections();
  const RuntimeError hangs = ErrorOf([&] { printing.SetCurrentPrinter("Spare"); });
  EXPECT_EQ(hangs.Number(), error::Printer);
  EXPECT_EQ(hangs.Description(), "The print system does not answer");
  EXPECT_EQ(printing.CurrentPrinterName(), "Office") << "as before";
  EXPECT_EQ(line.Connections(), before + 1);
  Hands::Meanwhile([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr; },
                   [] { QApplication::activeModalWidget()->close(); });
  Hands::Meanwhile([] { return qobject_cast<QPageSetupDialog*>(QApplication::activeModalWidget()) != nullptr; },
                   [] { QApplication::activeModalWidget()->close(); });
  EXPECT_FALSE(printing.ShowPrintSetup());
  EXPECT_EQ(line.Connections(), before + 2);
}

TEST_F(CupsTest, PaperIsThePrintersOwnUsualOne) {
  server.Administer("lpadmin", {"-p", "Office", "-o", "PageSize=4x6"});
  QtPrinting printing(backend);
  EXPECT_EQ(printing.Printer().SheetWidth(), 288 * 20);
  EXPECT_EQ(printing.Printer().SheetHeight(), 432 * 20);
  InSetup("Office", QDialogButtonBox::Ok);
  EXPECT_TRUE(printing.ShowPrintSetup());
  EXPECT_EQ(printing.Printer().SheetWidth(), 288 * 20);
}

TEST_F(CupsTest, PaperWithMarginsWiderThanItselfStillHasRoomToPrintOn) {
  server.Administer("lpadmin", {"-p", "Office", "-o", "PageSize=Tag"});
  QtPrinting printing(backend);
  PrintSurface& page = printing.Printer();
  for (const int orientation : {1, 2}) {
    page.SetOrientation(orientation);
    EXPECT_EQ(page.SheetWidth(), (orientation == 1 ? 100 : 200) * 20);
    EXPECT_GE(page.ScaleWidth(), page.SheetWidth() / 2);
    EXPECT_GE(page.ScaleHeight(), page.SheetHeight() / 2);
  }
  PrintTwoPages(page);
  page.EndDoc();
  EXPECT_EQ(server.PagesOf(1), 2);
}

TEST_F(CupsTest, PropertiesInTheSetupShowThePaperAndOfferNoMarginsAndNoOrientation) {
  QtPrinting printing(backend);
  QStringList shown;
  int heightOfPicture = 0;
  InSetup("Office", QDialogButtonBox::Cancel, [&](QPrintDialog& dialog) {
    Hands::Meanwhile([&] { return QApplication::activeModalWidget() != &dialog; },
                     [&] {
                       QWidget* const properties = QApplication::activeModalWidget();
                       for (const char* name : {"pageSizeCombo", "portrait", "landscape", "topMargin", "leftMargin"}) {
                         const auto* part = properties->findChild<QWidget*>(name);
                         if (part != nullptr && part->isVisible()) shown << name;
                       }
                       if (auto* const picture = properties->findChild<QWidget*>("preview"))
                         heightOfPicture = picture->height();
                       properties->close();
                     });
    dialog.findChild<QPushButton*>("properties")->click();
  });
  EXPECT_FALSE(printing.ShowPrintSetup());
  EXPECT_EQ(shown, QStringList("pageSizeCombo"));
  EXPECT_GE(heightOfPicture, 150);
}

TEST_F(CupsTest, PaperThatWasChosenIsKeptByTheNextSetup) {
  QtPrinting printing(backend);
  ChoosePaper("4 x 6 in");
  EXPECT_TRUE(printing.ShowProperties("Office"));
  const auto isCard = [&] {
    printing.Printer().SetOrientation(2);
    return printing.Printer().SheetWidth() == 432 * 20 && printing.Printer().SheetHeight() == 288 * 20;
  };
  EXPECT_TRUE(isCard());
  EXPECT_EQ(printing.Printer().ScaleWidth(), 432 * 20) << "it is printed to its edges";
  EXPECT_EQ(printing.Printer().PaperSize(), 256);
  InSetup("Office", QDialogButtonBox::Ok);
  EXPECT_TRUE(printing.ShowPrintSetup());
  EXPECT_TRUE(isCard());
  PrintTwoPages(printing.Printer());
  printing.Printer().EndDoc();
  EXPECT_EQ(server.PagesOf(1), 2);
  EXPECT_TRUE(server.Info(1, "Page size").startsWith("432 x 288"));
  EXPECT_TRUE(server.Options(1).contains("media=4x6")) << server.Options(1).join(' ').toStdString();
}

class SilentServerTest : public QtTest {
 protected:
  SilentServerTest() { AskAt(port.Number()); }
  ~SilentServerTest() override { cupsSetServer("127.0.0.1:1"); }

  MutePort port;
};

TEST_F(SilentServerTest, ItIsAskedOnceAndNotAgainForAWhile) {
  QtPrinting printing(backend, {.AnswerSeconds = 1, .ListSeconds = 0});
  printing.SetTrackDefault(true);
  printing.WhenDefaultIsKnown([](const std::string&) {});
  EXPECT_EQ(port.Calls(), 0) << "nobody has asked for printers yet";
  EXPECT_THAT(printing.PrinterNames(), ElementsAre("Save as PDF"));
  EXPECT_EQ(port.Calls(), 1);
  EXPECT_EQ(printing.CurrentPrinterName(), "Save as PDF");
  EXPECT_THAT(printing.PrinterNames(), ElementsAre("Save as PDF"));
  EXPECT_EQ(port.Calls(), 0);
}

TEST_F(SilentServerTest, PaperOfPdfFilesIsAskedForWithoutIt) {
  QtPrinting printing(backend, {.AnswerSeconds = 1});
  EXPECT_THAT(printing.PrinterNames(), ElementsAre("Save as PDF"));
  EXPECT_GT(port.Calls(), 0);
  int calls = -1;
  Hands::Meanwhile([] { return qobject_cast<QDialog*>(QApplication::activeModalWidget()) != nullptr; },
                   [&] {
                     calls = port.Calls();
                     qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject();
                   });
  EXPECT_FALSE(printing.ShowPrintSetup());
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(cupsServer(), std::string("127.0.0.1"));
  EXPECT_EQ(ippPort(), port.Number()) << "the server stays the one that is asked";
}

}  // namespace
}  // namespace pixorra
