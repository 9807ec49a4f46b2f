#include "desktop/OpenFolderView.h"

#include <algorithm>
#include <cmath>

#include "base/Bars.h"
#include "base/ShownNames.h"
#include "desktop/FolderGeometry.h"
#include "desktop/FolderSlots.h"
#include "pictures/PaintPhoto.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "preview/FullSizePreview.h"
#include "preview/PreviewPane.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

// Pixels: of a thumbnail in its cell, from a thumbnail to its name, and what the canvas has below its last cell.
constexpr int ThumbnailInset = 7;
constexpr int NameGap = 1;
constexpr int RoomBelowNewCell = 23;
constexpr int RoomBelowCells = 230;

constexpr int LeastValue = 1;  // of the bar, in units of LeastBarUnit

int Columns(const DesktopState& desk) {
  return std::max(1, desk.DestColumns);
}

void PlaceBackground(DesktopState& desk, int cell) {
  const Spot place = CellPlace(cell, desk.DestPageBase, Columns(desk));
  desk.DestBackground(cell).Move(place.Left, place.Top);
  desk.DestBackground(cell).SetVisible(true);
}

void PlaceThumbnail(DesktopState& desk, int cell) {
  const ImageBox& background = desk.DestBackground(cell);
  ImageBox& thumbnail = desk.DestThumbnail(cell);
  Label& name = desk.DestThumbName(cell);
  thumbnail.Move(background.Left() + ThumbnailInset, background.Top() + ThumbnailInset);
  thumbnail.SetVisible(true);
  name.Move(thumbnail.Left(), thumbnail.Top() + thumbnail.Height() + NameGap);
  name.SetVisible(true);
  name.BringToFront();
}

void FitCanvasWidth(DesktopState& desk) {
  desk.DestCanvas.SetWidth(static_cast<double>(desk.DestBackground(0).Width()) * Columns(desk));
}

// `room` is left below the last cell, pixels.
void FitCanvasHeight(DesktopState& desk, int room) {
  const ImageBox& last = desk.DestBackground(desk.DestSlotCount);
  ErrorsIgnored([&] { desk.DestCanvas.SetHeight(last.Top() + last.Height() + room); });
}

double Scrolled(const DesktopState& desk) {
  return ScrolledPixels(desk.DestScrollbar, desk.DestBarScale);
}

void PlaceCanvas(DesktopState& desk) {
  desk.DestCanvas.SetTop(CanvasTopFor(Scrolled(desk), desk.DestPageBase, Columns(desk)));
}

void ScrollView(MainForm& main) {
  DesktopState& desk = main.desk;
  const auto baseAtBar = [&desk] { return PageBaseFor(Scrolled(desk), Columns(desk)); };
  // A view that has become shorter takes the bar back, maybe to another page.
  for (int base = baseAtBar(); base != desk.DestPageBase; base = baseAtBar()) {
    desk.DestPageBase = base;
    Redisplay_DestThumbnails(main);
  }
  PlaceCanvas(desk);
}

[[nodiscard]] bool FitBarToCells(DesktopState& desk) {
  return FitBar(desk.DestScrollbar, desk.DestBarScale,
                ScrollLengthFor(desk.DestSlotCount, Columns(desk), desk.DestThumbsWindow.Height()), LeastValue);
}

// The photos in view stay in view.
void FitScrollbar(MainForm& main) {
  if (FitBarToCells(main.desk)) ScrollView(main);
}

void ShowSlotCount(DesktopState& desk) {
  desk.DestCountLabel.SetCaption(TrimmedStr(desk.DestSlotCount));
}

// The frame follows its cell; where that is no longer shown nothing is selected.
void FollowSelection(MainForm& main) {
  DesktopState& desk = main.desk;
  int selected = 0;
  ErrorsIgnored([&] { selected = SelectedCell(desk); });
  if (!desk.DestThumbnail.IsLoaded(selected) || !desk.DestThumbnail(selected).Visible()) {
    ResetPreview(main, ApplicationTitle);
    return;
  }
  const ImageBox& thumbnail = desk.DestThumbnail(selected);
  desk.DestThumbFrame.Move(thumbnail.Left(), thumbnail.Top());
  desk.DestThumbFrame.SetVisible(true);
}

void UnloadCell(DesktopState& desk, int cell) {
  ErrorsIgnored([&] { desk.DestThumbnail.Unload(cell); });
  ErrorsIgnored([&] { desk.DestBackground.Unload(cell); });
  ErrorsIgnored([&] { desk.DestThumbName.Unload(cell); });
}

// The cell that keeps its place when the rows become others: the selected one if it is in view, or that of the change
// before, so that a window made wider and narrower again shows what it did, or the first of the row at the top.
int CellToKeep(const DesktopState& desk) {
  const double top = Scrolled(desk);
  if (desk.DestThumbFrame.Visible()) {
    const int selected = OrElse(0, [&] { return SelectedCell(desk); });
    const double above = (selected - 1) / Columns(desk) * static_cast<double>(CellHeight);
    if (selected >= 1 && above >= top && above + CellHeight <= top + desk.DestThumbsWindow.Height()) return selected;
  }
  if (desk.KeptCell != 0 && desk.KeptAtValue == desk.DestScrollbar.Value()) return desk.KeptCell;
  // A row that only the bar's unit has cut off is not at the top.
  return CLng(std::floor((top + desk.DestBarScale.Unit) / CellHeight)) * Columns(desk) + 1;
}

LoadedPaths::PathOf CellPaths(DesktopState& desk) {
  return [&desk](int cell) -> const std::string& { return PhotoOf(desk, cell); };
}

}  // namespace

std::string NextDestThumbFile(DesktopState& desk) {
  return desk.loadedPaths.FirstMissing(desk.DestFileList, CellPaths(desk));
}

std::vector<std::string> NextDestThumbFiles(DesktopState& desk, int most) {
  return desk.loadedPaths.Missing(desk.DestFileList, CellPaths(desk), most);
}

void SetDestCellPath(DesktopState& desk, int index, const std::string& path) {
  desk.DestThumbnail(index).SetTag(path);
  desk.loadedPaths.StartOver();
  desk.loadedPaths.Add(path, index);
}

void AddDestThumbnail(MainForm& main, const std::string& path) {
  DesktopState& desk = main.desk;
  if (desk.DestSlotCount >= MostThumbnails) return;
  const int cell = desk.DestSlotCount + 1;
  bool settled = false;
  const AtExit undone([&] {
    if (settled) return;
    UnloadCell(desk, cell);
    desk.DestSlotCount = std::min(desk.DestSlotCount, cell - 1);
  });
  const Watch<ImageBox> thumbnail(desk.DestThumbnail.Load(cell));
  desk.DestBackground.Load(cell);
  desk.DestThumbName.Load(cell);
  desk.DestSlotCount = cell;
  FitCanvasWidth(desk);
  PlaceBackground(desk, cell);
  bool bDragged = false;
  PaintThumbnail(main, *thumbnail.Get(), path, bDragged);
  // A long step may have let the window close.
  if (!thumbnail) {
    settled = true;
    return;
  }
  desk.DestThumbName(cell).SetCaption(ShownBaseName(main.host.files, path));
  desk.DestThumbName(cell).SetToolTipText(ShownFileName(main.host.files, path));
  PlaceThumbnail(desk, cell);
  FitCanvasHeight(desk, RoomBelowNewCell);
  FitScrollbar(main);
  // Clearing left the canvas at the window's top edge, a row too low; the first cell brings it to the bar's place.
  if (cell == 1) PlaceCanvas(desk);
  thumbnail->SetTag(path);
  desk.loadedPaths.Add(path, cell);
  settled = true;
  ShowSlotCount(desk);
}

void Redisplay_DestThumbnails(MainForm& main) {
  DesktopState& desk = main.desk;
  if (desk.DestSlotCount == 0) return;
  const bool selected = desk.DestThumbFrame.Visible();
  desk.DestThumbFrame.SetVisible(false);
  FitCanvasWidth(desk);
  for (int i = 1; i <= desk.DestSlotCount; ++i) {
    PlaceBackground(desk, i);
    PlaceThumbnail(desk, i);
  }
  FitCanvasHeight(desk, RoomBelowCells);
  FitScrollbar(main);
  if (selected) FollowSelection(main);
}

void SetDestColumns(MainForm& main, int columns) {
  DesktopState& desk = main.desk;
  if (columns == desk.DestColumns) return;
  desk.KeptCell = CellToKeep(desk);
  const int kept = desk.KeptCell - 1;
  const double below = kept / Columns(desk) * static_cast<double>(CellHeight) - Scrolled(desk);
  desk.DestColumns = columns;
  if (desk.DestSlotCount != 0) {
    ScrollBar& bar = desk.DestScrollbar;
    const ScrollInProgress silent(bar);
    static_cast<void>(FitBarToCells(desk));
    const double place = kept / Columns(desk) * static_cast<double>(CellHeight) - below;
    bar.SetValue(std::clamp<double>(RoundHalfEven(place / desk.DestBarScale.Unit), bar.Min(), bar.Max()));
  }
  desk.KeptAtValue = desk.DestScrollbar.Value();
  desk.DestPageBase = PageBaseFor(Scrolled(desk), Columns(desk));
  Redisplay_DestThumbnails(main);
  PlaceCanvas(desk);
}

void ClearDestThumbnails(MainForm& main) {
  DesktopState& desk = main.desk;
  for (int i = 1; i <= desk.DestSlotCount; ++i) UnloadCell(desk, i);
  desk.loadedPaths.Clear();
  desk.DestCanvas.SetPicture(Picture());
  desk.DestThumbnail(0).SetVisible(false);
  desk.DestBackground(0).SetVisible(false);
  desk.DestThumbName(0).SetVisible(false);
  const bool selected = desk.DestThumbFrame.Visible();
  desk.DestThumbFrame.SetVisible(false);
  if (selected) ResetPreview(main, ApplicationTitle);
  desk.DestSlotCount = 0;
  desk.KeptCell = 0;
  desk.DestCountLabel.SetCaption("");
  desk.DestCanvas.SetTop(0);
  desk.DestCanvas.Refresh();
  desk.DestBarScale = {};
  ErrorsIgnored([&] { desk.DestScrollbar.SetMin(LeastValue); });
  ErrorsIgnored([&] { desk.DestScrollbar.SetMax(LeastBarMax); });
  TakeFocusOff(desk.DestScrollbar);
}

void DeleteDestThumbnail(DesktopState& desk, int index) {
  if (index < 1 || index > desk.DestSlotCount) return;
  // Pictures and texts move up from cell to cell; the controls stay where they are.
  for (int k = index; k < desk.DestSlotCount; ++k) {
    const ImageBox& next = desk.DestThumbnail(k + 1);
    desk.DestThumbnail(k).SetPicture(next.GetPicture());
    desk.DestThumbnail(k).SetToolTipText(next.ToolTipText());
    desk.DestThumbnail(k).SetTag(next.Tag());
    const Label& nextName = desk.DestThumbName(k + 1);
    desk.DestThumbName(k).SetCaption(nextName.Caption());
    desk.DestThumbName(k).SetTag(nextName.Tag());
    desk.DestThumbName(k).SetToolTipText(nextName.ToolTipText());
  }
  desk.DestThumbnail.Unload(desk.DestSlotCount);
  desk.DestBackground.Unload(desk.DestSlotCount);
  desk.DestThumbName.Unload(desk.DestSlotCount);
  --desk.DestSlotCount;
  ShowSlotCount(desk);
  desk.loadedPaths.Clear();
  for (int i = 1; i <= desk.DestSlotCount; ++i) desk.loadedPaths.Add(PhotoOf(desk, i), i);
  if (desk.OpenFolderIndex == 0) return;
  desk.DestFileList.Refresh();
  desk.DestFolderFiles(desk.OpenFolderIndex).Refresh();
  ShowFolderCount(desk, desk.OpenFolderIndex);
}

void RemoveDestPhoto(DesktopState& desk, const std::string& path, const Picture& blank) {
  for (int i = 1; i <= desk.DestSlotCount; ++i) {
    if (PhotoOf(desk, i) != path) continue;
    // Blank first, so that no stale picture is seen while the folder is read again.
    desk.DestThumbnail(i).SetPicture(blank);
    DeleteDestThumbnail(desk, i);
    return;
  }
}

int CellOf(const DesktopState& desk, const std::string& path) {
  const auto has = [&](int cell) { return cell >= 1 && cell <= desk.DestSlotCount && PhotoOf(desk, cell) == path; };
  const int selected = OrElse(0, [&] { return SelectedCell(desk); });
  if (has(selected)) return selected;
  for (int i = 1; i <= desk.DestSlotCount; ++i) {
    if (has(i)) return i;
  }
  return 0;
}

void DestScrollbar_Change(MainForm& main) {
  ScrollBar& bar = main.desk.DestScrollbar;
  if (ScrollInProgress::On(bar)) return;
  ScrollView(main);
  TakeFocusOff(bar);
}

void DestScrollbar_Scroll(MainForm& main) {
  ScrollBar& bar = main.desk.DestScrollbar;
  const ScrollInProgress scroll(bar);
  ScrollView(main);
}

void ScrollDestBy(MainForm& main, double pixels) {
  MoveBarBy(main.desk.DestScrollbar, main.desk.DestBarScale, pixels);
}

void DestThumbnail_MouseDown(MainForm& main, int index, int mouseButton) {
  DesktopState& desk = main.desk;
  if (index == 0) return;
  const Watch<ImageBox> cell(desk.DestThumbnail(index));
  if (mouseButton == button::Right && !PhotoOf(desk, index).empty()) DisplayFullSizePreview(main, PhotoOf(desk, index));
  if (!cell) return;
  const ImageBox& thumbnail = desk.DestThumbnail(index);
  desk.DestThumbFrame.Move(thumbnail.Left(), thumbnail.Top());
  desk.DestThumbFrame.SetVisible(true);
  main.strip.SrcThumbFrame.SetVisible(false);
  desk.DestThumbFrame.SetTag(TrimmedStr(index));
  PaintPicPreview(main, PhotoOf(desk, index));
  main.preview.bPicEdited = false;
  if (mouseButton == button::Right) FollowSelectionAtFullSize(main);
}

}  // namespace pixorra
