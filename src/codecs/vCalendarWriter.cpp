// Writing of vCalendar.h.
#include <algorithm>

#include "codecs/CodePage.h"
#include "codecs/modHexStr.h"
#include "codecs/vCalendar.h"
#include "codecs/vcardStamp.h"

namespace tessarin::vcard {

namespace {

using modHexStr::StrToHex2;

constexpr char16_t kLineEnd[] = u"\r\n";
constexpr char16_t kLineFeed[] = u"\n";
constexpr char16_t kEscapedBreak[] = u"=0A";
constexpr char16_t kQuotedPrintable[] = u";ENCODING=QUOTED-PRINTABLE:";

std::string Line(TextView text) { return StrToHex2(Text(text) + kLineEnd); }

bool IsSingleByte(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= 0xFF; });
}

// What ends the lines of a text; empty when it has one line only.
TextView BreakOf(TextView text) {
  if (text.find(kLineEnd) != TextView::npos) return kLineEnd;
  return text.find(kLineFeed) != TextView::npos ? kLineFeed : u"";
}

std::string Utf7Hex(TextView text) {
  return modHexStr::BytesToHex(modHexStr::StrToBytes(text, kUtf7));
}

// UTF-7 is made of bytes below 0x80, so a break's digits cannot be found across two bytes.
std::string WithEscapedBreaks(const std::string& hex, TextView lineBreak) {
  const Text digits = FromLatin1(hex);
  return ToUtf8(
      Replace(digits, FromLatin1(Utf7Hex(lineBreak)), FromLatin1(StrToHex2(kEscapedBreak))));
}

// SUMMARY or LOCATION, nothing when it is empty. Line breaks alone are escaped, since the phone
// takes an "=" of the text as it stands.
template <std::size_t N>
std::string Property(const Text& name, FixedText<N>& field) {
  const Text value = field.Trimmed();
  if (value.empty()) return {};
  const TextView lineBreak = BreakOf(value);
  const Text separator = lineBreak.empty() ? u":" : kQuotedPrintable;
  if (IsSingleByte(value)) {
    field = Replace(value, lineBreak, kEscapedBreak);
    return StrToHex2(name + u"CHARSET=ISO-8859-1" + separator) + Line(field.Trimmed());
  }
  const std::string utf7 = Utf7Hex(value);
  return StrToHex2(name + u"CHARSET=UTF-7" + separator) +
         (lineBreak.empty() ? utf7 : WithEscapedBreaks(utf7, lineBreak)) + StrToHex2(kLineEnd);
}

template <std::size_t N>
std::string Time(const Text& name, const FixedText<N>& field, const Clock& clock) {
  return Line(name + u":" + LocalTextToStamp(field.Trimmed(), clock));
}

}  // namespace

std::string EncodeVCalendar(CalendarRecord& record, const Clock& clock) {
  std::string hex = Line(u"BEGIN:VCALENDAR") + Line(u"VERSION:1.0") + Line(u"BEGIN:VEVENT");
  hex += Time(u"DTSTART", record.StartTime, clock) + Time(u"DTEND", record.EndTime, clock);
  if (!record.AlarmTime.Trimmed().empty()) hex += Time(u"AALARM", record.AlarmTime, clock);
  hex += Property(u"SUMMARY;", record.Summary) + Property(u"LOCATION;", record.Location);
  hex += Line(u"CATEGORIES;CHARSET=ISO-8859-1:" + record.Category.Trimmed());
  return hex + Line(u"END:VEVENT") + Line(u"END:VCALENDAR");
}

}  // namespace tessarin::vcard
