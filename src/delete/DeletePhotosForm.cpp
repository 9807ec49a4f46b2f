#include "delete/DeletePhotosForm.h"

#include "base/Definition.h"
#include "base/Dialog.h"
#include "delete/DeleteAllForm.h"
#include "delete/DeleteDraggedForm.h"
#include "delete/DeleteSelectedForm.h"
#include "filmstrip/Marks.h"
#include "platform/services/Dialogs.h"
#include "utility/HelpPages.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

enum class Route { None, Selected, Dragged, All };

// Pixels.
constexpr int Margin = 16;
constexpr int PictureSize = 96;
constexpr int ButtonWidth = 230;
constexpr int ButtonHeight = 30;
constexpr int ButtonStep = 38;
constexpr int GroupGap = 14;  // between the three ways and the two buttons that delete nothing

struct DeletePhotosForm {
  explicit DeletePhotosForm(MainForm& main);

  Form Window;
  ImageBox Image1{Window, "Image1"};
  CommandButton DeleteSelectedButton{Window, "DeleteSelectedButton"};
  CommandButton DeleteDraggedButton{Window, "DeleteDraggedButton"};
  CommandButton DeleteAllButton{Window, "DeleteAllButton"};
  CommandButton CancelButton{Window, "CancelButton"};
  CommandButton HelpButton{Window, "HelpButton"};
  Dialog<Route> Question{Window, Route::None};

 private:
  void PlaceControls();
};

DeletePhotosForm::DeletePhotosForm(MainForm& main) : Window(main.host.toolkit, "DeletePhotosForm") {
  Window.SetCaption(" Delete Photos in Film Strip");
  Image1.SetAccessibleName("Photos to delete");
  Image1.SetPicture(Drawing(main.host, "DeletePhotos", PictureSize, PictureSize));
  PlaceControls();
  DeleteSelectedButton.SetEnabled(main.strip.SrcThumbFrame.Visible());
  DeleteDraggedButton.SetEnabled(CheckDraggedPhotos(main.strip) != 0);
  Question.AnswerBy(DeleteSelectedButton, Route::Selected);
  Question.AnswerBy(DeleteDraggedButton, Route::Dragged);
  Question.AnswerBy(DeleteAllButton, Route::All);
  Question.AnswerBy(CancelButton, Route::None);
  Connect(HelpButton.On().Click, [&main](Control&) { ShowHelp(main, HelpTopic::Delete); });
}

void DeletePhotosForm::PlaceControls() {
  DeleteSelectedButton.SetCaption("Delete &Selected Photo");
  DeleteDraggedButton.SetCaption("Delete all &Dragged");
  DeleteAllButton.SetCaption("Delete &All Photos in Film Strip");
  const int left = 2 * Margin + PictureSize;
  int top = Margin;
  for (CommandButton* way : {&DeleteSelectedButton, &DeleteDraggedButton, &DeleteAllButton}) {
    way->Move(left, top, ButtonWidth, ButtonHeight);
    top += ButtonStep;
  }
  Image1.Move(Margin, Margin + (2 * ButtonStep + ButtonHeight - PictureSize) / 2);
  top += GroupGap;
  CancelButton.SetCaption("&Cancel");
  CancelButton.SetCancel(true);
  HelpButton.SetCaption("&Help");
  constexpr int half = (ButtonWidth - 12) / 2;
  CancelButton.Move(left, top, half, ButtonHeight);
  HelpButton.Move(left + ButtonWidth - half, top, half, ButtonHeight);
  Window.SetClientSize(left + ButtonWidth + Margin, top + ButtonHeight + Margin);
}

Route AskForRoute(MainForm& main) {
  return DeletePhotosForm(main).Question.Ask(main.Window);
}

}  // namespace

void DeleteButton_Click(MainForm& main) {
  if (main.strip.NoFilmStrip) {
    main.host.dialogs.MsgBox("No Film Strip has been selected yet.", BoxIcon::Exclamation, BoxButtons::Ok,
                             "Can't delete photos");
    return;
  }
  if (main.drop.DropAllRunning) {
    main.host.dialogs.Beep();
    return;
  }
  main.preview.bPicEdited = false;
  switch (AskForRoute(main)) {
    case Route::Selected:
      ShowDeleteSelectedForm(main);
      break;
    case Route::Dragged:
      ShowDeleteDraggedForm(main);
      break;
    case Route::All:
      ShowDeleteAllForm(main);
      break;
    case Route::None:
      break;
  }
}

}  // namespace pixorra
