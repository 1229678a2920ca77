#pragma once

// Sorting the rows of a list by a click on a column's head, with the arrow in the head. A sort
// keeps the selection and, among equal rows, the order that stood before.

#include <vector>

#include "controls/ListView.h"

namespace tessarin {

// The direction flags of a list's columns, and the arrow in the head of the sorted one. Kept beside
// the list for as long as it lives, since a column remembers its direction.
class cLVHeaderSortIcons {
 public:
  // `list` must outlive this object.
  explicit cLVHeaderSortIcons(ListView& list) : list_(list) {}

  // A click on a head, columns counting from 0: on the sorted column it turns the order round, on
  // another it sorts by that one in the direction it had last. All columns sort as text, so 10KB
  // stands before 2KB.
  void SetHeaderIcons(int column);
  // Shows the arrow only; the rows are sorted already.
  static void SetPhoneHeaderIcons(ListView& list, int column, bool ascending);

 private:
  ListView& list_;
  std::vector<bool> descending_;
};

// Sorts by the column and direction in force, after a fill; a list that was never sorted stays as
// it is.
void SortListByText(ListView& list);
void KeepSortedByNumber(ListView& list);

// A click on the head of a column of numbers or dates: on the sorted column it turns the order
// round, on another it sorts ascending. Numbers are 32-bit; a cell that holds none counts as 0, a
// cell that holds no date ("dd/mm/yyyy hh:mm:ss") stands before all dates.
void sortListByNumber(ListView& list, int column);
void sortListByDate(ListView& list, int column);

}  // namespace tessarin
