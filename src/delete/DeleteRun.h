// A run of deletes: one photo after the other, each failure shown, until it is stopped or at its end.
#pragma once

#include <functional>
#include <string>

#include "platform/controls/Form.h"

namespace pixorra {

class AskedFolder;
struct FilmStripState;
struct MainForm;

class DeleteRun {
 public:
  // `failure` is the title of the boxes that failures are shown in. What is passed must live on.
  DeleteRun(MainForm& main, const AskedFolder& folder, std::string failure);

  // To be asked before each photo. Now and then it lets events run: anything may have changed when it returns. False
  // where the run has been stopped or the program has ended.
  bool GoesOn();
  // Deletes a photo of the folder; a failure is shown in a box, while which events run. It fails as well, with the
  // description, where the file is `another` than the one that the question was about. Of a link only the link goes,
  // and of a folder nothing: these are not looked at so.
  void Delete(const std::string& path, const std::function<bool()>& another, const char* description);
  bool IsStopped() const { return stopped_; }
  // What has been deleted so far stays deleted; nothing more is.
  void Stop() { stopped_ = true; }
  // Once, at its end: the folder no longer has the photos on stable storage either.
  void Flush() const;

 private:
  MainForm& main_;
  const AskedFolder& folder_;
  std::string failure_;
  double eventsRan_;  // seconds of the clock
  bool stopped_ = false;
};

// The slot's photo has gone: it is in no view from now on, and not among those that have been dragged.
void EmptySrcSlot(FilmStripState& strip, int slot);

}  // namespace pixorra
