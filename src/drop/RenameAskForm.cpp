#include "drop/RenameAskForm.h"

#include <string_view>

#include "base/Dialog.h"
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
#include "utility/HelpPages.h"
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
  Label heading_{window_, "HeadingLabel"};
  Label before_{window_, "BeforeLabel"};
  Label ExistsName{window_, "ExistsName"};
  Label behind_{window_, "BehindLabel"};
  Label explanation_{window_, "ExplanationLabel"};
  TextBox AlwaysName{window_, "AlwaysName"};
  CommandButton AlwaysNameButton{window_, "AlwaysNameButton"};
  TextBox UniqueName{window_, "UniqueName"};
  CommandButton UniqueNameButton{window_, "UniqueNameButton"};
  CommandButton CancelButton{window_, "CancelButton"};
  CommandButton HelpButton{window_, "HelpButton"};
  Dialog<std::string> question_{window_, "CANCEL"};
};

std::string WithoutEnd(const std::string& text, std::size_t bytes) {
  return text.substr(0, text.size() - std::min(text.size(), bytes));
}

// Characters that no file name may hold, and the point, which would begin another extension.
bool IsRefused(int character) {
  constexpr std::string_view refused = R"(\[]{}"?<>/,.*)";
  return character > 0 && character < 0x80 && refused.find(static_cast<char>(character)) != std::string_view::npos;
}

RenameAskForm::RenameAskForm(MainForm& main) : main_(main), window_(main.host.toolkit, "RenameAskForm") {
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
    if (box.Text().empty()) {
      // Deliberate: an empty box closes the dialog all the same, and only the program's end can then end the wait for
      // an answer.
      window_.Hide();
    } else {
      question_.Give(box.Text());
    }
  });
}

void RenameAskForm::ConnectControls() {
  ConnectName(AlwaysName, AlwaysNameButton);
  ConnectName(UniqueName, UniqueNameButton);
  AlwaysNameButton.SetDefault(true);
  question_.AnswerBy(CancelButton, "CANCEL");
  Connect(HelpButton.On().Click, [this](Control&) { ShowHelp(main_, HelpTopic::Rename); });
}

std::string RenameAskForm::Ask(const std::string& path) {
  Files& files = main_.host.files;
  const std::string folder = ParentPathOf(path);
  const std::string name = FileNameOf(path);
  const std::string extension = ExtensionOf(name);
  const std::string always = FileNameOf(MakeGeneratedName(files, folder, name));
  const std::string unique = FileNameOf(MakeUniqueName(files, folder, name));
  ExistsName.SetCaption(ShownFileName(files, WithoutEnd(path, extension.size())));
  AlwaysName.SetText(WithoutEnd(always, extension.size()));
  UniqueName.SetText(WithoutEnd(unique, extension.size()));
  // What is typed takes the place of the first name offered.
  AlwaysName.SetFocus();
  AlwaysName.Select(0, static_cast<int>(AlwaysName.Text().size()));
  const std::string answer = question_.Ask(main_.Window);
  // Deliberate: a typed "cancel", in letters of any case, is no name either.
  if (answer.empty() || UCase(answer) == "CANCEL") return {};
  return JoinPath(folder, answer + extension);
}

}  // namespace

std::string RenameNewPhoto(MainForm& main, const std::string& path) {
  return RenameAskForm(main).Ask(path);
}

}  // namespace pixorra
