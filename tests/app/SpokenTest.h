// The program with two photos in the film strip and two folders on the Desktop, as a screen reader finds it.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/TestPictures.h"
#include "tests/support/headless/ProgramTest.h"

namespace pixorra {

class SpokenTest : public ProgramTest {
 protected:
  SpokenTest() {
    for (const char* photo : {"C:\\Card\\a.jpg", "C:\\Card\\b.jpg", "C:\\Home\\Family\\c.jpg"}) {
      drive.Write(photo, JpegPhoto(80, 60));
    }
    drive.MakeFolder("C:\\Home\\Pets");
    WriteSavedState(StateLines("C:\\Card", {"C:\\Home\\Pets", "C:\\Home\\Family"}));
  }
  static std::string Name(Control& control) { return control.On().SpokenName(control); }
  static std::pair<int, int> Place(const Control& control) {
    const PlaceAmong place = control.On().SpokenPlace(control);
    return {place.Place, place.Count};
  }
  static std::vector<std::string> Actions(const Control& control) {
    std::vector<std::string> names;
    for (const NamedAction& action : control.On().SpokenActions(control)) names.push_back(action.Name);
    return names;
  }
  static void Do(const Control& control, const std::string& name) {
    for (const NamedAction& action : control.On().SpokenActions(control)) {
      if (action.Name == name) {
        action.Run();
        return;
      }
    }
    ADD_FAILURE() << "no action " << name;
  }
  static std::string Description(Control& control) { return control.On().SpokenDescription(control); }
};

}  // namespace pixorra
