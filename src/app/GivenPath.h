// The folder or photo that the program was started with, or that a later start has handed over. A folder becomes the
// film strip; a photo is selected there. For a card, the folder of its photos is taken.
#pragma once

#include <string>

#include "platform/controls/Timer.h"

namespace pixorra {

struct MainForm;

class GivenPath {
 public:
  // It must end before the window does.
  explicit GivenPath(MainForm& main);
  GivenPath(const GivenPath&) = delete;
  GivenPath& operator=(const GivenPath&) = delete;

  // A path in either spelling, from the root on. It is taken as soon as no dialog and no menu is up and no photos are
  // dropped; of several that wait, the last one. Its folder is chosen as by the browser, with its questions.
  void Give(const std::string& path);
  // Nothing waits to be taken or selected.
  bool IsDone() const { return path_.empty() && photo_.empty(); }

 private:
  void Tick();
  void Take(const std::string& path);
  // The path, or what has been given since, is taken later.
  bool MustWait(const std::string& path);
  void SelectPhoto(const std::string& folder, const std::string& name);
  // False where that has to wait still, and nothing has been done.
  bool SelectWhenLoaded();

  MainForm& main_;
  std::string path_;
  std::string photo_;   // full path, as the strip's list spells it
  std::string folder_;  // of photo_
  bool shown_ = false;  // photo_ is in the preview pane, ahead of its thumbnail
  Timer timer_;
};

}  // namespace pixorra
