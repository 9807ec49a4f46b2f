// The preferences: a dialog whose controls are the settings themselves. It stays loaded, hidden, for the whole run.
#pragma once

#include <array>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"

namespace pixorra {

// Option buttons of which one is set. Saved as its number, from 1.
struct OptionGroup {
  std::array<OptionButton*, 3> Options;
  int Factory = 1;  // the number of the one that the factory settings set

  // The number of the option that is set, and the factory's where none is.
  int Chosen() const;
  // Sets the option of that number; any other number changes nothing.
  void Choose(int number) const;
};

struct PreferencesForm {
  explicit PreferencesForm(Toolkit& toolkit);

  // Sets every control to its factory value, AddFolderShortcutCheckbox included.
  void Default_Settings();
  OptionGroup RenameOptions();
  OptionGroup DuplicateOptions();
  // The boxes that the saved state keeps, in its order.
  std::array<CheckBox*, 8> StoredBoxes();

  Form Window;
  Frame RenameFrame{Window, "RenameFrame"};
  OptionButton RenameAlwaysOption{RenameFrame, "RenameAlwaysOption"};
  OptionButton RenameExistsOption{RenameFrame, "RenameExistsOption"};
  OptionButton RenameAskOption{RenameFrame, "RenameAskOption"};
  Frame DuplicateFrame{Window, "DuplicateFrame"};
  OptionButton DuplicatesAutoOption{DuplicateFrame, "DuplicatesAutoOption"};
  OptionButton DuplicatesAskOption{DuplicateFrame, "DuplicatesAskOption"};
  OptionButton DuplicatesAllowOption{DuplicateFrame, "DuplicatesAllowOption"};
  Frame ExitFrame{Window, "ExitFrame"};
  CheckBox RememberFilmStripCheckbox{ExitFrame, "RememberFilmStripCheckbox"};
  CheckBox RememberFoldersCheckbox{ExitFrame, "RememberFoldersCheckbox"};
  CheckBox EmptyTrashcanCheckbox{ExitFrame, "EmptyTrashcanCheckbox"};
  Frame MoreFrame{Window, "MoreFrame"};
  CheckBox KeepDateCheckBox{MoreFrame, "KeepDateCheckBox"};
  CheckBox AutoPreviewCheckBox{MoreFrame, "AutoPreviewCheckBox"};
  CheckBox AddFolderShortcutCheckbox{MoreFrame, "AddFolderShortcutCheckbox"};
  Frame TypesFrame{Window, "TypesFrame"};
  CheckBox JpegCheckbox{TypesFrame, "JpegCheckbox"};
  CheckBox BitmapCheckbox{TypesFrame, "BitmapCheckbox"};
  CheckBox GifCheckbox{TypesFrame, "GifCheckbox"};
  CommandButton CloseButton{Window, "CloseButton"};
  CommandButton HelpButton{Window, "HelpButton"};
};

}  // namespace pixorra
