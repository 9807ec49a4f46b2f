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
  Frame RenameFrame;
  OptionButton RenameAlwaysOption;
  OptionButton RenameExistsOption;
  OptionButton RenameAskOption;
  Frame DuplicateFrame;
  OptionButton DuplicatesAutoOption;
  OptionButton DuplicatesAskOption;
  OptionButton DuplicatesAllowOption;
  Frame ExitFrame;
  CheckBox RememberFilmStripCheckbox;
  CheckBox RememberFoldersCheckbox;
  CheckBox EmptyTrashcanCheckbox;
  Frame MoreFrame;
  CheckBox KeepDateCheckBox;
  CheckBox AutoPreviewCheckBox;
  CheckBox AddFolderShortcutCheckbox;
  Frame TypesFrame;
  CheckBox JpegCheckbox;
  CheckBox BitmapCheckbox;
  CheckBox GifCheckbox;
  CommandButton CloseButton;
  CommandButton HelpButton;
};

}  // namespace pixorra
