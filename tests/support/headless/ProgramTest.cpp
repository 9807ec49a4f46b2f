#include "tests/support/headless/ProgramTest.h"

#include "app/Startup.h"

namespace pixorra {

// --- one run ---------------------------------------------------------------------------------------------------------

ProgramRun::ProgramRun(TemporaryDrive& drive, DecodeAhead* ahead) : TestHost(drive, ahead) {}

ProgramRun::~ProgramRun() {
  platform.Finish();
}

void ProgramRun::Start() {
  ConnectEvents(main);
  StartUp(main);
}

void ProgramRun::LoadAll() {
  for (int turns = 0; turns < 100000; ++turns) {
    const bool strip = !main.strip.NoFilmStrip && main.strip.SrcSlotCount < main.strip.SrcFileList.ListCount();
    const bool view = main.desk.OpenFolderIndex != 0 && main.desk.DestSlotCount < main.desk.DestFileList.ListCount();
    if (!strip && !view) return;
    Wait(0.04);
  }
  ADD_FAILURE() << "the thumbnails never came to an end";
}

// --- one test --------------------------------------------------------------------------------------------------------

ProgramTest::ProgramTest() = default;
ProgramTest::~ProgramTest() = default;

ProgramRun& ProgramTest::NewRun() {
  run_.reset();
  run_ = std::make_unique<ProgramRun>(drive, decodeAhead);
  return *run_;
}

ProgramRun& ProgramTest::Started() {
  ProgramRun& run = NewRun();
  run.Start();
  return run;
}

void ProgramTest::EndRun() {
  run_.reset();
}

void ProgramTest::WriteSavedState(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  drive.Write("C:\\Windows\\Pixorra.sav", bytes);
}

std::vector<std::string> ProgramTest::StateLines(const std::string& filmStrip,
                                                 const std::vector<std::string>& folders) {
  SavedState state;
  state.FilmStrip = filmStrip;
  state.Folders = folders;
  return state.Lines();
}

}  // namespace pixorra
