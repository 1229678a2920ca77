#pragma once

// A sheet of cells with a header row, as of a calendar.

#include <cstdint>
#include <optional>
#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct GridCell {
  Text text;
  std::optional<std::uint32_t> background;  // 0xRRGGBB; the theme's own when absent
  bool bold = false;
};

class Grid : public Control {
 public:
  using Control::Control;

  // Gives the sheet this size; all cells become empty. Row 0 is the header.
  void SetSize(int rows, int columns);
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }

  // Cells and columns outside the sheet raise BoundsError.
  const GridCell& Cell(int row, int column) const;
  void SetText(int row, int column, Text text);
  void SetBackground(int row, int column, std::optional<std::uint32_t> colour);
  void SetBold(int row, int column, bool bold);
  void SetColumnWidth(int column, int pixels);
  int ColumnWidth(int column) const;

  int CurrentRow() const { return currentRow_; }  // -1 for none
  int CurrentColumn() const { return currentColumn_; }
  void SetCurrent(int row, int column);
  void SelectByUser(int row, int column);

  Signal<> clicked;    // the user selected the current cell
  Signal<> activated;  // double click, Enter

 private:
  GridCell& At(int row, int column);

  int rows_ = 0;
  int columns_ = 0;
  int currentRow_ = -1;
  int currentColumn_ = -1;
  std::vector<GridCell> cells_;
  std::vector<int> widths_;
};

}  // namespace tessarin
