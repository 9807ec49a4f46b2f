#include "pictures/MarkedPhoto.h"

#include <string>

#include "base/StampText.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

bool IsChangedSinceMarked(MainForm& main, int slot) {
  const std::string& marked = main.strip.SrcBackground(slot).Tag();
  return marked.empty() || StampText(main.host.files, PhotoOf(main.strip, slot)) != marked;
}

}  // namespace pixorra
