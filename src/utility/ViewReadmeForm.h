// The window that shows the read-me, "Readme.txt" in the program's folder. It does not hold up the main window.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/TextBox.h"

namespace pixorra {

struct MainForm;

class ViewReadmeForm {
 public:
  explicit ViewReadmeForm(MainForm& main);

  // Reads the file and shows the form; one that is up is only brought to the front. Raises as opening and reading a
  // file do, FileNotFound where there is none; the form is not shown then.
  void ShowIt(Form& owner);

  Form Window;
  TextBox ReadmeTextbox{Window, "ReadmeTextbox"};
  CommandButton PrintButton{Window, "PrintButton"};
  CommandButton CancelButton{Window, "CancelButton"};

 private:
  void ArrangeControls();
  void Form_Load();
  void PrintButton_Click();

  MainForm& main_;
};

// The lines of a file as a text box has them, each with its line end. Bytes that are no UTF-8 are taken for Latin-1.
std::string TextOfFile(std::string_view bytes);
// Shows the main window's form. Raises as ShowIt does.
void ViewReadmeMenuItem_Click(MainForm& main);

}  // namespace pixorra
