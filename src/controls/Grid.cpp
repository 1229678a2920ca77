#include "controls/Grid.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

void Grid::SetSize(int rowCount, int columnCount) {
  rows_ = rowCount;
  columns_ = columnCount;
  currentRow_ = currentColumn_ = -1;
  cells_.assign(static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(columnCount), {});
  widths_.resize(static_cast<std::size_t>(columnCount), 80);
  changed();
}

GridCell& Grid::At(int row, int column) {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) throw BoundsError();
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                static_cast<std::size_t>(column)];
}

const GridCell& Grid::Cell(int row, int column) const {
  return const_cast<Grid*>(this)->At(row, column);
}

void Grid::SetText(int row, int column, Text text) {
  At(row, column).text = std::move(text);
  changed();
}

void Grid::SetBackground(int row, int column, std::optional<std::uint32_t> colour) {
  At(row, column).background = colour;
  changed();
}

void Grid::SetBold(int row, int column, bool bold) {
  At(row, column).bold = bold;
  changed();
}

void Grid::SetColumnWidth(int column, int pixels) {
  if (column < 0 || column >= columns_) throw BoundsError();
  widths_[static_cast<std::size_t>(column)] = pixels;
  changed();
}

int Grid::ColumnWidth(int column) const {
  if (column < 0 || column >= columns_) throw BoundsError();
  return widths_[static_cast<std::size_t>(column)];
}

void Grid::SetCurrent(int row, int column) {
  At(row, column);
  currentRow_ = row;
  currentColumn_ = column;
  changed();
}

void Grid::SelectByUser(int row, int column) {
  SetCurrent(row, column);
  clicked();
}

}  // namespace tessarin
