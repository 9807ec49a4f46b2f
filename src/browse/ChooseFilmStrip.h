// The film strip's folder by the camera's button and by swapping with the open folder.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/services/FolderReader.h"

namespace pixorra {

struct MainForm;

void CameraButton_Click(MainForm& main);

// Whether the camera is there, for the mouse over its button: looked for away from the program's thread.
class CameraLook {
 public:
  explicit CameraLook(MainForm& main) : main_(main) {}
  // The button's pointer says what was found last; the next look begins, where none is going on.
  void CameraButton_MouseMove();

 private:
  void Show(bool there);

  MainForm& main_;
  std::string asked_;               // the location that was looked at last
  std::optional<double> lookedAt_;  // by the clock
  std::unique_ptr<FolderReader::Reading> going_;
};

// The open folder and the film strip change places.
void SwapButton_MouseDown(MainForm& main);
// The folder of the slot of the last right click becomes the film strip, and the strip a folder.
void SwapFolderMenuItem_Click(MainForm& main);
void SwapOpenFolderMenuItem_Click(MainForm& main);

}  // namespace pixorra
