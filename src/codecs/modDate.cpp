#include "codecs/modDate.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "codecs/Faults.h"
#include "codecs/Numbers.h"

namespace tessarin::modDate {

namespace {

namespace chrono = std::chrono;

constexpr long long kSecondsOfDay = 86400;
constexpr double kMinutesOfDay = 1440.0;
constexpr chrono::sys_days kDayZero = chrono::year{1899} / chrono::December / 30;

// The days from the first of year 100 to the last of year 9999.
bool IsInCalendar(long long day) {
  constexpr chrono::sys_days kFirst = chrono::year{100} / chrono::January / 1;
  constexpr chrono::sys_days kLast = chrono::year{9999} / chrono::December / 31;
  return day >= (kFirst - kDayZero).count() && day <= (kLast - kDayZero).count();
}

// `dividend` / `divisor`, rounded down, below zero too.
constexpr long long Floor(long long dividend, long long divisor) {
  return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

// Small year numbers stand for the years around the turn of the century.
long long WholeYear(int year) {
  if (year < 0 || year > 99) return year;
  return year + (year < 30 ? 2000 : 1900);
}

}  // namespace

DateValue PackDate(int year, int month, int day) {
  const long long months = WholeYear(year) * 12 + month - 1;
  const long long rolledYear = Floor(months, 12);
  if (rolledYear < 0 || rolledYear > 20000) throw ConversionError();
  const auto rolledMonth = static_cast<unsigned>(months - rolledYear * 12 + 1);
  const chrono::sys_days first =
      chrono::year{static_cast<int>(rolledYear)} / chrono::month{rolledMonth} / 1;
  const long long value = (first - kDayZero).count() + (static_cast<long long>(day) - 1);
  if (!IsInCalendar(value)) throw ConversionError();
  return static_cast<DateValue>(value);
}

DateValue PackTime(int hour, int minute, int second) {
  const long long seconds = (hour * 60LL + minute) * 60LL + second;
  return static_cast<DateValue>(seconds) / kSecondsOfDay;
}

DateParts Unpack(DateValue value) {
  constexpr double kFarAway = 1e7;
  if (!(std::abs(value) < kFarAway)) throw ConversionError();
  const long long seconds = std::llround(value * kSecondsOfDay);
  const long long day = Floor(seconds, kSecondsOfDay);
  if (!IsInCalendar(day)) throw ConversionError();
  const chrono::year_month_day date = kDayZero + chrono::days{day};
  const auto time = static_cast<int>(seconds - day * kSecondsOfDay);
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          time / 3600,
          time / 60 % 60,
          time % 60};
}

Text FormatDateText(DateValue value) {
  const DateParts parts = Unpack(value);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", parts.day, parts.month,
                parts.year, parts.hour, parts.minute, parts.second);
  return FromLatin1(text.data());
}

DateValue ParseDateText(TextView text) {
  constexpr std::size_t kDateLength = 10;
  constexpr std::size_t kWholeLength = 19;
  if (text.size() < kDateLength) return 0.0;
  const DateValue date = PackDate(ReadNumber(text.substr(6, 4)), ReadNumber(text.substr(3, 2)),
                                  ReadNumber(text.substr(0, 2)));
  if (text.size() < kWholeLength) return date;
  return date + PackTime(ReadNumber(text.substr(11, 2)), ReadNumber(text.substr(14, 2)),
                         ReadNumber(text.substr(17)));
}

bool IsDateBefore(TextView a, TextView b) { return ParseDateText(a) < ParseDateText(b); }

double MinutesToDays(long long minutes) { return static_cast<double>(minutes) / kMinutesOfDay; }

long long DaysToMinutes(double days) {
  const double minutes = RoundHalfToEven(days * kMinutesOfDay);
  constexpr double kMost = 9e18;
  if (!(std::abs(minutes) < kMost)) throw ConversionError();
  return static_cast<long long>(minutes);
}

}  // namespace tessarin::modDate
