#pragma once

// A list of rows in columns, as of files or contacts. The rows lie here; a toolkit shows them
// through a model that reads them, so 10,000 rows cost no widgets.

#include <filesystem>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct ListColumn {
  Text heading;
  int width = 100;       // pixels at 100 %
  bool numbers = false;  // right aligned
  bool visible = true;
  bool operator==(const ListColumn&) const = default;
};

struct ListRow {
  std::string key;          // may be empty
  std::vector<Text> cells;  // cell 0 is the row's text, the others its sub-items
  std::string image;        // an icon's name, or empty
  bool selected = false;
  bool bold = false;
};

// What the user did to a list, told when the button or key is let go. A choice through a screen
// reader is told as the left button's.
enum class ListAct { LeftButton, RightButton, OtherButton, ArrowKey, OtherKey };

class ListView : public Control {
 public:
  using Control::Control;

  Property<std::vector<ListColumn>> columns{changed};
  Property<bool> multipleSelection{changed, false};
  // The column with the sort arrow, -1 for none. The order itself is the logic's business.
  Property<int> sortColumn{changed, -1};
  Property<bool> sortAscending{changed, true};
  // What stands in an empty list, such as "This folder is empty".
  Property<Text> emptyText{changed};
  // Rows of this list may be dragged to another one that takes rows; files from the desktop may be
  // dropped here.
  Property<bool> givesRows{changed, false};
  Property<bool> takesRows{changed, false};
  Property<bool> takesFiles{changed, false};

  void Clear();
  void Add(ListRow row);
  // Takes the place of all rows in one step.
  void Fill(std::vector<ListRow> rows);
  int Count() const { return static_cast<int>(rows_.size()); }
  const std::vector<ListRow>& rows() const { return rows_; }
  // Raises BoundsError outside 0 to Count() - 1.
  const ListRow& Row(int index) const;
  // Empty where the row has no such cell.
  Text Cell(int row, int column) const;
  void SetCell(int row, int column, Text text);
  // Row i becomes the one that was row `order[i]`; selection and focus go with their rows.
  // BoundsError unless `order` holds every row's number once.
  void Order(const std::vector<int>& order);

  // The row that has the focus, -1 for none. Making a row current selects it alone.
  int Current() const { return current_; }
  void SetCurrent(int index);
  void SetSelected(int index, bool selected);
  // The user's selection, in one step: exactly these rows, and the one with the focus.
  void SelectByUser(const std::vector<int>& rows, int current);

  Signal<> selectionChanged;      // the user selected other rows
  Signal<> activated;             // the user opened the current row (double click, Enter)
  Signal<int> columnClicked;      // the user pressed a column's head
  Signal<ListAct> released;       // up and down are the arrow keys
  Signal<ListView&> rowsDropped;  // the selected rows of that list
  Signal<const std::vector<std::filesystem::path>&> filesDropped;

 private:
  ListRow& At(int index);

  std::vector<ListRow> rows_;
  int current_ = -1;
};

}  // namespace tessarin
