// The preferences command, and the file pattern that follows from it.
#pragma once

namespace pixorra {

struct MainForm;

void PreferenceMenuItem_Click(MainForm& main);
// Rebuilds the pattern from the file types that are ticked; when it differs, every list is read anew.
void ApplyPicturePattern(MainForm& main);

}  // namespace pixorra
