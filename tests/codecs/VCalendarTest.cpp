#include "codecs/vCalendar.h"

#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "codecs/modHexStr.h"

namespace tessarin {
namespace {

class ZoneClock : public Clock {
 public:
  explicit ZoneClock(int bias) : bias_(bias) {}
  DateValue Now() const override { return 0.0; }
  int StandardBiasMinutes() const override { return bias_; }

 private:
  int bias_;
};
const ZoneClock kUtc(0);

// Lines in the wrapper of one entry.
Text Wrapped(TextView kind, const std::vector<Text>& lines) {
  Text text = u"BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:" + Text(kind) + u"\r\n";
  for (const Text& line : lines) text += line + u"\r\n";
  return text + u"END:" + Text(kind) + u"\r\nEND:VCALENDAR\r\n";
}
Text Event(const std::vector<Text>& lines) { return Wrapped(u"VEVENT", lines); }

std::vector<CalendarRecord> Decode(const Text& text, std::int16_t count = 1,
                                   const Clock& clock = kUtc) {
  std::vector<CalendarRecord> records(static_cast<std::size_t>(count));
  vcard::DecodeVCalendars(text, count, records, clock);
  return records;
}

const CalendarRecord kMeeting = [] {
  CalendarRecord record;
  record.StartTime = u"15/06/2004 10:00:00";
  record.EndTime = u"15/06/2004 11:30:00";
  return record;
}();

Text Encode(CalendarRecord record, const Clock& clock = kUtc) {
  return modHexStr::Hex2ToStr(vcard::EncodeVCalendar(record, clock));
}

TEST(VCalendarReader, ReadsEachEntryFromItsOwnWrapper) {
  const Text text =
      Event({u"DTSTART:20040615T100000Z", u"DTEND:20040615T113000Z", u"AALARM:20040615T094500Z",
             u"CATEGORIES:TRAVEL", u"SUMMARY:Train: 10:00", u"LOCATION;CHARSET=UTF-8:Gleis 7",
             u"X-IRMC-LUID:000100000001"}) +
      Wrapped(u"VTODO", {u"SUMMARY:Milk", u"X-IRMC-LUID:000100000002"}) +
      Event({u"DTSTART:20040229T000000", u"DTEND:20040229T235959", u"SUMMARY:Leap day"});
  for (const auto& [bias, start, local] :
       {std::tuple(0, u"15/06/2004 10:00:00", u"15/06/2004 09:45:00"),
        {-60, u"15/06/2004 11:00:00", u"15/06/2004 10:45:00"},  // no summer time in June
        {300, u"15/06/2004 05:00:00", u"15/06/2004 04:45:00"},
        {-270, u"15/06/2004 14:00:00", u"15/06/2004 13:45:00"},     // 4.5 hours become 4
        {210, u"15/06/2004 06:00:00", u"15/06/2004 05:45:00"},      // and 3.5 become 4
        {-330, u"15/06/2004 16:00:00", u"15/06/2004 15:45:00"}}) {  // half of 11 hours: to even
    const ZoneClock clock(bias);
    const auto records = Decode(text, 3, clock);
    EXPECT_EQ(records[0].StartTime.Trimmed(), start) << bias;
    EXPECT_EQ(records[0].AlarmTime.Trimmed(), local) << bias;
    EXPECT_EQ(records[2].StartTime.Trimmed(), u"29/02/2004 00:00:00") << "local as it stands";
    EXPECT_EQ(records[2].EndTime.Trimmed(), u"29/02/2004 23:59:59");
    CalendarRecord again = records[0];
    EXPECT_NE(Encode(again, clock).find(u"DTSTART:20040615T100000Z\r\n"), Text::npos) << bias;
  }
  const auto records = Decode(text, 3);
  EXPECT_EQ(records[0].EntryType, u"EVENT");
  EXPECT_EQ(records[0].Summary.Trimmed(), u"Train: 10:00");
  EXPECT_EQ(records[0].Location.Trimmed(), u"Gleis 7");
  EXPECT_EQ(records[0].Category.Trimmed(), u"TRAVEL");
  EXPECT_EQ(records[0].Luid.Trimmed(), u"000100000001");
  EXPECT_EQ(records[0].Spare, 0);
  EXPECT_EQ(records[1].EntryType, u"") << "a task";
  EXPECT_EQ(records[1].Summary.Trimmed(), u"Milk");
  EXPECT_EQ(records[1].Luid.Trimmed(), u"000100000002");
}

TEST(VCalendarReader, TakesExactNamesOnly) {
  const auto record = Decode(
      Event({u"DTSTART;TZID=CET:20040615T100000", u"dtend:20040615T100000Z",
             u"AALARM;TYPE=X-EPOCSOUND:20040615T094500Z", u"", u"CATEGORIES;CHARSET=UTF-8:DATE",
             u"SUMMARYNESS", u"no colon", u"LOCATION;LANGUAGE=de:Ort"}))[0];
  for (const auto& field : {record.StartTime, record.EndTime, record.AlarmTime, record.Category}) {
    EXPECT_EQ(field.Trimmed(), u"");
  }
  EXPECT_EQ(record.Summary.Trimmed(), u"");
  EXPECT_EQ(record.Location.Trimmed(), u"Ort");
}

TEST(VCalendarReader, AReusedElementKeepsWhatIsNotCleared) {
  std::vector<CalendarRecord> records(1);
  const auto decode = [&](const Text& text) {
    vcard::DecodeVCalendars(text, 1, records, kUtc);
    return records[0];
  };
  decode(Event({u"DTSTART:20040615T100000Z", u"AALARM:20040615T100000Z", u"CATEGORIES:DATE",
                u"SUMMARY:a", u"LOCATION:b", u"X-IRMC-LUID:000100000001"}));
  const auto second = decode(Wrapped(u"VTODO", {u"DTEND:20040616T100000Z"}));
  EXPECT_EQ(second.StartTime.Trimmed(), u"15/06/2004 10:00:00");
  EXPECT_EQ(second.Category.Trimmed(), u"DATE");
  EXPECT_EQ(second.Luid.Trimmed(), u"000100000001");
  EXPECT_EQ(second.AlarmTime.Trimmed() + second.Summary.Trimmed() + second.Location.Trimmed(), u"");
  EXPECT_EQ(second.EntryType, u"");
}

TEST(VCalendarReader, QuotedPrintableJoinsLinesAndLosesBlanksAtTheJoins) {
  const struct {
    std::vector<Text> lines;
    const char16_t* summary;
  } cases[] = {
      {{u"=C3=", u"=A9"}, u"é"},
      {{u"=C3=", u"=A9", u"more"}, u"Êore"},  // no "=" at the end: the digit "9" gets lost
      {{u"half=", u"end:X"}, u"half"},        // a ":" ends the value early
      {{u"half=", u"end;X"}, u"half"},
      {{u"A=C3=A9 B"}, u"AéB"},
      {{u"one=0D=0A two"}, u"one\r\ntwo"},
      {{u"a | b=20| c"}, u"abc"},
      {{u"1+1==2"}, u"1+1\x02"},  // "==" is "=", and the "2" half an escape
      {{u"=E6=9D=8E =F0=9F=98=80!"}, u"李!"},
      {{u"x=4"}, u"x\x04"},
      {{u"x="}, u"x"},
      {{u" plain "}, u"plain"},
      {{u""}, u""},
  };
  for (const auto& c : cases) {
    std::vector<Text> lines = c.lines;
    lines[0] = u"SUMMARY;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:" + lines[0];
    lines.push_back(u"LOCATION:here");
    const auto record = Decode(Event(lines))[0];
    EXPECT_EQ(ToUtf8(record.Summary.Trimmed()), ToUtf8(c.summary)) << ToUtf8(c.lines[0]);
    EXPECT_EQ(record.Location.Trimmed(), u"here") << ToUtf8(c.lines[0]);
  }
}

TEST(VCalendarReader, FaultsLeaveTheEntriesBefore) {
  const Text good = Event({u"SUMMARY:good"});
  const std::vector<CalendarRecord> fresh(2);
  const auto fill = [&](const Text& rest, std::vector<CalendarRecord>& records) {
    vcard::DecodeVCalendars(good + rest, 2, records, kUtc);
  };
  for (const auto& rest : {Text(), Text(u"BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nX:y"),
                           Event({u"DTSTART"}), Event({u"CATEGORIES"})}) {
    auto records = fresh;
    EXPECT_THROW(fill(rest, records), BoundsError) << ToUtf8(rest);
    EXPECT_EQ(records[0].Summary.Trimmed(), u"good");
  }
  for (const auto* stamp : {u"20040615", u"", u"2004-06-15T10:00", u"20040615T990000Z"}) {
    auto records = fresh;
    try {
      fill(Event({u"DTSTART:" + Text(stamp), u"SUMMARY:bad"}), records);
      ADD_FAILURE() << ToUtf8(stamp);
    } catch (const vcard::EntryTimeError& fault) {
      EXPECT_EQ(fault.entry(), 1u);
    }
    EXPECT_EQ(records[0].Summary.Trimmed(), u"good");
    EXPECT_EQ(records[1].Summary.Trimmed(), u"bad");
  }
  std::vector<CalendarRecord> tooFew(1);
  EXPECT_THROW(fill(good, tooFew), BoundsError);
  EXPECT_NO_THROW(vcard::DecodeVCalendars(u"", 0, tooFew, kUtc));
}

TEST(VCalendarWriter, WritesAnEventWithItsOrderOfLines) {
  CalendarRecord record = kMeeting;
  record.AlarmTime = u"15/06/2004 09:45";
  record.Summary = u"Zahnärztin = 10:00";
  record.Location = u" Köln ";
  record.Category = u"APPOINTMENT";
  record.Luid = u"000100000001";
  EXPECT_EQ(Encode(record, ZoneClock(-60)),
            u"BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n"
            u"DTSTART:20040615T090000Z\r\nDTEND:20040615T103000Z\r\nAALARM:20040615T084500Z\r\n"
            u"SUMMARY;CHARSET=ISO-8859-1:Zahnärztin = 10:00\r\n"
            u"LOCATION;CHARSET=ISO-8859-1:Köln\r\n"
            u"CATEGORIES;CHARSET=ISO-8859-1:APPOINTMENT\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
  EXPECT_EQ(Encode(kMeeting),
            u"BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n"
            u"DTSTART:20040615T100000Z\r\nDTEND:20040615T113000Z\r\n"
            u"CATEGORIES;CHARSET=ISO-8859-1:\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
  EXPECT_THROW(Encode(CalendarRecord()), ConversionError);
  record.AlarmTime = u"soon";
  EXPECT_THROW(Encode(record), ConversionError);
}

TEST(VCalendarWriter, EscapesLineBreaksAlone) {
  const struct {
    const char16_t* summary;
    const char16_t* line;
  } cases[] = {
      {u"a\nb\n", u"CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:a=0Ab=0A"},
      {u"a\r\nb\nc", u"CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:a=0Ab\nc"},
      {u"1=1\r\n", u"CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:1=1=0A"},
      {u"a\rb", u"CHARSET=ISO-8859-1:a\rb"},
      {u"李", u"CHARSET=UTF-7:+Z04-"},
      {u"李+\r\n李", u"CHARSET=UTF-7;ENCODING=QUOTED-PRINTABLE:+Z04AKw-=0A+Z04-"},
      {u"李\nb", u"CHARSET=UTF-7;ENCODING=QUOTED-PRINTABLE:+Z04-=0Ab"},
  };
  for (const auto& c : cases) {
    CalendarRecord record = kMeeting;
    record.Summary = c.summary;
    const Text object = Encode(record);
    const auto start = object.find(u"SUMMARY;") + 8;
    const auto length = object.find(u"\r\nCATEGORIES", start) - start;
    EXPECT_EQ(ToUtf8(object.substr(start, length)), ToUtf8(c.line));
  }
}

TEST(VCalendarWriter, ASummaryAtTheWidthIsCutByItsEscapes) {
  CalendarRecord record = kMeeting;
  record.Summary = u"\n" + Text(97, u'x') + u"yz";
  const Text kept = u"=0A" + Text(97, u'x');
  EXPECT_NE(modHexStr::Hex2ToStr(vcard::EncodeVCalendar(record, kUtc)).find(u":" + kept + u"\r\n"),
            Text::npos);
  EXPECT_EQ(record.Summary.Value(), kept);
  record.Summary = u"李\n" + Text(98, u'x');
  vcard::EncodeVCalendar(record, kUtc);
  EXPECT_EQ(record.Summary.Value(), u"李\n" + Text(98, u'x')) << "UTF-7 leaves the field alone";
}

}  // namespace
}  // namespace tessarin
