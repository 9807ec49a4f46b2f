// The form in which a person confirms that photos are deleted: a picture, a question, what it is about, and two
// buttons.
#pragma once

#include <functional>
#include <string>

#include "delete/DeleteRun.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/pixels/Picture.h"

namespace pixorra {

struct MainForm;

class DeleteConfirmation {
 public:
  struct Texts {
    const char* Form;      // its name
    const char* Caption;   // of the form
    const char* Picture;   // what it shows, for a screen reader
    const char* Question;  // in one or more lines
    const char* Subject;   // the name of the label that says what is deleted
    const char* Button;    // caption of DeleteButton
  };
  struct Shown {
    Picture Image;
    int Width;  // pixels
    int Height;
    std::string Subject;
  };
  DeleteConfirmation(MainForm& main, const Texts& texts, const Shown& shown);

  // Shows the form and returns when it has been closed. `deletes` runs once, when DeleteButton is pressed, and the form
  // is closed when it returns; until then CancelButton, Esc and closing the form stop the run.
  void Show(DeleteRun& run, const std::function<void()>& deletes);

 private:
  void PlaceControls(const Shown& shown);

  MainForm& main_;
  Form window_;
  ImageBox picture_{window_, "Image1"};
  Label question_{window_, "QuestionLabel"};
  Label subject_;
  CommandButton delete_{window_, "DeleteButton"};
  CommandButton cancel_{window_, "CancelButton"};
};

}  // namespace pixorra
