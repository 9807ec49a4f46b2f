// The program's own chooser of printers, which no command opens.
#include <gmock/gmock.h>

#include "printing/PrintSetupForm.h"
#include "tests/printing/PrintTest.h"

namespace pixorra {
namespace {

using ::testing::IsEmpty;

class PrintSetupFormTest : public PrintTest {
 protected:
  PrintSetupFormTest() {
    printing.Printers.push_back(
        {.Name = "Second", .Driver = "Second Driver", .PaperSize = 9, .SheetWidth = 11906, .SheetHeight = 16838});
    printing.Printers[1].Ready = false;
  }
  void Show() { form.Window.ShowOwned(&main.Window); }
  // Chooses it, and closes the box with the paper's number.
  void Choose(const std::string& printer, const std::string& number) {
    person.ExpectBox("", number);
    person.Choose(form.PrintersComboBox, printer);
  }

  PrintSetupForm form{main};
};

TEST_F(PrintSetupFormTest, ItListsThePrintersAndTellsOfTheCurrentOne) {
  Show();
  EXPECT_EQ(form.Window.Caption(), " Print Setup");
  ASSERT_EQ(form.PrintersComboBox.ListCount(), 2);
  EXPECT_EQ(form.PrintersComboBox.List(1), "Second");
  EXPECT_EQ(form.PrintersComboBox.Text(), "Headless Printer");
  EXPECT_EQ(form.PrinterIndexAtOpening, 0);
  EXPECT_EQ(form.StatusLabel.Caption(), "Default Printer - Ready");
  EXPECT_EQ(form.TypeLabel.Caption(), "Headless");
  EXPECT_EQ(form.PaperLabel.Caption(), "Letter, 8 1/2 x 11 in. ");
  EXPECT_EQ(form.OrientationLabel.Caption(), " Landscape Only");
}

TEST_F(PrintSetupFormTest, WithoutPrintersItsLabelsAreEmptyAndCancelChangesNothing) {
  printing.Printers.clear();
  Show();
  EXPECT_EQ(form.PrinterIndexAtOpening, -1);
  EXPECT_EQ(form.PrintersComboBox.ListCount(), 0);
  for (const Label* value : {&form.StatusLabel, &form.TypeLabel, &form.PaperLabel, &form.OrientationLabel})
    EXPECT_EQ(value->Caption(), "") << value->Name();
  person.Click(form.CancelButton);
  EXPECT_FALSE(form.Window.IsLoaded());
  EXPECT_THAT(printing.PrinterNames(), IsEmpty());
}

TEST_F(PrintSetupFormTest, APrinterThatIsChosenIsCurrentAtOnceAndCancelTakesItBack) {
  Show();
  Choose("Second", "9");
  EXPECT_EQ(run.platform.dialogs.Boxes().back().Text, "9");
  EXPECT_EQ(printing.CurrentPrinterName(), "Second");
  EXPECT_EQ(form.StatusLabel.Caption(), "Not Ready");
  EXPECT_EQ(form.TypeLabel.Caption(), "Second Driver");
  EXPECT_EQ(form.PaperLabel.Caption(), "A4, 210 x 297 mm ");
  person.Key(key::Escape);
  EXPECT_EQ(printing.CurrentPrinterName(), "Headless Printer");
  EXPECT_FALSE(form.Window.IsLoaded());
}

TEST_F(PrintSetupFormTest, OkKeepsThePrinterThatWasChosen) {
  Show();
  Choose("Second", "9");
  person.ExpectBox("", "9");  // the list has lost the focus
  person.Click(form.OkButton);
  EXPECT_EQ(printing.CurrentPrinterName(), "Second");
  EXPECT_FALSE(form.Window.IsLoaded());
}

TEST_F(PrintSetupFormTest, TheListActsAgainWhenItLosesTheFocus) {
  Show();
  Choose("Second", "9");
  person.Focus(form.PrintersComboBox);
  person.ExpectBox("", "9");
  person.Focus(form.OkButton);
}

TEST_F(PrintSetupFormTest, PropertiesAreThePrintersOwnDialogAndOnlyOfOneThatCanBeReached) {
  Show();
  printing.ExpectProperties(true);
  person.Click(form.PropertiesButton);
  bool ok = false;
  printing.ExpectProperties(false);
  form.ShowPrinterProperties("Headless Printer", &ok);
  EXPECT_FALSE(ok);
  form.ShowPrinterProperties("Second", &ok);
  EXPECT_FALSE(ok);
  printing.ExpectProperties(true);
  form.ShowPrinterProperties("Headless Printer", &ok);
  EXPECT_TRUE(ok);
}

}  // namespace
}  // namespace pixorra
