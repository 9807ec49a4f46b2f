// One thumbnail a tick, film strip and open folder taking turns, and the delayed layout.
#pragma once

#include <string>

namespace pixorra {

struct FilmStripState;
struct MainForm;

void ThumbsTimer_Timer(MainForm& main);
// The full path of the first photo of the list that has no slot; empty where all have one.
std::string NextSrcPhoto(FilmStripState& strip);

}  // namespace pixorra
