#include "app/Hints.h"

#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

// `down`: how far down in the area its middle is, 0 to 1.
void ShowIn(Label& hint, bool shown, const Rect& area, double down) {
  if (shown) {
    hint.Move(area.Left + (area.Width - hint.Width()) / 2.0, area.Top + area.Height * down - hint.Height() / 2.0);
  }
  hint.SetVisible(shown);
}

}  // namespace

void ShowHints(MainForm& main) {
  const FilmStripState& strip = main.strip;
  const Rect film{0, 0, strip.SrcThumbsWindow.Width(), strip.SrcThumbsWindow.Height()};
  ShowIn(main.strip.NoFilmStripHint, strip.NoFilmStrip && strip.SrcSlotCount == 0, film, 0.5);
  ShowIn(main.desk.NoFolderHint, main.desk.FoldersShown == 0, main.desk.DesktopImage.Bounds(), 0.3);
}

}  // namespace pixorra
