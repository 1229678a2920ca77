#pragma once

// The selectors of year, month and day of the Calendar page.

#include <functional>

#include "core/TessarinMenu.h"

namespace tessarin {

class CalendarNavigator {
 public:
  // The years that can be chosen.
  static constexpr int kFirstYear = 1900;
  static constexpr int kLastYear = 2999;

  // `changed` is called when the user chose another day. `session` must outlive this.
  CalendarNavigator(TessarinMenu& session, std::function<void()> changed);

  // While the year's box holds no year that can be chosen, the last one that it held counts.
  int Year() const;
  int Month() const { return session_.Combo2.Selected() + 1; }
  int Day() const { return session_.Combo3.Selected() + 1; }
  DateValue Date() const { return modDate::PackDate(Year(), Month(), Day()); }

  // Each brings the selectors to a day, one outside the years that can be chosen to none. None of
  // them calls `changed`.
  void Choose(DateValue day);
  void MoveDays(int days) { Choose(Date() + days); }
  // Keeps the day, or takes the last of a shorter month.
  void MoveMonths(int months);

  void Enable(bool yearAndMonth, bool day);

 private:
  bool HoldsYear() const;
  void Set(int year, int month, int day);
  void FillDays(int day);

  TessarinMenu& session_;
  std::function<void()> changed_;
  mutable int year_ = kFirstYear;
};

}  // namespace tessarin
