// A chooser of printers of the program's own. Deliberate: no command opens it; the system's dialog is used instead
// (PrinterSetup.h). It is kept whole, and tried.
#pragma once

#include <string>

#include "platform/controls/Buttons.h"
#include "platform/controls/Container.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"

namespace pixorra {

struct MainForm;

class PrintSetupForm {
 public:
  explicit PrintSetupForm(MainForm& main);

  // Fills the list. `index` becomes that of the current printer; -1 where none is current, and nothing is shown then.
  void CheckPrinterStatus(int* index);
  // The printer's own dialog. `ok` becomes true where it was accepted; it stays where the printer cannot be reached.
  void ShowPrinterProperties(const std::string& deviceName, bool* ok);

  Form Window;
  ComboBox PrintersComboBox{Window, "PrintersComboBox"};
  CommandButton PropertiesButton{Window, "PropertiesButton"};
  Frame Frame1{Window, "Frame1"};
  Label Label1{Frame1, "Label1"};
  Label StatusLabel{Frame1, "StatusLabel"};
  Label Label2{Frame1, "Label2"};
  Label TypeLabel{Frame1, "TypeLabel"};
  Label Label3{Frame1, "Label3"};
  Label PaperLabel{Frame1, "PaperLabel"};
  Label Label4{Frame1, "Label4"};
  Label OrientationLabel{Frame1, "OrientationLabel"};
  CommandButton OkButton{Window, "OkButton"};
  CommandButton CancelButton{Window, "CancelButton"};

  int PrinterIndexAtOpening = -1;

 private:
  void PlaceControls();
  void FillLabels();
  void PrintersComboBox_Click();
  void PropertiesButton_Click();
  void CancelButton_Click();

  MainForm& main_;
};

}  // namespace pixorra
