#include "window/PreferencesForm.h"

namespace pixorra {

namespace {

constexpr int Margin = 12;
constexpr int Wide = 380;
constexpr int Row = 22;
constexpr int FirstRow = 20;

void PlaceGroup(Frame& frame, const char* caption, int left, int top, int width, int rows) {
  frame.SetCaption(caption);
  frame.Move(left, top, width, FirstRow + rows * Row + 6);
}

void PlaceRow(Button& button, const char* caption, int row) {
  button.SetCaption(caption);
  button.Move(Margin, FirstRow + row * Row, button.GetContainer()->Width() - 2 * Margin, Row);
}

}  // namespace

PreferencesForm::PreferencesForm(Toolkit& toolkit) : Window(toolkit, "PreferencesForm") {
  Window.SetCaption(" Pixorra - Preferences");
  const int half = (2 * Wide - 100) / 2;
  PlaceGroup(RenameFrame, "Rename dragged photo", Margin, Margin, half, 3);
  PlaceRow(RenameAlwaysOption, "Always [eg. PXR00001)", 0);
  PlaceRow(RenameExistsOption, "Auto, if name exists   [eg. OriginalName2]", 1);
  PlaceRow(RenameAskOption, "Ask before renaming", 2);
  const int second = Margin + half + Margin;
  PlaceGroup(DuplicateFrame, "Duplicate Photos", second, Margin, half, 3);
  PlaceRow(DuplicatesAutoOption, "Auto Resolve", 0);
  PlaceRow(DuplicatesAskOption, "Ask when dropped into a folder", 1);
  PlaceRow(DuplicatesAllowOption, "Allow duplicates", 2);
  const int below = RenameFrame.Bounds().Bottom() + Margin;
  PlaceGroup(ExitFrame, "On Program Exit", Margin, below, half, 3);
  PlaceRow(RememberFilmStripCheckbox, "Remember Film Strip", 0);
  PlaceRow(RememberFoldersCheckbox, "Remember Folders", 1);
  PlaceRow(EmptyTrashcanCheckbox, "Empty Trashcan", 2);
  PlaceGroup(TypesFrame, "Types of Picture Files", second, below, half, 3);
  PlaceRow(JpegCheckbox, "Jpeg", 0);
  PlaceRow(BitmapCheckbox, "Bitmap", 1);
  PlaceRow(GifCheckbox, "GIF", 2);
  const int last = ExitFrame.Bounds().Bottom() + Margin;
  PlaceGroup(MoreFrame, "More Things", Margin, last, 2 * half + Margin, 3);
  PlaceRow(KeepDateCheckBox, "Keep original date of dragged photo", 0);
  PlaceRow(AutoPreviewCheckBox, "Auto Preview Film Strip photo on Click", 1);
  PlaceRow(AddFolderShortcutCheckbox, "Add 'SlideShow' shortcut to Window's Folder Pop-up Menu", 2);
  const int buttons = MoreFrame.Bounds().Bottom() + Margin;
  const int width = second + half + Margin;
  HelpButton.SetCaption("&Help");
  HelpButton.Move(width - Margin - 96, buttons, 96, 28);
  CloseButton.SetCaption("&Close");
  CloseButton.Move(HelpButton.Left() - Margin - 96, buttons, 96, 28);
  CloseButton.SetDefault(true);
  CloseButton.SetCancel(true);
  Window.SetHidesWhenClosed(true);  // its controls are the settings
  Window.SetClientSize(width, buttons + 28 + Margin);
  Default_Settings();
}

int OptionGroup::Chosen() const {
  for (std::size_t i = 0; i < Options.size(); ++i) {
    if (Options[i]->Value()) return static_cast<int>(i) + 1;
  }
  return Factory;
}

void OptionGroup::Choose(int number) const {
  if (number < 1 || number > static_cast<int>(Options.size())) return;
  Options[static_cast<std::size_t>(number - 1)]->SetValue(true);
}

OptionGroup PreferencesForm::RenameOptions() {
  return {{&RenameAlwaysOption, &RenameExistsOption, &RenameAskOption}, 1};
}

OptionGroup PreferencesForm::DuplicateOptions() {
  return {{&DuplicatesAutoOption, &DuplicatesAskOption, &DuplicatesAllowOption}, 2};
}

std::array<CheckBox*, 8> PreferencesForm::StoredBoxes() {
  return {&RememberFilmStripCheckbox,
          &RememberFoldersCheckbox,
          &EmptyTrashcanCheckbox,
          &JpegCheckbox,
          &BitmapCheckbox,
          &GifCheckbox,
          &KeepDateCheckBox,
          &AutoPreviewCheckBox};
}

void PreferencesForm::Default_Settings() {
  for (const OptionGroup& group : {RenameOptions(), DuplicateOptions()}) group.Choose(group.Factory);
  for (CheckBox* box : {&RememberFilmStripCheckbox, &RememberFoldersCheckbox, &EmptyTrashcanCheckbox, &KeepDateCheckBox,
                        &JpegCheckbox, &BitmapCheckbox, &GifCheckbox}) {
    box->SetValue(1);
  }
  AutoPreviewCheckBox.SetValue(0);
  AddFolderShortcutCheckbox.SetValue(0);
}

}  // namespace pixorra
