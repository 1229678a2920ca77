#include "calendar/MonthSheet.h"

#include "codecs/modDate.h"

namespace tessarin {

namespace {

// 0 for Sunday. Day 1 of the date count, 31 December 1899, was one.
int DayOfWeek(long long day) { return static_cast<int>((day - 1) % 7); }

// The Sundays behind `first` up to `last`.
int CalendarWeeksBetween(long long first, long long last) {
  return static_cast<int>((last - 1) / 7 - (first - 1) / 7);
}

}  // namespace

MonthSheet::MonthSheet(int year, int month) {
  const auto first = static_cast<long long>(modDate::PackDate(year, month, 1));
  const auto next = static_cast<long long>(modDate::PackDate(year, month + 1, 1));
  days = static_cast<int>(next - first);
  offset = DayOfWeek(first);
  weeks = CalendarWeeksBetween(first, next - 1) + 1;
}

int MonthSheet::DayAt(int row, int column) const {
  const int day = (row - 1) * kColumns + column - offset + 1;
  return row >= 1 && day >= 1 && day <= days ? day : 0;
}

}  // namespace tessarin
