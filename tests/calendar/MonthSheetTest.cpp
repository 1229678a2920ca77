#include "calendar/MonthSheet.h"

#include <gtest/gtest.h>

#include <chrono>
#include <set>

namespace tessarin {
namespace {

namespace chrono = std::chrono;

// The calendar of the C++ library is the independent witness.
TEST(MonthSheet, EveryMonthOfFortyTwoYears) {
  std::set<int> weeksSeen;
  for (int year = 1999; year <= 2040; ++year) {
    for (unsigned month = 1; month <= 12; ++month) {
      SCOPED_TRACE(std::to_string(year) + "-" + std::to_string(month));
      const MonthSheet sheet(year, static_cast<int>(month));
      const auto last = chrono::year{year} / chrono::month{month} / chrono::last;
      ASSERT_EQ(sheet.days, static_cast<int>(static_cast<unsigned>(last.day())));
      int row = 1;
      for (int day = 1; day <= sheet.days; ++day) {
        const chrono::weekday weekday{
            chrono::sys_days{chrono::year{year} / chrono::month{month} / static_cast<int>(day)}};
        const int column = static_cast<int>(weekday.c_encoding());
        if (day > 1 && column == 0) ++row;
        ASSERT_EQ(sheet.ColumnOf(day), column) << day;
        ASSERT_EQ(sheet.RowOf(day), row) << day;
        ASSERT_EQ(sheet.DayAt(row, column), day);
      }
      ASSERT_EQ(sheet.Rows(), row + 1) << "no row stays empty";
      weeksSeen.insert(sheet.weeks);
    }
  }
  EXPECT_EQ(weeksSeen, (std::set<int>{4, 5, 6}));
}

TEST(MonthSheet, PlacesOutsideTheMonthHoldNoDay) {
  const MonthSheet may(2004, 5);  // begins on a Saturday and has 31 days
  EXPECT_EQ(may.weeks, 6);
  EXPECT_EQ(may.DayAt(1, 6), 1);
  EXPECT_EQ(may.DayAt(6, 1), 31);
  for (const auto& [row, column] : {std::pair(0, 6), {1, 5}, {6, 2}, {-1, 0}, {7, 0}}) {
    EXPECT_EQ(may.DayAt(row, column), 0) << row << ", " << column;
  }
}

}  // namespace
}  // namespace tessarin
