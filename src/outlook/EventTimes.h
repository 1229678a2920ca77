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

// Reads a DTSTART or DTEND line. A time of no zone, or of one that nobody knows, is local time.
// None when it is no time, or outside the years 100 to 9999.
std::optional<EventTime> ReadEventTime(const ContentLines& document, const ContentLine& line);

// "20040615T120000Z".
std::string WriteUtcTime(DateValue local);
// "20040615".
std::string WriteDate(DateValue local);

// The seconds of a duration such as "-PT15M" or "P1DT2H" (RFC 5545, 3.3.6); none when it is no
// duration or longer than a thousand years.
std::optional<long long> ReadDuration(std::string_view text);

}  // namespace tessarin::outlook
