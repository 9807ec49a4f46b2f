// The preferences: a dialog whose controls are the settings themselves. It stays loaded, hidden, for the whole run.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"

namespace pixorra {

struct PreferencesForm {
  explicit PreferencesForm(Toolkit& toolkit);

  // Sets every control to its factory value, AddFolderShortcutCheckbox included.
  void Default_Settings();

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
