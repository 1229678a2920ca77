#include "calendar/FlexGrid.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr CellColour kAlternate{0xF0F4FA, 0x262B34};
constexpr char kCheck[] = "check-on";
constexpr char kEmptyBox[] = "check-off";

bool HoldsNothing(const Grid& grid, int column) {
  for (int row = 0; row < grid.Rows(); ++row) {
    const GridCell& cell = grid.Cell(row, column);
    if (!cell.text.empty() || !cell.image.empty()) return false;
  }
  return true;
}

}  // namespace

void FlexGridColumnColor(Grid& grid, int firstColumn, int lastColumn) {
  const Grid::Update update(grid);
  for (int column = firstColumn; column <= lastColumn; column += 2) {
    for (int row = 1; row < grid.Rows(); ++row) grid.SetBackground(row, column, kAlternate);
  }
}

void FG_AutosizeCols(Grid& grid) {
  const Grid::Update update(grid);
  for (int column = 0; column < grid.Columns(); ++column) {
    grid.SetColumnWidth(column, HoldsNothing(grid, column) ? Grid::kHidden : Grid::kFitToText);
  }
}

GridCell TickCell(bool ticked, const Language& language) {
  GridCell cell;
  cell.image = ticked ? kCheck : kEmptyBox;
  cell.description = language.getTSInterfaceStr(ticked ? words::kTicked : words::kNotTicked);
  cell.centred = true;
  return cell;
}

bool IsTicked(const Grid& grid, int row, int column) {
  return grid.Cell(row, column).image == kCheck;
}

void FlipTick(Grid& grid, int row, int column, const Language& language) {
  GridCell cell = TickCell(!IsTicked(grid, row, column), language);
  cell.background = grid.Cell(row, column).background;
  grid.SetCell(row, column, std::move(cell));
}

}  // namespace tessarin
