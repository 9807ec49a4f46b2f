#include "desktop/FolderGeometry.h"

#include <algorithm>

#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

constexpr int SlotColumns = 3;

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
  return {origin.Left + 15, origin.Top - 112};
}

Spot FolderCountPlace(const FolderGrid& grid, int slot) {
  const Spot origin = SlotOrigin(grid, slot);
  return {origin.Left + 47, origin.Top - 112};
}

Spot FolderNamePlace(const FolderGrid& grid, int slot, int nameWidth) {
  const Spot origin = SlotOrigin(grid, slot);
  return {origin.Left + grid.FolderWidth / 2.0 - nameWidth / 2.0 + 25, origin.Top - 16};
}

// Wide names stay clear of their neighbours and within the Desktop: a name's middle is 94 pixels from its column's
// left.
int FolderNameWidth(const FolderGrid& grid) {
  return std::max(1, std::min(ColumnStepOf(grid) - 8, 2 * 91));
}

Spot FolderPreviewPlace(const FolderGrid& grid, int slot, bool open) {
  const Spot origin = SlotOrigin(grid, slot);
  const Spot closed{origin.Left + 54, origin.Top - 90};
  // An open folder's front leans to the left.
  return open ? Spot{closed.Left - 10, closed.Top + 5} : closed;
}

TrashcanPlaces PlacesAtTrashcan(const FolderGrid& grid, int trashcanHeight) {
  TrashcanPlaces places;
  places.Icon = {grid.Desktop.Left + 2.0 * ColumnStepOf(grid) + 105, grid.Desktop.Top + 3.0 * RowStepOf(grid) - 110};
  places.Count = {places.Icon.Left + 10, places.Icon.Top + trashcanHeight};
  places.Show = {places.Icon.Left - 88, places.Icon.Top};
  places.Hide = {places.Show.Left, places.Show.Top + trashcanHeight};
  return places;
}

Spot CellPlace(int cell, int pageBase, int columns) {
  const int position = cell - 1 - pageBase;
  const int row = RowOf(position, columns);
  const int column = position - row * columns;
  return {static_cast<double>(column) * CellWidth, static_cast<double>(row) * CellHeight + CellHeight};
}

int PageBaseFor(int barValue, int columns) {
  const int step = columns * RowsPerPage;
  const int topCell = CLng(barValue * 2.0 * columns / CellHeight);
  return topCell / step * step;
}

double CanvasTopFor(int barValue, int pageBase, int columns) {
  return pageBase * static_cast<double>(CellHeight) / columns - barValue * 2.0 - CellHeight;
}

int BarMaxFor(int cells, int columns, int windowHeight) {
  const int rows = (cells + 1) / columns;
  return CInt((rows * static_cast<double>(CellHeight) - windowHeight + CellHeight) / 2);
}

}  // namespace pixorra
