// Dates, the system's date text, and the clock.
//
// The date text is "dd/mm/yyyy hh:mm:ss": two-digit day first, four-digit year, 24-hour clock.
#pragma once

#include "codecs/Text.h"

namespace tessarin {

// Days since 30 December 1899, 00:00, the time of day being the fraction. It is one straight count,
// below zero too (-0.25 is 29 December 1899, 18:00), so that adding and taking away minutes holds
// everywhere. Years run from 100 to 9999.
using DateValue = double;

struct DateParts {
  int year = 0;
  int month = 0;   // 1 to 12
  int day = 0;     // 1 to 31
  int hour = 0;    // 0 to 23
  int minute = 0;  // 0 to 59
  int second = 0;  // 0 to 59

  friend bool operator==(const DateParts&, const DateParts&) = default;
};

// Where the time comes from. Tests set one of their own.
class Clock {
 public:
  virtual ~Clock() = default;

  // The local date and time.
  virtual DateValue Now() const = 0;

  // UTC less local time, in minutes, as it is without summer time: -60 for Central Europe, also in
  // July.
  virtual int StandardBiasMinutes() const = 0;
};

// The computer's clock and its zone, a TZ that was set meanwhile included.
class SystemClock : public Clock {
 public:
  DateValue Now() const override;
  int StandardBiasMinutes() const override;
};

namespace modDate {

// The date, months and days rolling over: month 13 is January of the next year, day 0 the last day
// of the month before. Years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999.
// Throws ConversionError when the date is outside the years 100 to 9999.
DateValue PackDate(int year, int month, int day);

// The time of day as a fraction of a day; values beyond their range roll over (minute 90 is one
// hour and a half), so the result may be a day or more, or below zero.
DateValue PackTime(int hour, int minute, int second);

// The date and time to the nearest second. Throws ConversionError outside the years 100 to 9999.
DateParts Unpack(DateValue value);

// "dd/mm/yyyy hh:mm:ss". Throws as Unpack.
Text FormatDateText(DateValue value);

// The value of a date text, read by its positions (day 1-2, month 4-5, year 7-10, hour 12-13,
// minute 15-16, second 18 to the end); the separators are not looked at, and the parts roll over as
// in PackDate. Below 10 units: 0.0. From 10 to 18 units: the date alone. Throws ConversionError
// when a part does not read as a whole number.
DateValue ParseDateText(TextView text);

// True when the first date text is earlier than the second. Throws as ParseDateText.
bool IsDateBefore(TextView a, TextView b);

// The system's date reader: takes "dd/mm/yyyy hh:mm:ss", the same without seconds or without the
// time, blanks at either end not counting. Unlike ParseDateText it wants a date of the calendar and
// a time of the day. Throws ConversionError otherwise.
DateValue ReadSystemDate(TextView text);

// minutes / 1440.
double MinutesToDays(long long minutes);

// Whole minutes nearest to `days`, half to even.
long long DaysToMinutes(double days);

}  // namespace modDate
}  // namespace tessarin
