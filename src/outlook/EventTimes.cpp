#include "outlook/EventTimes.h"

#include <libical/ical.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "codecs/Faults.h"
#include "outlook/LocalTime.h"

namespace tessarin::outlook {

namespace {

struct FreeZone {
  void operator()(icaltimezone* zone) const { icaltimezone_free(zone, 1); }
};
using OwnZone = std::unique_ptr<icaltimezone, FreeZone>;

// Whether the changes of a rule can be worked out: at most one a year, on a day that it names. Of
// an observance with another rule the first change stands.
bool IsUsable(const ContentLine& line) {
  if (line.name != "RRULE") return true;
  const std::string rule = UpperAscii(line.value());
  const auto has = [&rule](const char* part) { return rule.find(part) != std::string::npos; };
  return has("FREQ=YEARLY") && (has("BYDAY=") || has("BYMONTHDAY=")) && !has("BYHOUR") &&
         !has("BYMINUTE") && !has("BYSECOND");
}

OwnZone ZoneOf(const ContentLines& document, const ContentBlock& block) {
  std::string text;
  for (std::size_t i = block.begin; i <= block.end; ++i) {
    const ContentLine& line = document.lines()[i];
    if (!line.name.empty() && IsUsable(line)) text += line.text + "\r\n";
  }
  icalcomponent* component = icalparser_parse_string(text.c_str());
  if (component == nullptr) return nullptr;
  OwnZone zone(icaltimezone_new());
  if (icaltimezone_set_component(zone.get(), component) == 0) {
    icalcomponent_free(component);
    return nullptr;
  }
  return zone;
}

OwnZone FindOwnZone(const ContentLines& document, const std::string& name) {
  for (const ContentBlock& block : document.blocks()) {
    if (block.name != "VTIMEZONE") continue;
    for (const std::size_t own : document.OwnLines(block)) {
      const ContentLine& line = document.lines()[own];
      if (line.name == "TZID" && line.value() == name) return ZoneOf(document, block);
    }
  }
  return nullptr;
}

// Names may have a path in front, such as "/example.org/Europe/Berlin".
const icaltimezone* FindKnownZone(const std::string& name) {
  for (std::size_t at = 0; at < name.size();) {
    if (icaltimezone* zone = icaltimezone_get_builtin_timezone(name.c_str() + at)) return zone;
    at = name.find('/', at);
    if (at != std::string::npos) ++at;
    if (at == std::string::npos) break;
  }
  return nullptr;
}

std::optional<DateValue> InYears(const icaltimetype& time) {
  if (time.year < 100 || time.year > 9999) return std::nullopt;
  const DateValue day = modDate::PackDate(time.year, time.month, time.day);
  return time.is_date != 0 ? day : day + modDate::PackTime(time.hour, time.minute, time.second);
}

std::time_t AsUtc(const icaltimetype& time) {
  std::tm utc{};
  utc.tm_year = time.year - 1900;
  utc.tm_mon = time.month - 1;
  utc.tm_mday = time.day;
  utc.tm_hour = time.hour;
  utc.tm_min = time.minute;
  utc.tm_sec = time.second;
  return timegm(&utc);
}

std::optional<DateValue> FromZone(icaltimetype time, const icaltimezone* zone) {
  if (time.year < 1900 || time.year > 2500) return InYears(time);  // no zone has rules for these
  const int offset = icaltimezone_get_utc_offset(const_cast<icaltimezone*>(zone), &time, nullptr);
  return ToLocalTime(AsUtc(time) - offset);
}

// Days, or seconds behind the "T"; 0 for what is no unit there.
long long UnitSize(char unit, bool inTime) {
  switch (unit) {
    case 'W':
      return inTime ? 0 : 7;
    case 'D':
      return inTime ? 0 : 1;
    case 'H':
      return inTime ? 3600 : 0;
    case 'M':
      return inTime ? 60 : 0;
    case 'S':
      return inTime ? 1 : 0;
    default:
      return 0;
  }
}

}  // namespace

bool IsInYears(DateValue value) {
  try {
    modDate::Unpack(value);
    return true;
  } catch (const ConversionError&) {
    return false;
  }
}

std::optional<EventTime> ReadEventTime(const ContentLines& document, const ContentLine& line) {
  icalerror_set_errors_are_fatal(0);
  const std::string value(line.value());
  // libical reads a time by its positions and looks no further.
  if (value.size() < 8 || value.size() > 16) return std::nullopt;
  const icaltimetype time = icaltime_from_string(value.c_str());
  if (icaltime_is_null_time(time) != 0 || icaltime_is_valid_time(time) == 0) return std::nullopt;
  if (time.month < 1 || time.month > 12 || time.day < 1 || time.day > 31) return std::nullopt;
  std::optional<DateValue> local;
  const std::string name = ParameterText(line, "TZID");
  if (time.is_date != 0) {
    local = InYears(time);
  } else if (icaltime_is_utc(time) != 0) {
    local = ToLocalTime(AsUtc(time));
  } else if (const icaltimezone* known = name.empty() ? nullptr : FindKnownZone(name)) {
    local = FromZone(time, known);
  } else if (const OwnZone own = FindOwnZone(document, name)) {
    local = FromZone(time, own.get());
  } else {
    local = InYears(time);
  }
  if (!local) return std::nullopt;
  return EventTime{*local, time.is_date != 0};
}

std::string WriteUtcTime(DateValue local) {
  const std::time_t moment = ToMoment(local);
  std::tm utc{};
  gmtime_r(&moment, &utc);
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d%02d%02dT%02d%02d%02dZ", utc.tm_year + 1900,
                utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec);
  return text.data();
}

std::string WriteDate(DateValue local) {
  const DateParts parts = modDate::Unpack(local);
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d%02d%02d", parts.year, parts.month, parts.day);
  return text.data();
}

std::optional<Duration> ReadDuration(std::string_view text) {
  constexpr long long kLongest = 1000LL * 366 * 86400;
  const int sign = text.starts_with('-') ? -1 : 1;
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  if (!text.starts_with('P') || text.size() < 3) return std::nullopt;
  Duration total;
  long long number = 0;
  bool digits = false, inTime = false;
  for (const char unit : text.substr(1)) {
    if (unit >= '0' && unit <= '9') {
      number = number * 10 + (unit - '0');
      digits = true;
      if (number > kLongest) return std::nullopt;
      continue;
    }
    if (unit == 'T' && !inTime && !digits) {
      inTime = true;
      continue;
    }
    const long long size = UnitSize(unit, inTime);
    if (size == 0 || !digits || number > kLongest / size) return std::nullopt;
    (inTime ? total.seconds : total.days) += sign * number * size;
    if (std::abs(total.days) > kLongest / 86400 || std::abs(total.seconds) > kLongest) {
      return std::nullopt;
    }
    number = 0;
    digits = false;
  }
  return digits ? std::nullopt : std::optional(total);
}

std::optional<DateValue> After(DateValue local, const Duration& duration) {
  const DateValue day = local + static_cast<double>(duration.days);
  if (!IsInYears(day)) return std::nullopt;
  return duration.seconds == 0 ? day : ToLocalTime(ToMoment(day) + duration.seconds);
}

long long SecondsBetween(DateValue from, DateValue to) { return ToMoment(to) - ToMoment(from); }

}  // namespace tessarin::outlook
