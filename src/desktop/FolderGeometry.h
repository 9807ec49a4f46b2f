// Where the folder slots and the cells of the open folder lie, as numbers alone. All in pixels.
#pragma once

#include "platform/controls/Geometry.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

// The Desktop's picture and the size of a folder icon: what the grid of three columns and rows follows from.
struct FolderGrid {
  Rect Desktop;
  int FolderWidth = 0;
  int FolderHeight = 0;
};

struct Spot {
  double Left = 0;
  double Top = 0;
  bool operator==(const Spot&) const = default;
};

int ColumnStepOf(const FolderGrid& grid);
int RowStepOf(const FolderGrid& grid);

// The controls of slots 1 to 8.
Spot FolderIconPlace(const FolderGrid& grid, int slot);
Spot FolderCountPlace(const FolderGrid& grid, int slot);
// The name is centred, so where it begins depends on its width, pixels.
Spot FolderNamePlace(const FolderGrid& grid, int slot, int nameWidth);
// The width that a name must not pass.
int FolderNameWidth(const FolderGrid& grid);
Spot FolderPreviewPlace(const FolderGrid& grid, int slot, bool open);

// The Trashcan, in the ninth place of the grid, and what lies around it.
struct TrashcanPlaces {
  Spot Icon;
  Spot Count;
  Spot Show;
  Spot Hide;
};
TrashcanPlaces PlacesAtTrashcan(const FolderGrid& grid, int trashcanHeight);

// The open folder's grid: `columns` cells in a row, placed relative to a page of 50 rows so that the canvas stays short
// however many photos there are.

// Of the background of a cell, from 1, on the canvas; `pageBase` cells lie before the canvas's origin.
Spot CellPlace(int cell, int pageBase, int columns);
// For a view that is scrolled by so many pixels: the number of cells before the page that its top edge is on, a
// multiple of 50 rows.
int PageBaseFor(double scrolled, int columns);
// The canvas's top for it: it makes up for the page, so that nothing jumps when it turns.
double CanvasTopFor(double scrolled, int pageBase, int columns);
// How far a window of that height scrolls over so many cells, pixels; below 0 where they fit.
double ScrollLengthFor(int cells, int columns, int windowHeight);

}  // namespace pixorra
