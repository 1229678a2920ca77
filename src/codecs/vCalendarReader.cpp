// Reading of vCalendar.h.
#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "codecs/vCalendar.h"
#include "codecs/vcardStamp.h"

namespace tessarin::vcard {

namespace {

constexpr char16_t kLineEnd[] = u"\r\n";
// "BEGIN:VCALENDAR" and "VERSION:1.0" in front of an entry, and behind it its END line and
// "END:VCALENDAR": none of them is looked at.
constexpr std::size_t kLinesBefore = 2;
constexpr std::size_t kLinesBetween = 4;

const Text& LineAt(const std::vector<Text>& lines, std::size_t index) {
  if (index >= lines.size()) throw BoundsError();
  return lines[index];
}

bool IsEndOfEntry(TextView line) { return line == u"END:VEVENT" || line == u"END:VTODO"; }

// Escapes ("=C3=A9") and the plain text between them, in order.
struct Run {
  bool isHex;
  Text text;
};

std::vector<Run> RunsOf(TextView value) {
  std::vector<Run> runs;
  const auto add = [&runs](bool isHex, TextView text) {
    if (runs.empty() || runs.back().isHex != isHex) runs.push_back({isHex, {}});
    runs.back().text.append(text);
  };
  while (!value.empty()) {
    const bool isHex = value.front() == u'=';
    if (isHex) value.remove_prefix(1);
    const auto length = std::min(isHex ? 2 : value.find(u'='), value.size());
    add(isHex, value.substr(0, length));
    value.remove_prefix(length);
  }
  return runs;
}

std::string AsDigits(TextView text) {
  std::string digits;
  for (const char16_t unit : text) digits += unit < 0x80 ? static_cast<char>(unit) : '?';
  return digits;
}

// One entry, from its BEGIN line on.
class EntryReader {
 public:
  EntryReader(const std::vector<Text>& lines, std::size_t& index, const Clock& clock)
      : lines_(lines), index_(index), clock_(clock) {}

  void Read(CalendarRecord& record) {
    record.Summary = u"";
    record.Location = u"";
    record.AlarmTime = u"";
    // Tasks are told from events by having no type.
    stamps_.clear();
    record.EntryType = LineAt(lines_, index_) == u"BEGIN:VEVENT" ? u"EVENT" : u"";
    do {
      ++index_;
      if (!LineAt(lines_, index_).empty()) ReadProperty(record);
      // A value may have gone on in further lines.
    } while (!IsEndOfEntry(LineAt(lines_, index_ + 1)));
    ++index_;
    // Times come last, so that an entry whose time does not read can be called by its name.
    for (const auto& [field, stamp] : stamps_) *field = StampToLocalText(stamp, clock_);
  }

 private:
  void ReadProperty(CalendarRecord& record) {
    const auto parts = Split(LineAt(lines_, index_), u":");
    const Text& name = parts[0];
    if (name == u"DTSTART") Keep(record.StartTime, parts);
    if (name == u"DTEND") Keep(record.EndTime, parts);
    if (name == u"AALARM") Keep(record.AlarmTime, parts);
    if (name == u"CATEGORIES") record.Category = LineAt(parts, 1);
    if (name == u"X-IRMC-LUID") record.Luid = LineAt(parts, 1);
    if (name.starts_with(u"SUMMARY")) record.Summary = Words(name);
    if (name.starts_with(u"LOCATION")) record.Location = Words(name);
  }

  void Keep(FixedText<20>& field, const std::vector<Text>& parts) {
    stamps_.emplace_back(&field, LineAt(parts, 1));
  }

  // What stands behind the name; the CHARSET is not looked at, for the whole calendar came decoded.
  Text Words(TextView name) {
    const Text& line = LineAt(lines_, index_);
    Text value = line.substr(std::min(name.size() + 1, line.size()));
    if (name.find(u"ENCODING=QUOTED-PRINTABLE") == TextView::npos) return value;
    return TrimBlanks(DecodeCalendarText(std::move(value), lines_, index_));
  }

  const std::vector<Text>& lines_;
  std::size_t& index_;
  const Clock& clock_;
  std::vector<std::pair<FixedText<20>*, Text>> stamps_;
};

}  // namespace

void DecodeVCalendars(TextView text, std::int16_t count, std::vector<CalendarRecord>& records,
                      const Clock& clock) {
  const auto lines = Split(text, kLineEnd);
  std::size_t index = kLinesBefore;
  EntryReader reader(lines, index, clock);
  for (std::int16_t i = 0; i < count; ++i) {
    if (static_cast<std::size_t>(i) >= records.size()) throw BoundsError();
    try {
      reader.Read(records[static_cast<std::size_t>(i)]);
    } catch (const ConversionError&) {
      throw EntryTimeError(static_cast<std::size_t>(i));
    }
    index += kLinesBetween;
  }
}

Text DecodeCalendarText(Text value, const std::vector<Text>& lines, std::size_t& index) {
  while (LineAt(lines, index + 1).find_first_of(u";:") == Text::npos) {
    if (!value.empty()) value.pop_back();
    value += lines[++index];
  }
  Text result;
  for (const Run& run : RunsOf(Replace(value, u"==", u"="))) {
    const Text text = Replace(Replace(run.text, u"\r", u""), u"\n", u"");
    for (const Text& piece : Split(text, u"|")) {
      result += TrimBlanks(run.isHex ? modHexStr::Utf8HexToStr(AsDigits(piece)) : piece);
    }
  }
  return result;
}

}  // namespace tessarin::vcard
