#include "controls/Grid.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

Grid::Update::~Update() {
  if (--grid_.held_ == 0) grid_.changed();
}

void Grid::Changed() {
  ++version_;
  if (held_ == 0) changed();
}

void Grid::SetSize(int rowCount, int columnCount) {
  rows_ = rowCount;
  columns_ = columnCount;
  currentRow_ = currentColumn_ = -1;
  cells_.assign(static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(columnCount), {});
  widths_.resize(static_cast<std::size_t>(columnCount), 80);
  Changed();
}

GridCell& Grid::At(int row, int column) {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) throw BoundsError();
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                static_cast<std::size_t>(column)];
}

const GridCell& Grid::Cell(int row, int column) const {
  return const_cast<Grid*>(this)->At(row, column);
}

void Grid::SetCell(int row, int column, GridCell cell) {
  GridCell& place = At(row, column);
  if (place == cell) return;
  place = std::move(cell);
  Changed();
}

void Grid::SetText(int row, int column, Text text) {
  GridCell cell = Cell(row, column);
  cell.text = std::move(text);
  SetCell(row, column, std::move(cell));
}

void Grid::SetBackground(int row, int column, std::optional<CellColour> colour) {
  GridCell cell = Cell(row, column);
  cell.background = colour;
  SetCell(row, column, std::move(cell));
}

void Grid::SetColumnWidth(int column, int pixels) {
  if (column < 0 || column >= columns_) throw BoundsError();
  widths_[static_cast<std::size_t>(column)] = pixels;
  Changed();
}

int Grid::ColumnWidth(int column) const {
  if (column < 0 || column >= columns_) throw BoundsError();
  return widths_[static_cast<std::size_t>(column)];
}

void Grid::SetCurrent(int row, int column) {
  At(row, column);
  currentRow_ = row;
  currentColumn_ = column;
  if (held_ == 0) changed();
}

void Grid::SelectByUser(int row, int column) {
  SetCurrent(row, column);
  clicked();
}

}  // namespace tessarin
