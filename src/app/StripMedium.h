// The card that the film strip is on: it may be taken out, and another one put in its place, with photos of the same
// names.
#pragma once

namespace pixorra {

struct FilmStripState;
struct MainForm;

// Loads the strip anew once its medium has been away, or is another one: what a person sees is what a drop copies.
// Called at each turn of the background loading; looks once a second, at the list of volumes only. False: nothing is
// new.
bool WatchStripMedium(MainForm& main);
// How many of the next turns are without a look.
int TurnsWithoutLook(const FilmStripState& strip);

}  // namespace pixorra
