#include "desktop/FolderGeometry.h"

#include <algorithm>

#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

constexpr int SlotColumns = 3;

// Of a slot's controls: to the right of the slot's origin, and above it.
constexpr int IconInset = 15;
constexpr int IconRise = 112;
constexpr int CountInset = 47;
constexpr int NameInset = 25;  // of its middle, from that of an icon at the origin
constexpr int NameRise = 16;
constexpr int PreviewInset = 54;
constexpr int PreviewRise = 90;
constexpr int OpenPreviewLean = 10;  // an open folder's preview lies further left and lower
constexpr int OpenPreviewDrop = 5;

constexpr int NamesGap = 8;         // between neighbours
constexpr int WidestName = 2 * 91;  // a name's middle is 94 pixels from its column's left

// Of the Trashcan, from the corner of its place in the grid, and of what lies around it.
constexpr int TrashcanInset = 105;
constexpr int TrashcanRise = 110;
constexpr int TrashcanCountInset = 10;
constexpr int ButtonsBesideTrashcan = 88;

// The point that the controls of a slot are placed from: its column's left, its row's lower edge.
Spot SlotOrigin(const FolderGrid& grid, int slot) {
  const int column = (slot - 1) % SlotColumns;
  const int row = (slot - 1) / SlotColumns;
  const int step = RowStepOf(grid);
  return {static_cast<double>(grid.Desktop.Left + column * ColumnStepOf(grid)),
          static_cast<double>(grid.Desktop.Top + row * step + step)};
}

// Cells ahead of the page have rows and columns too, above the canvas's origin.
int RowOf(int position, int columns) {
  return position >= 0 ? position / columns : -((-position + columns - 1) / columns);
}

}  // namespace

int ColumnStepOf(const FolderGrid& grid) {
  return CLng((grid.Desktop.Width - 4 - 3.0 * grid.FolderWidth) / 3 + grid.FolderWidth);
}

int RowStepOf(const FolderGrid& grid) {
  return CLng((grid.Desktop.Height - 3.0 * grid.FolderHeight) / 4 + grid.FolderHeight + 5);
}

Spot FolderIconPlace(const FolderGrid& grid, int slot) {
  const Spot origin = SlotOrigin(grid, slot);
  return {origin.Left + IconInset, origin.Top - IconRise};
}

Spot FolderCountPlace(const FolderGrid& grid, int slot) {
  const Spot origin = SlotOrigin(grid, slot);
  return {origin.Left + CountInset, origin.Top - IconRise};
}

Spot FolderNamePlace(const FolderGrid& grid, int slot, int nameWidth) {
  const Spot origin = SlotOrigin(grid, slot);
  return {origin.Left + grid.FolderWidth / 2.0 - nameWidth / 2.0 + NameInset, origin.Top - NameRise};
}

// Wide names stay clear of their neighbours and within the Desktop.
int FolderNameWidth(const FolderGrid& grid) {
  return std::max(1, std::min(ColumnStepOf(grid) - NamesGap, WidestName));
}

Spot FolderPreviewPlace(const FolderGrid& grid, int slot, bool open) {
  const Spot origin = SlotOrigin(grid, slot);
  const Spot closed{origin.Left + PreviewInset, origin.Top - PreviewRise};
  // An open folder's front leans to the left.
  return open ? Spot{closed.Left - OpenPreviewLean, closed.Top + OpenPreviewDrop} : closed;
}

TrashcanPlaces PlacesAtTrashcan(const FolderGrid& grid, int trashcanHeight) {
  TrashcanPlaces places;
  places.Icon = {grid.Desktop.Left + 2.0 * ColumnStepOf(grid) + TrashcanInset,
                 grid.Desktop.Top + 3.0 * RowStepOf(grid) - TrashcanRise};
  places.Count = {places.Icon.Left + TrashcanCountInset, places.Icon.Top + trashcanHeight};
  places.Show = {places.Icon.Left - ButtonsBesideTrashcan, places.Icon.Top};
  places.Hide = {places.Show.Left, places.Show.Top + trashcanHeight};
  return places;
}

Spot CellPlace(int cell, int pageBase, int columns) {
  const int position = cell - 1 - pageBase;
  const int row = RowOf(position, columns);
  const int column = position - row * columns;
  return {static_cast<double>(column) * CellWidth, static_cast<double>(row) * CellHeight + CellHeight};
}

int PageBaseFor(double scrolled, int columns) {
  const int step = columns * RowsPerPage;
  const int topCell = CLng(scrolled * columns / CellHeight);
  return topCell / step * step;
}

double CanvasTopFor(double scrolled, int pageBase, int columns) {
  return pageBase * static_cast<double>(CellHeight) / columns - scrolled - CellHeight;
}

double ScrollLengthFor(int cells, int columns, int windowHeight) {
  const int rows = (cells + 1) / columns;
  return rows * static_cast<double>(CellHeight) - windowHeight + CellHeight;
}

}  // namespace pixorra
