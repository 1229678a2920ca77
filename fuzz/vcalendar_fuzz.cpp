// Feeds any bytes to the calendar object's reader: the first byte is the count that the phone
// tells, the rest its text. What was read and can be written must be read again as it was.
#include <algorithm>
#include <cstdlib>

#include "codecs/CodePage.h"
#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "codecs/vCalendar.h"

namespace {

using namespace tessarin;

void Require(bool holds) {
  if (!holds) std::abort();
}

class FuzzClock : public Clock {
 public:
  DateValue Now() const override { return 0.0; }
  int StandardBiasMinutes() const override { return -330; }
};
const FuzzClock kClock;

// False when the text was refused in one of the two ways in which it may be.
bool Decodes(TextView text, std::vector<CalendarRecord>& records) {
  try {
    vcard::DecodeVCalendars(text, static_cast<std::int16_t>(records.size()), records, kClock);
  } catch (const BoundsError&) {
    return false;
  } catch (const ConversionError&) {
    return false;
  }
  return true;
}

// Escapes, line ends and shifts of UTF-7 need not come back.
bool IsPlain(const Text& text) { return text.find_first_of(u"=+\r\n") == Text::npos; }

bool IsWide(char16_t unit) { return unit > 0xFF; }

void CheckWayBack(CalendarRecord record) {
  const CalendarRecord before = record;
  std::string hex;
  try {
    hex = vcard::EncodeVCalendar(record, kClock);
  } catch (const ConversionError&) {
    return;
  }
  // The category goes out as two digits a unit, whatever its width: a wide one shifts what follows.
  const Text category = before.Category.Trimmed();
  if (!IsPlain(category) || std::ranges::any_of(category, IsWide)) return;
  if (!IsPlain(before.Summary.Trimmed()) || !IsPlain(before.Location.Trimmed())) return;
  const Bytes bytes = modHexStr::HexToBytes(hex);
  const Text object = modHexStr::BytesToStr(bytes, kUtf7);
  std::vector<CalendarRecord> again(1);
  Require(Decodes(object, again));
  Require(again[0].StartTime == before.StartTime && again[0].EndTime == before.EndTime);
  Require(again[0].AlarmTime == before.AlarmTime);
  Require(again[0].Summary == FixedText<100>(before.Summary.Trimmed()));
  Require(again[0].Location == FixedText<50>(before.Location.Trimmed()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  std::vector<CalendarRecord> records(data[0]);
  const Text text = FromUtf8({reinterpret_cast<const char*>(data) + 1, size - 1});
  Decodes(text, records);
  for (const CalendarRecord& record : records) CheckWayBack(record);
  return 0;
}
