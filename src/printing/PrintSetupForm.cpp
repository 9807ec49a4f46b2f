#include "printing/PrintSetupForm.h"

#include <vector>

#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "printing/PaperNames.h"
#include "window/CoreState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int Margin = 12;
constexpr int Width = 340;
constexpr int ListHeight = 24;
constexpr int ButtonWidth = 96;
constexpr int ButtonHeight = 28;
constexpr int LineHeight = 20;
constexpr int TitleWidth = 84;
constexpr int FrameTop = 22;

}  // namespace

PrintSetupForm::PrintSetupForm(MainForm& main) : Window(main.host.toolkit, "PrintSetupForm"), main_(main) {
  Window.SetCaption(" Print Setup");
  PrintersComboBox.SetAccessibleName("Printer");
  PropertiesButton.SetCaption("Properties");
  OkButton.SetCaption("OK");
  OkButton.SetDefault(true);
  CancelButton.SetCaption("Cancel");
  CancelButton.SetCancel(true);
  Frame1.SetCaption("Current Printer");
  Label1.SetCaption("Status: ");
  Label2.SetCaption("Type: ");
  Label3.SetCaption("Paper Size: ");
  Label4.SetCaption("Orientation: ");
  PlaceControls();
  Connect(Window.On().Load, [this](Control&) { CheckPrinterStatus(&PrinterIndexAtOpening); });
  Connect(PrintersComboBox.On().Click, [this](Control&) { PrintersComboBox_Click(); });
  Connect(PrintersComboBox.On().LostFocus, [this](Control&) { PrintersComboBox_Click(); });
  Connect(PropertiesButton.On().Click, [this](Control&) { PropertiesButton_Click(); });
  Connect(OkButton.On().Click, [this](Control&) { Window.Unload(); });
  Connect(CancelButton.On().Click, [this](Control&) { CancelButton_Click(); });
}

void PrintSetupForm::PlaceControls() {
  PrintersComboBox.Move(Margin, Margin, Width - 3 * Margin - ButtonWidth, ListHeight);
  PropertiesButton.Move(Width - Margin - ButtonWidth, Margin - 2, ButtonWidth, ButtonHeight);
  int top = FrameTop;
  for (const auto& [title, value] : {std::pair(&Label1, &StatusLabel),
                                     {&Label2, &TypeLabel},
                                     {&Label3, &PaperLabel},
                                     {&Label4, &OrientationLabel}}) {
    title->Move(Margin, top, TitleWidth, LineHeight);
    value->Move(Margin + TitleWidth, top, Width - 4 * Margin - TitleWidth, LineHeight);
    value->SetShortensInMiddle(true);
    top += LineHeight;
  }
  Frame1.Move(Margin, 2 * Margin + ButtonHeight, Width - 2 * Margin, top + Margin / 2);
  const int buttons = Frame1.Bounds().Bottom() + Margin;
  CancelButton.Move(Width - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
  OkButton.Move(CancelButton.Left() - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
  Window.SetClientSize(Width, buttons + ButtonHeight + Margin);
}

void PrintSetupForm::CheckPrinterStatus(int* index) {
  Printing& printing = main_.host.printing;
  PrintersComboBox.Clear();
  *index = -1;
  const std::vector<std::string> names = printing.PrinterNames();
  if (names.empty()) return;
  const std::string current = printing.CurrentPrinterName();
  for (const std::string& name : names) {
    if (name == current) *index = PrintersComboBox.ListCount();
    PrintersComboBox.AddItem(name);
  }
  if (*index == -1) return;
  // The text alone: choosing the entry is what a person does.
  PrintersComboBox.SetText(current);
  FillLabels();
}

void PrintSetupForm::FillLabels() {
  Printing& printing = main_.host.printing;
  for (Label* value : {&StatusLabel, &TypeLabel, &PaperLabel, &OrientationLabel}) value->SetCaption("");
  const std::string current = printing.CurrentPrinterName();
  if (current == main_.core.DefaultPrinterName) StatusLabel.SetCaption("Default Printer - ");
  StatusLabel.SetCaption(StatusLabel.Caption() + (printing.IsReady(current) ? "Ready" : "Not Ready"));
  TypeLabel.SetCaption(TypeLabel.Caption() + printing.Printer().DriverName());
  PaperLabel.SetCaption(PaperLabel.Caption() + LongPaperName(printing.Printer().PaperSize()) + " ");
  OrientationLabel.SetCaption(" Landscape Only");
}

void PrintSetupForm::PrintersComboBox_Click() {
  // A form that is unloaded takes the focus off the list as well.
  if (!Window.IsLoaded() || PrintersComboBox.ListIndex() == -1) return;
  Printing& printing = main_.host.printing;
  printing.SetCurrentPrinter(PrintersComboBox.List(PrintersComboBox.ListIndex()));
  main_.host.toolkit.DoEvents();
  if (!Window.IsLoaded()) return;
  FillLabels();
  // Deliberate: a bare number.
  main_.host.dialogs.MsgBox(std::to_string(printing.Printer().PaperSize()), BoxIcon::None, BoxButtons::Ok, "");
}

void PrintSetupForm::ShowPrinterProperties(const std::string& deviceName, bool* ok) {
  if (main_.host.printing.ShowProperties(deviceName)) *ok = true;
}

void PrintSetupForm::PropertiesButton_Click() {
  bool ok = false;
  ShowPrinterProperties(main_.host.printing.CurrentPrinterName(), &ok);
  if (Window.IsLoaded()) FillLabels();
}

// What was chosen meanwhile is taken back.
void PrintSetupForm::CancelButton_Click() {
  if (PrinterIndexAtOpening != -1) {
    const std::string before = PrintersComboBox.List(PrinterIndexAtOpening);
    ErrorsIgnored([&] { main_.host.printing.SetCurrentPrinter(before); });
  }
  Window.Unload();
}

}  // namespace pixorra
