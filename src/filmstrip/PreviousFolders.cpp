#include "filmstrip/PreviousFolders.h"

#include "window/FilmStripState.h"

namespace pixorra {

void AddToPreviousList(FilmStripState& strip, const std::string& path) {
  ComboBox& list = strip.PreviousList;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (list.List(i) != path) continue;
    list.RemoveItem(i);
    break;
  }
  list.AddItem(path, 0);
  if (list.ListCount() > MostPreviousFolders) list.RemoveItem(MostPreviousFolders);
}

}  // namespace pixorra
