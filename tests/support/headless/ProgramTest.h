// The program on a fresh drive with real files, without windows: started, used and ended as often as a test likes.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/TemporaryDrive.h"
#include "tests/support/headless/SavedState.h"
#include "tests/support/headless/TestHost.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

// One run of the program.
class ProgramRun : public TestHost {
 public:
  explicit ProgramRun(TemporaryDrive& drive, DecodeAhead* ahead = nullptr);
  ~ProgramRun();

  // The whole start-up, as the program itself does it.
  void Start();
  // Closes the window as its user would.
  void Close() { person.Close(main.Window); }
  void Wait(double seconds) { person.Wait(seconds); }
  // Lets the background loading come to its end.
  void LoadAll();

  MainForm main{host};
  Person& person = platform.person;
};

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  // Ends the run before, if there is one, and begins the next one; it is not started.
  ProgramRun& NewRun();
  ProgramRun& Started();
  void EndRun();

  // Writes the file of the saved state: these lines, each ended by CR LF.
  void WriteSavedState(const std::vector<std::string>& lines);
  void WriteSavedState(const SavedState& state) { WriteSavedState(state.Lines()); }
  // The lines of a saved state with the factory settings, this film strip and these folders.
  static std::vector<std::string> StateLines(const std::string& filmStrip, const std::vector<std::string>& folders);

  TemporaryDrive drive;
  DecodeAhead* decodeAhead = nullptr;  // for the runs that begin from here on

 private:
  std::unique_ptr<ProgramRun> run_;
};

}  // namespace pixorra
