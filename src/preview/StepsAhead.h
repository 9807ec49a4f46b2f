// While a photo is shown at full size, those that the arrow keys lead to are decoded before they are asked for.
#pragma once

#include <string>
#include <vector>

namespace pixorra {

struct MainForm;

class StepsAhead {
 public:
  explicit StepsAhead(MainForm& main) : main_(main) {}

  // This photo is to be shown now. Where it is not the selected one, from which the arrow keys step, none is got ready.
  void Follow(const std::string& shown);
  // None is shown any more.
  void Stop();

 private:
  std::string PhotoFrom(int place, int steps) const;

  MainForm& main_;
  int place_ = 0;  // of the photo shown last: its slot, or its cell in the open folder; 0 for none
  int step_ = 1;   // to the photo that is likely to be next
};

}  // namespace pixorra
