#pragma once

// What the calendar's grids share: their looks and their tick boxes.

#include "controls/Grid.h"
#include "core/Language.h"

namespace tessarin {

// Paints every other column from `firstColumn` to `lastColumn`, below the header. The grid's
// current cell stays.
void FlexGridColumnColor(Grid& grid, int firstColumn, int lastColumn);

// Makes each column as wide as its longest text and hides those that hold nothing.
void FG_AutosizeCols(Grid& grid);

// A tick box, which stands in a cell as a picture.
GridCell TickCell(bool ticked, const Language& language);
bool IsTicked(const Grid& grid, int row, int column);
void FlipTick(Grid& grid, int row, int column, const Language& language);

}  // namespace tessarin
