// The folders last used in the browser.
#pragma once

#include <string>

namespace pixorra {

struct FilmStripState;

inline constexpr int MostPreviousFolders = 20;

// The path becomes the first entry of PreviousList; one that is in it already moves up. The oldest goes where there are
// too many.
void AddToPreviousList(FilmStripState& strip, const std::string& path);

}  // namespace pixorra
