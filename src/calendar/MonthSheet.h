#pragma once

// Where the days of a month stand on its sheet: seven columns, Sunday first; row 0 is the header.

namespace tessarin {

struct MonthSheet {
  // `month` is 1 to 12.
  MonthSheet(int year, int month);

  int days;    // 28 to 31
  int offset;  // the column of day 1
  int weeks;   // the rows below the header, 4 to 6

  static constexpr int kColumns = 7;
  int Rows() const { return weeks + 1; }
  int RowOf(int day) const { return 1 + (offset + day - 1) / kColumns; }
  int ColumnOf(int day) const { return (offset + day - 1) % kColumns; }
  // The day at a place below the header; 0 where none stands.
  int DayAt(int row, int column) const;
};

}  // namespace tessarin
