#include "desktop/ChangeBackgroundForm.h"

#include <optional>
#include <string>

#include "base/Dialog.h"
#include "desktop/Background.h"
#include "platform/controls/Label.h"
#include "platform/services/Dialogs.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int Margin = 12;
constexpr int Width = 360;
constexpr int TextHeight = 56;
constexpr int ButtonHeight = 30;
constexpr int ButtonGap = 8;
constexpr int CloseWidth = 88;

struct ChangeBackgroundForm {
  explicit ChangeBackgroundForm(Toolkit& toolkit);

  Form Window;
  Label Label1{Window, "Label1"};
  CommandButton SelectedPhotoButton{Window, "SelectedPhotoButton"};
  CommandButton CloudSceneButton{Window, "CloudSceneButton"};
  CommandButton SolidColorButton{Window, "SolidColorButton"};
  CommandButton CloseButton{Window, "CloseButton"};
};

ChangeBackgroundForm::ChangeBackgroundForm(Toolkit& toolkit) : Window(toolkit, "ChangeBackgroundForm") {
  Window.SetCaption(" Change Background");
  Label1.SetCaption(
      "Select one of the buttons below to change the picture used as the background for the Pixorra desktop. This is "
      "the "
      "area at the lower left used to show the destination folders.");
  Label1.SetWordWrap(true);
  Label1.Move(Margin, Margin, Width - 2 * Margin, TextHeight);
  int top = Margin + TextHeight + ButtonGap;
  for (CommandButton* each : {&SelectedPhotoButton, &CloudSceneButton, &SolidColorButton}) {
    each->Move(Margin, top, Width - 2 * Margin, ButtonHeight);
    top += ButtonHeight + ButtonGap;
  }
  top += Margin - ButtonGap;
  CloseButton.Move(Width - Margin - CloseWidth, top, CloseWidth, ButtonHeight);
  SelectedPhotoButton.SetCaption("Use the currently Selected Photo");
  CloudSceneButton.SetCaption("Restore to default Cloud Scene");
  SolidColorButton.SetCaption("Use a solid color, only");
  CloseButton.SetCaption("Close");
  CloseButton.SetCancel(true);
  CloseButton.SetDefault(true);
  Window.SetClientSize(Width, top + ButtonHeight + Margin);
}

void SolidColorButton_Click(MainForm& main) {
  const std::optional<Colour> chosen = main.host.dialogs.ChooseColour(BackgroundColour(main));
  if (chosen) UseColour(main, *chosen);
}

}  // namespace

void ShowChangeBackground(MainForm& main) {
  ChangeBackgroundForm form(main.host.toolkit);
  Connect(form.Window.On().Load, [&](Control&) {
    form.SelectedPhotoButton.SetEnabled(!SelectedPhoto(main.preview).empty());
    form.CloudSceneButton.SetEnabled(HasCloudScene(main));
  });
  Connect(form.SelectedPhotoButton.On().Click,
          [&main](Control&) { UsePhotoAsBackground(main, std::string(SelectedPhoto(main.preview))); });
  Connect(form.CloudSceneButton.On().Click, [&main](Control&) { UseCloudScene(main); });
  Connect(form.SolidColorButton.On().Click, [&main](Control&) { SolidColorButton_Click(main); });
  Connect(form.CloseButton.On().Click, [&form](Control&) { form.Window.Unload(); });
  ShowDialog(form.Window, main.Window);
}

}  // namespace pixorra
