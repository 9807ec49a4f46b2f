#include "selected/RenamePreviewPicForm.h"

#include <algorithm>
#include <string_view>

#include "base/Dialog.h"
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "platform/controls/TextBox.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Pixels.
constexpr int BoxWidth = 260;
constexpr int BoxHeight = 24;
constexpr int Margin = 12;       // at the sides
constexpr int MarginAbove = 18;  // and below: less than that no window leaves
constexpr int FrameLeft = 4;
constexpr int FrameTop = 23;

// Characters that no photo's name may hold, and the point, which would begin another extension.
constexpr std::string_view refusedCharacters = "\\[]{}\"<>?/,.*";

bool IsRefused(int character) {
  return character > 0 && character < 0x80 &&
         refusedCharacters.find(static_cast<char>(character)) != std::string_view::npos;
}

struct RenamePreviewPicForm {
  explicit RenamePreviewPicForm(MainForm& main);

  Form Window;
  TextBox NewPicNameBox{Window, "NewPicNameBox"};
  bool Confirmed = false;  // by the Enter key

 private:
  void PlaceOver(const Form& window, const Control& pane);
  void NewPicNameBox_KeyPress(Dialogs& dialogs, int& character);
};

RenamePreviewPicForm::RenamePreviewPicForm(MainForm& main) : Window(main.host.toolkit, "RenamePreviewPicForm") {
  Window.SetCaption(" Rename Selected Photo");
  NewPicNameBox.Move(Margin, MarginAbove, BoxWidth, BoxHeight);
  NewPicNameBox.SetToolTipText("Press <ENTER> key to rename photo, or <ESC> to cancel");
  NewPicNameBox.SetAccessibleName("New name of the photo");
  Window.SetClientSize(BoxWidth + 2 * Margin, BoxHeight + 2 * MarginAbove);
  PlaceOver(main.Window, main.preview.PicPreview);
  Connect(NewPicNameBox.On().KeyPress,
          [this, &main](Control&, int& character) { NewPicNameBox_KeyPress(main.host.dialogs, character); });
}

void RenamePreviewPicForm::PlaceOver(const Form& window, const Control& pane) {
  const Rect area = pane.FormRect();
  const int menu = window.HasMenuBar() ? window.OwnToolkit().MenuBarHeight() : 0;
  Window.CentreAt(window.ShownLeft() + (FrameLeft + area.Left + area.Width / 2.0) * TwipsPerPixel,
                  window.ShownTop() + (FrameTop + menu + area.Top + area.Height / 2.0) * TwipsPerPixel);
}

void RenamePreviewPicForm::NewPicNameBox_KeyPress(Dialogs& dialogs, int& character) {
  if (IsRefused(character)) {
    character = 0;
    dialogs.Beep();
    return;
  }
  if (character != key::Escape && character != key::Return) return;
  if (character == key::Escape) NewPicNameBox.SetText("");
  Confirmed = character == key::Return;
  character = 0;
  Window.Unload();
}

// What was typed, without blanks around it; empty where the form was closed in any way but by Enter.
std::string AskName(MainForm& main, const std::string& stem) {
  RenamePreviewPicForm form(main);
  form.NewPicNameBox.SetText(stem);
  form.NewPicNameBox.Select(0, static_cast<int>(stem.size()));
  form.NewPicNameBox.SetFocus();
  form.Window.ShowModal(&main.Window);
  return form.Confirmed && !main.host.toolkit.Ended() ? Trim(form.NewPicNameBox.Text()) : std::string();
}

}  // namespace

std::string AskNewPicName(MainForm& main) {
  Files& files = main.host.files;
  const std::string path = SelectedPhoto(main.preview);
  const std::string name = ShownFileName(files, path);
  const std::string stem = name.substr(0, name.find('.'));
  for (;;) {
    const std::string typed = AskName(main, stem);
    if (typed.empty()) return {};
    // What comes from the clipboard is not typed key by key.
    if (std::ranges::none_of(typed, [](char c) { return IsRefused(static_cast<unsigned char>(c)); }))
      return JoinPath(ParentPathOf(path), TypedName(files, typed + name.substr(stem.size())));
    main.host.dialogs.MsgBox("The name of a photo cannot have any of these characters:\n\\ [ ] { } \" < > ? / , . *",
                             BoxIcon::Exclamation, BoxButtons::Ok, typed);
    if (SelectedPhoto(main.preview) != path) return {};
  }
}

}  // namespace pixorra
