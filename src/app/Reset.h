// Back to the state of a new installation.
#pragma once

namespace pixorra {

struct MainForm;

// Without a question: no camera, no film strip, no folders, the cloud scene, the first window size, the factory
// settings. No photo is touched.
void ResetToNewInstallation(MainForm& main);

}  // namespace pixorra
