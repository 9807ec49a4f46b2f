#include "drop/RenameAskForm.h"

#include <string_view>

#include "base/Routines.h"
#include "base/ShownNames.h"
#include "drop/Naming.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr int Margin = 16;
constexpr int Wide = 400;
constexpr int BoxWidth = 268;
constexpr int ButtonWidth = 96;
constexpr int ButtonHeight = 28;

class RenameAskForm {
 public:
  explicit RenameAskForm(MainForm& main);

  // The full path chosen; empty on cancel, and where the program ended first.
  std::string Ask(const std::string& path);

 private:
  void PlaceControls();
  void ConnectControls();
  void ConnectName(TextBox& box, CommandButton& button);

  MainForm& main_;
  Form window_;
  Label heading_;
  Label before_;
  Label ExistsName;
  Label behind_;
  Label explanation_;
  TextBox AlwaysName;
  CommandButton AlwaysNameButton;
  TextBox UniqueName;
  CommandButton UniqueNameButton;
  CommandButton CancelButton;
  CommandButton HelpButton;
  std::string reply_;  // empty until a button is pressed
};

std::string WithoutEnd(const std::string& text, std::size_t bytes) {
  return text.substr(0, text.size() - std::min(text.size(), bytes));
}

// Characters that no file name may hold, and the point, which would begin another extension.
bool IsRefused(int character) {
  constexpr std::string_view refused = R"(\[]{}"?<>/,.*)";
  return character > 0 && character < 0x80 && refused.find(static_cast<char>(character)) != std::string_view::npos;
}

RenameAskForm::RenameAskForm(MainForm& main)
    : main_(main),
      window_(main.host.toolkit, "RenameAskForm"),
      heading_(window_, "HeadingLabel"),
      before_(window_, "BeforeLabel"),
      ExistsName(window_, "ExistsName"),
      behind_(window_, "BehindLabel"),
      explanation_(window_, "ExplanationLabel"),
      AlwaysName(window_, "AlwaysName"),
      AlwaysNameButton(window_, "AlwaysNameButton"),
      UniqueName(window_, "UniqueName"),
      UniqueNameButton(window_, "UniqueNameButton"),
      CancelButton(window_, "CancelButton"),
      HelpButton(window_, "HelpButton") {
  window_.SetCaption("Photo Name Already Exists");
  PlaceControls();
  ConnectControls();
}

void RenameAskForm::PlaceControls() {
  heading_.SetCaption("Name Already in Use");
  heading_.SetFont({"", 12, true});
  heading_.Move(Margin, Margin, Wide - 2 * Margin, 24);
  before_.SetCaption("The Photo Name ");
  before_.Move(Margin, 52, Wide - 2 * Margin, 18);
  ExistsName.SetFont({"", 9, true});
  ExistsName.SetShortensInMiddle(true);
  ExistsName.Move(Margin, 72, Wide - 2 * Margin, 20);
  behind_.SetCaption("is already used.");
  behind_.Move(Margin, 94, Wide - 2 * Margin, 18);
  explanation_.SetCaption(
      "Please select one of the names displayed below. You can also enter another name if you would prefer.");
  explanation_.SetWordWrap(true);
  explanation_.Move(Margin, 124, Wide - 2 * Margin, 40);

  const int buttons = Wide - Margin - ButtonWidth;
  AlwaysName.Move(Margin, 176, BoxWidth - Margin, ButtonHeight);
  AlwaysName.SetAccessibleName("Generated name");
  AlwaysNameButton.SetCaption("&Rename as");
  AlwaysNameButton.Move(buttons, 176, ButtonWidth, ButtonHeight);
  UniqueName.Move(Margin, 214, BoxWidth - Margin, ButtonHeight);
  UniqueName.SetAccessibleName("Numbered name");
  UniqueNameButton.SetCaption("Rename &as");
  UniqueNameButton.Move(buttons, 214, ButtonWidth, ButtonHeight);
  HelpButton.SetCaption("&Help");
  HelpButton.Move(buttons, 264, ButtonWidth, ButtonHeight);
  HelpButton.SetEnabled(false);
  CancelButton.SetCaption("&Cancel");
  CancelButton.Move(buttons - 12 - ButtonWidth, 264, ButtonWidth, ButtonHeight);
  CancelButton.SetCancel(true);
  window_.SetClientSize(Wide, 264 + ButtonHeight + Margin);
}

// Return takes the name that is being edited.
void RenameAskForm::ConnectName(TextBox& box, CommandButton& button) {
  Connect(box.On().KeyPress, [this](Control&, int& character) {
    if (!IsRefused(character)) return;
    character = 0;
    main_.host.dialogs.Beep();
  });
  Connect(box.On().GotFocus, [this, &button](Control&) {
    AlwaysNameButton.SetDefault(&button == &AlwaysNameButton);
    UniqueNameButton.SetDefault(&button == &UniqueNameButton);
  });
  Connect(button.On().Click, [this, &box](Control&) {
    reply_ = box.Text();
    window_.Hide();
  });
}

void RenameAskForm::ConnectControls() {
  ConnectName(AlwaysName, AlwaysNameButton);
  ConnectName(UniqueName, UniqueNameButton);
  AlwaysNameButton.SetDefault(true);
  Connect(CancelButton.On().Click, [this](Control&) {
    reply_ = "CANCEL";
    window_.Hide();
  });
  // Closed by its frame: as good as Cancel.
  Connect(window_.On().QueryUnload, [this](Control&) {
    if (window_.Visible()) reply_ = "CANCEL";
  });
}

std::string RenameAskForm::Ask(const std::string& path) {
  reply_.clear();
  Files& files = main_.host.files;
  const std::string folder = ParentPathOf(path);
  const std::string name = FileNameOf(path);
  const std::string extension = ExtensionOf(name);
  const std::string always = FileNameOf(MakeGeneratedName(files, folder, name));
  const std::string unique = FileNameOf(MakeUniqueName(files, folder, name));
  ExistsName.SetCaption(ShownFileName(files, WithoutEnd(path, extension.size())));
  AlwaysName.SetText(WithoutEnd(always, extension.size()));
  UniqueName.SetText(WithoutEnd(unique, extension.size()));
  window_.CentreOn(&main_.Window);
  // What is typed takes the place of the first name offered.
  AlwaysName.SetFocus();
  AlwaysName.Select(0, static_cast<int>(AlwaysName.Text().size()));
  window_.ShowModal(&main_.Window);
  // An empty box closes the dialog all the same and leaves nothing that could end this wait but the program's end.
  main_.host.toolkit.WaitUntil([&] { return !reply_.empty(); });
  std::string chosen;
  if (!reply_.empty() && UCase(reply_) != "CANCEL") chosen = JoinPath(folder, reply_ + extension);
  window_.Unload();
  return chosen;
}

}  // namespace

std::string RenameNewPhoto(MainForm& main, const std::string& path) {
  return RenameAskForm(main).Ask(path);
}

}  // namespace pixorra
