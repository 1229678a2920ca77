#pragma once

// What the times of an event mean, in local time. libical knows the time zones; a zone's name is
// looked up in the computer's own zone data first, then in the object's VTIMEZONE.

#include <optional>
#include <string>

#include "codecs/modDate.h"
#include "outlook/ContentLines.h"

namespace tessarin::outlook {

struct EventTime {
  DateValue value;
  bool allDay;  // a date without a time: its midnight
};

// Whether it lies in the years 100 to 9999, the only ones that a date value can mean.
bool IsInYears(DateValue value);

// Reads a DTSTART or DTEND line. A time of no zone, or of one that nobody knows, is local time.
// None when it is no time, or outside the years 100 to 9999.
std::optional<EventTime> ReadEventTime(const ContentLines& document, const ContentLine& line);

// "20040615T120000Z".
std::string WriteUtcTime(DateValue local);
// "20040615".
std::string WriteDate(DateValue local);

// A length of time (RFC 5545, 3.3.6). Its days, of which a week has seven, are days of the
// calendar, whatever the clock does in them; its seconds are exact.
struct Duration {
  long long days = 0;
  long long seconds = 0;
};
// Reads one such as "-PT15M" or "P1DT2H"; none when it is no duration or longer than a thousand
// years.
std::optional<Duration> ReadDuration(std::string_view text);
// None outside the years 100 to 9999.
std::optional<DateValue> After(DateValue local, const Duration& duration);
// The exact seconds between two local times.
long long SecondsBetween(DateValue from, DateValue to);

}  // namespace tessarin::outlook
