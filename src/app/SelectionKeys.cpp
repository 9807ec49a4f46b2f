#include "app/SelectionKeys.h"

#include <algorithm>

#include "base/Bars.h"
#include "filmstrip/Scrolling.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Dialogs.h"
#include "preview/PreviewForm.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// A view that is moved for the selection shows so many frames or rows ahead of it.
constexpr int FramesAhead = 3;
constexpr int RowsAhead = 2;

void Refuse(MainForm& main) {
  main.host.dialogs.Beep();
}

// One step towards the view's start, then `ahead` further. Deliberate: the first assignment brings the page of the
// place in sight, from which the second one goes on. Either may lie outside of the bar's range, and is then passed
// over.
void ScrollBack(ScrollBar& bar, const BarScale& scale, int step, int ahead) {
  if ((ScrolledPixels(bar, scale) + step) / step < 2) {
    ErrorsIgnored([&] { bar.SetValue(bar.LargeChange()); });
    return;
  }
  ErrorsIgnored([&] { bar.SetValue((ScrolledPixels(bar, scale) - step) / scale.Unit); });
  ErrorsIgnored([&] { bar.SetValue((ScrolledPixels(bar, scale) - ahead * step) / scale.Unit); });
}

void ScrollOn(ScrollBar& bar, const BarScale& scale, int step, int ahead) {
  ErrorsIgnored([&] { bar.SetValue((ScrolledPixels(bar, scale) + step) / scale.Unit); });
  ErrorsIgnored([&] { bar.SetValue((ScrolledPixels(bar, scale) + ahead * step) / scale.Unit); });
}

int EdgeInStrip(const FilmStripState& strip, int slot) {
  return strip.SrcBackground(slot).Left() + strip.SrcCanvas.Left();
}

// One that has been scrolled far away comes back at once.
void BringSlotBack(FilmStripState& strip, int slot) {
  const int edge = EdgeInStrip(strip, slot);
  if (edge + SrcFrameWidth > 0 && edge < strip.SrcThumbsWindow.Width()) return;
  ErrorsIgnored([&] { ScrollStripTo(strip, slot, FramesAhead); });
}

enum class Way { Back, On };

void KeepSlotInView(FilmStripState& strip, int slot, Way way) {
  const int edge = EdgeInStrip(strip, slot);
  if (way == Way::Back && edge < 0) ScrollBack(strip.SrcScrollbar, strip.SrcBarScale, SrcFrameWidth, FramesAhead);
  if (way == Way::On && edge + SrcFrameWidth > strip.SrcThumbsWindow.Width())
    ScrollOn(strip.SrcScrollbar, strip.SrcBarScale, SrcFrameWidth, FramesAhead);
  BringSlotBack(strip, slot);
}

int EdgeInOpenFolder(const DesktopState& desk, int cell) {
  return desk.DestBackground(cell).Top() + desk.DestCanvas.Top();
}

void BringCellBack(DesktopState& desk, int cell) {
  const int edge = EdgeInOpenFolder(desk, cell);
  if (edge + CellHeight > 0 && edge < desk.DestThumbsWindow.Height()) return;
  ErrorsIgnored([&] { MoveBarBy(desk.DestScrollbar, desk.DestBarScale, edge - RowsAhead * CellHeight); });
}

void KeepCellInView(DesktopState& desk, int cell, Way way) {
  const int edge = EdgeInOpenFolder(desk, cell);
  if (way == Way::Back && edge < 0) ScrollBack(desk.DestScrollbar, desk.DestBarScale, CellHeight, RowsAhead);
  if (way == Way::On && edge + CellHeight > desk.DestThumbsWindow.Height())
    ScrollOn(desk.DestScrollbar, desk.DestBarScale, CellHeight, RowsAhead);
  BringCellBack(desk, cell);
}

// Full size follows the selection while it is shown.
void LetFullSizeFollow(MainForm& main) {
  if (!main.preview.sFullSizeFile.empty()) RefreshFullSizePreview(main);
}

// The press of the mouse, the drag that begins with it, and the drop on the strip, as a click makes them. Each may
// bring up a message, in which the strip may be cleared.
void ClickSlot(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  const Watch<ImageBox> thumbnail(strip.SrcThumbnail(slot));
  const Events& on = strip.SrcThumbnail.On();
  Raise(on.MouseDown, static_cast<Control&>(*thumbnail.Get()), MouseArgs{.Button = button::Left});
  if (thumbnail)
    Raise(on.DragOver, static_cast<Control&>(*thumbnail.Get()), DragArgs{*thumbnail.Get(), 0, 0, DragState::Enter});
  if (thumbnail) Raise(on.DragDrop, static_cast<Control&>(*thumbnail.Get()), DragArgs{*thumbnail.Get()});
  LetFullSizeFollow(main);
}

// A cell is no source of drags: a click is its press alone.
void ClickCell(MainForm& main, int cell) {
  ImageBox& thumbnail = main.desk.DestThumbnail(cell);
  Raise(thumbnail.On().MouseDown, static_cast<Control&>(thumbnail), MouseArgs{.Button = button::Left});
  LetFullSizeFollow(main);
}

void TakeSlot(MainForm& main, int slot, Way way) {
  ClickSlot(main, slot);
  if (main.strip.SrcBackground.IsLoaded(slot)) KeepSlotInView(main.strip, slot, way);
}

void TakeCell(MainForm& main, int cell, Way way) {
  ClickCell(main, cell);
  if (main.desk.DestBackground.IsLoaded(cell)) KeepCellInView(main.desk, cell, way);
}

bool IsSlotShown(const FilmStripState& strip, int slot) {
  return strip.SrcThumbnail.IsLoaded(slot) && strip.SrcThumbnail(slot).Visible();
}

void MoveBackInStrip(MainForm& main) {
  int slot = SelectedSlot(main.strip);
  if (slot == 1) Refuse(main);
  do {
    if (slot < 2) return;
    --slot;
  } while (!IsSlotShown(main.strip, slot));
  TakeSlot(main, slot, Way::Back);
}

// Deliberate: the limit is the highest slot that is shown and not the count of the photos that are. In the Remaining
// view slot numbers go beyond that count, and each photo of it can be chosen by key.
void MoveOnInStrip(MainForm& main) {
  const FilmStripState& strip = main.strip;
  int slot = SelectedSlot(strip);
  do {
    if (slot >= strip.SrcSlotCount) {
      Refuse(main);
      return;
    }
    ++slot;
  } while (!IsSlotShown(strip, slot));
  TakeSlot(main, slot, Way::On);
}

// The cell that the key leads to from the selected one; 0 where it leads nowhere.
int CellBeside(const DesktopState& desk, int cell, int keyCode) {
  const int columns = std::max(1, desk.DestColumns);
  switch (keyCode) {
    case key::Left:
      return cell > 1 ? cell - 1 : 0;
    case key::Right:
      return cell < desk.DestSlotCount ? cell + 1 : 0;
    case key::Up:
      return cell > columns ? cell - columns : 0;
    default:
      return cell < desk.DestSlotCount - columns + 1 ? cell + columns : 0;
  }
}

void MoveInOpenFolder(MainForm& main, int keyCode) {
  const int cell = CellBeside(main.desk, SelectedCell(main.desk), keyCode);
  if (!main.desk.DestThumbnail.IsLoaded(cell) || cell == 0) {
    Refuse(main);
    return;
  }
  TakeCell(main, cell, keyCode == key::Left || keyCode == key::Up ? Way::Back : Way::On);
}

// From no selection at all the first move selects the first photo.
void BeginInStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  strip.SrcThumbFrame.SetTag("0");
  ErrorsIgnored([&] { strip.SrcScrollbar.SetValue(strip.SrcScrollbar.LargeChange()); });
  MoveOnInStrip(main);
}

void BeginInOpenFolder(MainForm& main) {
  DesktopState& desk = main.desk;
  desk.DestThumbFrame.SetTag("0");
  ErrorsIgnored([&] { desk.DestScrollbar.SetValue(main.strip.SrcScrollbar.LargeChange()); });
  MoveInOpenFolder(main, key::Right);
}

}  // namespace

bool MoveSelection(MainForm& main, int keyCode) {
  const bool across = keyCode == key::Left || keyCode == key::Right;
  const bool upAndDown = keyCode == key::Up || keyCode == key::Down;
  if (!across && !upAndDown) return false;
  if (main.desk.DestThumbFrame.Visible()) {
    MoveInOpenFolder(main, keyCode);
  } else if (main.strip.SrcThumbFrame.Visible()) {
    if (upAndDown) return false;
    keyCode == key::Left ? MoveBackInStrip(main) : MoveOnInStrip(main);
  } else {
    across ? BeginInStrip(main) : BeginInOpenFolder(main);
  }
  return true;
}

void SelectInStrip(MainForm& main) {
  FilmStripState& strip = main.strip;
  int slot = OrElse(0, [&] { return SelectedSlot(strip); });
  if (slot < 1 || !IsSlotShown(strip, slot)) {
    slot = 1;
    while (slot <= strip.SrcSlotCount && !IsSlotShown(strip, slot)) ++slot;
  }
  if (!IsSlotShown(strip, slot)) {
    Refuse(main);
    return;
  }
  ClickSlot(main, slot);
  if (strip.SrcBackground.IsLoaded(slot)) BringSlotBack(strip, slot);
}

void SelectSlotInStrip(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  if (!IsSlotShown(strip, slot)) strip.AllOption.SetValue(true);
  ClickSlot(main, slot);
  if (!strip.SrcBackground.IsLoaded(slot) || IsInView(strip, slot)) return;
  ErrorsIgnored([&] { ScrollStripTo(strip, slot, FramesAhead); });
}

void SelectInOpenFolder(MainForm& main) {
  DesktopState& desk = main.desk;
  int cell = OrElse(0, [&] { return SelectedCell(desk); });
  if (cell < 1 || cell > desk.DestSlotCount) cell = 1;
  if (desk.DestSlotCount == 0) {
    Refuse(main);
    return;
  }
  ClickCell(main, cell);
  if (desk.DestBackground.IsLoaded(cell)) BringCellBack(desk, cell);
}

}  // namespace pixorra
