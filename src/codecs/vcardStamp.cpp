#include "codecs/vcardStamp.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "codecs/Faults.h"
#include "codecs/Numbers.h"

namespace tessarin::vcard {

namespace {

// `length` units from `at` on as a number; what lies behind the end does not read as one.
int NumberAt(TextView stamp, std::size_t at, std::size_t length) {
  return ReadNumber(stamp.substr(std::min(at, stamp.size()), length));
}

DateValue HoursToDays(double hours) { return hours / 24.0; }

}  // namespace

Text StampToLocalText(TextView stamp, const Clock& clock) {
  DateValue value =
      modDate::PackDate(NumberAt(stamp, 0, 4), NumberAt(stamp, 4, 2), NumberAt(stamp, 6, 2));
  const DateValue time =
      modDate::PackTime(NumberAt(stamp, 9, 2), NumberAt(stamp, 11, 2), NumberAt(stamp, 13, 2));
  if (time < 0.0 || time >= 1.0) throw ConversionError();
  value += time;
  if (stamp.find_first_of(u"Zz") != TextView::npos) {
    value += HoursToDays(RoundHalfToEven(-clock.StandardBiasMinutes() / 60.0));
  }
  return modDate::FormatDateText(value);
}

Text LocalTextToStamp(TextView text, const Clock& clock) {
  const DateParts parts =
      modDate::Unpack(modDate::ReadSystemDate(text) +
                      HoursToDays(RoundHalfToEven(clock.StandardBiasMinutes() / 60.0)));
  std::array<char, 64> stamp{};
  std::snprintf(stamp.data(), stamp.size(), "%04d%02d%02dT%02d%02d%02dZ", parts.year, parts.month,
                parts.day, parts.hour, parts.minute, parts.second);
  return FromLatin1(stamp.data());
}

}  // namespace tessarin::vcard
