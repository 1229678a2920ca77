#pragma once

// A sheet of cells with a header row, as of a calendar.

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "controls/Control.h"

namespace tessarin {

// A colour for light themes and its counterpart for dark ones, each 0xRRGGBB.
struct CellColour {
  std::uint32_t light = 0;
  std::uint32_t dark = 0;
  bool operator==(const CellColour&) const = default;
};

struct GridCell {
  Text text;
  std::string image;                     // an icon's name, or empty
  Text badge;                            // a few letters in the cell's lower corner
  Text description;                      // what a screen reader says, where text does not say it
  std::optional<CellColour> background;  // the theme's own when absent
  bool centred = false;
  bool framed = false;
  bool operator==(const GridCell&) const = default;
};

struct GridFont {
  std::string family;  // the theme's own font when empty
  int points = 0;
  bool bold = false;
  bool operator==(const GridFont&) const = default;
};

enum class GridKey { Left, Right, Up, Down, PageUp, PageDown, Home, Space };

class Grid : public Control {
 public:
  using Control::Control;

  // Column widths that are no pixels.
  static constexpr int kHidden = 0;
  static constexpr int kFitToText = -1;  // as wide as its longest text

  Property<bool> wholeRows{changed, false};   // rows, not cells, are selected
  Property<bool> fillsPlace{changed, false};  // the cells share the whole place of the grid
  Property<GridFont> font{changed};
  // What stands in a sheet without rows.
  Property<Text> emptyText{changed};

  // Gives the sheet this size; all cells become empty and no cell is current. Row 0 is the header.
  void SetSize(int rows, int columns);
  int Rows() const { return rows_; }
  int Columns() const { return columns_; }

  // Cells and columns outside the sheet raise BoundsError.
  const GridCell& Cell(int row, int column) const;
  void SetCell(int row, int column, GridCell cell);
  void SetText(int row, int column, Text text);
  void SetBackground(int row, int column, std::optional<CellColour> colour);
  void SetColumnWidth(int column, int pixels);
  int ColumnWidth(int column) const;

  int CurrentRow() const { return currentRow_; }  // -1 for none
  int CurrentColumn() const { return currentColumn_; }
  void SetCurrent(int row, int column);
  void SelectByUser(int row, int column);

  // Grows with each change of cells or widths, but not when another cell becomes current.
  int version() const { return version_; }

  // Holds `changed` back while several cells are set; the last of them to go tells the change.
  class Update {
   public:
    explicit Update(Grid& grid) : grid_(grid) { ++grid_.held_; }
    ~Update();
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

   private:
    Grid& grid_;
  };

  Signal<> clicked;    // the user clicked the current cell
  Signal<> activated;  // double click, Enter
  // Asked what a key does; false leaves it to the toolkit. Set once, before the window is shown.
  std::function<bool(GridKey)> keyPressed;

 private:
  GridCell& At(int row, int column);
  void Changed();

  int rows_ = 0;
  int columns_ = 0;
  int currentRow_ = -1;
  int currentColumn_ = -1;
  int version_ = 0;
  int held_ = 0;
  std::vector<GridCell> cells_;
  std::vector<int> widths_;
};

}  // namespace tessarin
