#include "calendar/CalendarNavigator.h"

#include <algorithm>
#include <utility>

#include "calendar/MonthSheet.h"
#include "codecs/Faults.h"
#include "codecs/Numbers.h"

namespace tessarin {

namespace {

constexpr int kYearDigits = 4;
constexpr int kMonths = 12;

}  // namespace

CalendarNavigator::CalendarNavigator(TessarinMenu& session, std::function<void()> changed)
    : session_(session), changed_(std::move(changed)) {
  session_.Text1.maximumLength = kYearDigits;
  const auto refill = [this] {
    FillDays(Day());
    changed_();
  };
  session_.Text1.edited.Always([this, refill] {
    if (HoldsYear()) refill();
  });
  session_.UpDown1.stepped.Always([this](int step) {
    MoveMonths(step * kMonths);
    changed_();
  });
  session_.Combo2.clicked.Always(refill);
  session_.Combo3.clicked.Always([this] { changed_(); });
}

bool CalendarNavigator::HoldsYear() const {
  const Text& text = session_.Text1.text;
  if (text.size() != kYearDigits || text.find_first_not_of(u"0123456789") != Text::npos) {
    return false;
  }
  const int year = ReadNumber(text);
  return year >= kFirstYear && year <= kLastYear;
}

int CalendarNavigator::Year() const {
  if (HoldsYear()) year_ = ReadNumber(session_.Text1.text());
  return year_;
}

void CalendarNavigator::Choose(DateValue day) {
  const DateParts parts = modDate::Unpack(day);
  if (parts.year >= kFirstYear && parts.year <= kLastYear) Set(parts.year, parts.month, parts.day);
}

void CalendarNavigator::MoveMonths(int months) {
  const int month = Year() * kMonths + Month() - 1 + months;
  const int year = month / kMonths;
  if (year >= kFirstYear && year <= kLastYear) Set(year, month % kMonths + 1, Day());
}

void CalendarNavigator::Set(int year, int month, int day) {
  session_.Text1.text = ToText(year);
  session_.Combo2.Select(month - 1);
  FillDays(day);
}

void CalendarNavigator::FillDays(int day) {
  const int days = MonthSheet(Year(), Month()).days;
  if (session_.Combo3.Count() != days) {
    session_.Combo3.Clear();
    for (int number = 1; number <= days; ++number) session_.Combo3.Add(ToText(number));
  }
  session_.Combo3.Select(std::clamp(day, 1, days) - 1);
}

void CalendarNavigator::Enable(bool yearAndMonth, bool day) {
  session_.Text1.enabled = yearAndMonth;
  session_.UpDown1.enabled = yearAndMonth;
  session_.Combo2.enabled = yearAndMonth;
  session_.Combo3.enabled = day;
  session_.cmdToday.enabled = yearAndMonth;
}

}  // namespace tessarin
