// A run of the program with a film strip of its own: "C:\Strip", at the smallest window, 488 pixels of strip.
#pragma once

#include <string>
#include <vector>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"
#include "window/FilmStripState.h"

namespace pixorra {

inline constexpr double ThumbsTick = 0.02;  // seconds
inline constexpr double ScrollTick = 0.05;

class StripTest : public ProgramTest {
 protected:
  static constexpr const char* Folder = "C:\\Strip";
  static std::string PathOf(const std::string& name) { return std::string(Folder) + "\\" + name; }
  // Of photo i, from 1, in the list's order.
  static std::string NumberedName(int i) {
    const std::string number = std::to_string(i);
    return std::string(5 - number.size(), '0') + number + ".bmp";
  }

  void WritePhoto(const std::string& name, Colour colour = 0x00FFFFFF) {
    drive.Write(PathOf(name), BmpOf(PlainBitmap(80, 60, colour)));
  }
  // Files that no picture is in: quick to load, and they come up as invalid pictures.
  void WriteEmpty(int count) {
    drive.MakeFolder(Folder);
    for (int i = 1; i <= count; ++i) drive.Write(PathOf(NumberedName(i)), "");
  }
  void WritePhotos(int count) {
    for (int i = 1; i <= count; ++i) WritePhoto(NumberedName(i));
  }
  ProgramRun& StartedOnStrip(const std::vector<std::string>& folders = {}) {
    drive.MakeFolder(Folder);
    WriteSavedState(StateLines(Folder, folders));
    return Started();
  }
  ProgramRun& LoadedStrip(const std::vector<std::string>& folders = {}) {
    ProgramRun& run = StartedOnStrip(folders);
    run.LoadAll();
    return run;
  }

  // The names of the live slots, in the order of their numbers.
  static std::vector<std::string> SlotNames(const ProgramRun& run) {
    std::vector<std::string> names;
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i) {
      names.push_back(run.main.strip.SrcThumbName(i).ToolTipText());
    }
    return names;
  }
  // The left edge of a slot in the strip's window, pixels.
  static int OnScreen(const ProgramRun& run, int slot) {
    return run.main.strip.SrcCanvas.Left() + run.main.strip.SrcBackground(slot).Left();
  }
  static std::vector<int> ShownSlots(const ProgramRun& run) {
    std::vector<int> slots;
    for (int i = 1; i <= run.main.strip.SrcSlotCount; ++i) {
      if (run.main.strip.SrcThumbnail(i).Visible()) slots.push_back(i);
    }
    return slots;
  }
  static bool IsMarked(const ProgramRun& run, int slot) { return run.main.strip.SrcThumbName(slot).Tag() == "MARK"; }
  // Wholly in the strip's window.
  static bool IsInView(const ProgramRun& run, int slot) {
    const int left = OnScreen(run, slot);
    return run.main.strip.SrcThumbnail(slot).Visible() && left >= 0 &&
           left + 97 <= run.main.strip.SrcThumbsWindow.Width();
  }
  // Clicks on the photo, scrolled into view where it is not.
  static void Select(ProgramRun& run, int slot) {
    FilmStripState& strip = run.main.strip;
    if (!IsInView(run, slot)) {
      const int ahead = strip.SrcPageBase * 97 + strip.SrcBackground(slot).Left() - 2 * 97;  // pixels
      run.person.MoveBar(strip.SrcScrollbar, ahead / strip.SrcBarScale.Unit);
    }
    run.person.Click(strip.SrcThumbnail(slot));
  }
};

}  // namespace pixorra
