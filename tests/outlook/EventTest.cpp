// iCalendar objects as appointments: what their times mean, and which bytes an edit changes.

#include "outlook/Event.h"

#include <gtest/gtest.h>

namespace tessarin::outlook {
namespace {

// The tests' own zone is Central European Time.
class EventTest : public testing::Test {
 protected:
  void SetUp() override { setenv("TZ", "Europe/Berlin", 1); }
  void TearDown() override { unsetenv("TZ"); }
};

constexpr char kOddZone[] =
    "BEGIN:VTIMEZONE\r\nTZID:Odd\r\n"
    "BEGIN:STANDARD\r\nDTSTART:19701025T030000\r\nTZOFFSETFROM:+0545\r\nTZOFFSETTO:+0545\r\n"
    "END:STANDARD\r\nEND:VTIMEZONE\r\n";

// Its summer time begins and ends on days of the month.
constexpr char kMonthDayZone[] =
    "BEGIN:VTIMEZONE\r\nTZID:Iran\r\n"
    "BEGIN:STANDARD\r\nDTSTART:20000921T000000\r\nRRULE:FREQ=YEARLY;BYMONTH=9;BYMONTHDAY=21\r\n"
    "TZOFFSETFROM:+0430\r\nTZOFFSETTO:+0330\r\nEND:STANDARD\r\n"
    "BEGIN:DAYLIGHT\r\nDTSTART:20000321T000000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=21\r\n"
    "TZOFFSETFROM:+0330\r\nTZOFFSETTO:+0430\r\nEND:DAYLIGHT\r\nEND:VTIMEZONE\r\n";
// A rule that nobody works out leaves the last change that is told.
constexpr char kDailyZone[] =
    "BEGIN:VTIMEZONE\r\nTZID:Daily\r\n"
    "BEGIN:STANDARD\r\nDTSTART:20000101T000000\r\nRRULE:FREQ=DAILY\r\nTZOFFSETFROM:+0300\r\n"
    "TZOFFSETTO:+0400\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";

std::string Object(const std::string& lines, const std::string& zones = "") {
  return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + zones + "BEGIN:VEVENT\r\nUID:u\r\n" + lines +
         "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

DateValue At(const char16_t* text) { return modDate::ParseDateText(text); }

std::string Replaced(std::string bytes, const std::string& from, const std::string& to) {
  const auto at = bytes.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? bytes : bytes.replace(at, from.size(), to);
}

TEST_F(EventTest, TimesAreReadAsTheyAreMeant) {
  struct Case {
    const char *lines, *zones;
    const char16_t *start, *end;
  };
  const Case cases[] = {
      {"DTSTART:20040615T120000Z\r\nDTEND:20040615T123000Z\r\n", "", u"15/06/2004 14:00:00",
       u"15/06/2004 14:30:00"},
      {"DTSTART:20040115T120000Z\r\nDURATION:PT1H30M\r\n", "", u"15/01/2004 13:00:00",
       u"15/01/2004 14:30:00"},
      {"DTSTART:20040615T120000\r\nDTEND:20040616T000000\r\n", "", u"15/06/2004 12:00:00",
       u"16/06/2004 00:00:00"},
      {"DTSTART;TZID=America/New_York:20040615T120000\r\n", "", u"15/06/2004 18:00:00",
       u"15/06/2004 18:00:00"},
      {"DTSTART;TZID=\"/example.org/Tz/America/New_York\":20040615T120000\r\n", "",
       u"15/06/2004 18:00:00", u"15/06/2004 18:00:00"},
      {"DTSTART;TZID=Odd:20040615T120000\r\nDTEND;TZID=Odd:20040615T130000\r\n", kOddZone,
       u"15/06/2004 08:15:00", u"15/06/2004 09:15:00"},
      {"DTSTART;TZID=Nowhere:20040615T120000\r\n", "", u"15/06/2004 12:00:00",
       u"15/06/2004 12:00:00"},
      {"DTSTART;TZID=Iran:20040615T120000\r\n", kMonthDayZone, u"15/06/2004 09:30:00",
       u"15/06/2004 09:30:00"},
      {"DTSTART;TZID=Daily:20040615T120000\r\n", kDailyZone, u"15/06/2004 10:00:00",
       u"15/06/2004 10:00:00"},
      // The clock goes forward on 28 March: a day by the calendar has 23 hours then.
      {"DTSTART:20040327T120000Z\r\nDURATION:P1D\r\n", "", u"27/03/2004 13:00:00",
       u"28/03/2004 13:00:00"},
      {"DTSTART:20040327T120000Z\r\nDURATION:PT24H\r\n", "", u"27/03/2004 13:00:00",
       u"28/03/2004 14:00:00"},
      {"DTSTART;VALUE=DATE:20040615\r\n", "", u"15/06/2004 00:00:00", u"16/06/2004 00:00:00"},
      {"DTSTART;VALUE=DATE:20041231\r\nDTEND;VALUE=DATE:20050102\r\n", "", u"31/12/2004 00:00:00",
       u"02/01/2005 00:00:00"},
      {"DTSTART;VALUE=DATE:20040615\r\nDURATION:P1W\r\n", "", u"15/06/2004 00:00:00",
       u"22/06/2004 00:00:00"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lines);
    const auto event = Event::Read(Object(c.lines, c.zones));
    ASSERT_TRUE(event);
    EXPECT_EQ(modDate::FormatDateText(event->fields().Start), c.start);
    EXPECT_EQ(modDate::FormatDateText(event->fields().End), c.end);
  }
}

TEST_F(EventTest, TheReminderIsTheFirstAlarmThatIsSeenOrHeard) {
  struct Case {
    const char* trigger;
    bool set;
    long long minutes;
  };
  const Case cases[] = {
      {"ACTION:DISPLAY\r\nTRIGGER:-PT15M\r\n", true, 15},
      {"ACTION:AUDIO\r\nTRIGGER:-P1DT1H\r\n", true, 1500},
      {"ACTION:DISPLAY\r\nTRIGGER;RELATED=END:-PT30M\r\n", true, -30},
      {"ACTION:DISPLAY\r\nTRIGGER;VALUE=DATE-TIME:20040615T113000Z\r\n", true, 30},
      {"ACTION:DISPLAY\r\nTRIGGER:-PT90S\r\n", true, 2},
      {"ACTION:EMAIL\r\nTRIGGER:-PT15M\r\n", false, 0},
      {"ACTION:DISPLAY\r\nTRIGGER:soon\r\n", false, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.trigger);
    const auto event = Event::Read(Object(
        std::string("DTSTART:20040615T120000Z\r\nDTEND:20040615T130000Z\r\nBEGIN:VALARM\r\n") +
        c.trigger + "END:VALARM\r\n"));
    ASSERT_TRUE(event);
    EXPECT_EQ(event->fields().ReminderSet, c.set);
    EXPECT_EQ(event->fields().ReminderMinutesBeforeStart, c.minutes);
  }
}

TEST_F(EventTest, AnEditChangesItsOwnLinesAndNoOtherByte) {
  const std::string foreign = Object(
      "DTSTART;X-A=1;TZID=Odd:20040615T120000\r\nDTEND;TZID=Odd:20040615T130000\r\n"
      "SUMMARY;LANGUAGE=en:Lunch\\, long\r\nCATEGORIES:Work,Food\r\nCATEGORIES:More\r\n"
      "DESCRIPTION:stays\r\nRRULE:FREQ=DAILY\r\nEXDATE:20040616T061500Z\r\n"
      "BEGIN:VALARM\r\nACTION:EMAIL\r\nTRIGGER:-PT1M\r\nEND:VALARM\r\n"
      "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT15M\r\nX-B:c\r\nEND:VALARM\r\n"
      "BEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER:-PT900S\r\nEND:VALARM\r\n"
      "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-P1D\r\nEND:VALARM\r\n"
      "END:VEVENT\r\nBEGIN:VEVENT\r\nUID:u\r\nRECURRENCE-ID:20040617T061500Z\r\n"
      "DTSTART:20040617T071500Z\r\n",
      kOddZone);
  ASSERT_TRUE(Event::Read(foreign));
  EXPECT_EQ(Event::Read(foreign)->fields().Categories, u"Work, Food, More");
  struct Edit {
    AppointmentChanges changes;
    std::vector<std::pair<std::string, std::string>> replaced;
  };
  std::vector<Edit> edits(8);
  edits[0].changes.Subject = u"Dinner; late";
  edits[0].replaced = {{"Lunch\\, long", "Dinner\\; late"}};
  edits[1].changes.Location = u"Rom";
  edits[1].replaced = {{"END:VEVENT", "LOCATION:Rom\r\nEND:VEVENT"}};
  edits[2].changes.Categories = u"MISCELLANEOUS";
  edits[2].replaced = {{"CATEGORIES:Work,Food\r\nCATEGORIES:More", "CATEGORIES:MISCELLANEOUS"}};
  edits[3].changes.End = At(u"15/06/2004 10:15:00");
  edits[3].replaced = {{"DTSTART;X-A=1;TZID=Odd:20040615T120000", "DTSTART;X-A=1:20040615T061500Z"},
                       {"DTEND;TZID=Odd:20040615T130000", "DTEND:20040615T081500Z"}};
  edits[4].changes.ReminderMinutesBeforeStart = 30;
  edits[4].replaced = {{"TRIGGER:-PT15M", "TRIGGER:-PT30M"}, {"TRIGGER:-PT900S", "TRIGGER:-PT30M"}};
  edits[5].changes.ReminderSet = false;
  edits[5].replaced = {
      {"BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT15M\r\nX-B:c\r\nEND:VALARM\r\n"
       "BEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER:-PT900S\r\nEND:VALARM\r\n"
       "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-P1D\r\nEND:VALARM\r\n",
       ""}};
  edits[6].changes.clearRecurrence = true;
  edits[6].replaced = {{"RRULE:FREQ=DAILY\r\nEXDATE:20040616T061500Z\r\n", ""},
                       {"BEGIN:VEVENT\r\nUID:u\r\nRECURRENCE-ID:20040617T061500Z\r\n"
                        "DTSTART:20040617T071500Z\r\nEND:VEVENT\r\n",
                        ""}};
  edits[7].changes.Subject = u"Lunch, long";
  edits[7].changes.Start = At(u"15/06/2004 08:15:00");
  for (const Edit& edit : edits) {
    std::string expected = foreign;
    for (const auto& [from, to] : edit.replaced) expected = Replaced(expected, from, to);
    Event event = *Event::Read(foreign);
    event.Apply(edit.changes);
    EXPECT_EQ(event.Bytes(), expected);
    ASSERT_TRUE(Event::Read(event.Bytes()));
    EXPECT_EQ(event.fields().ReminderSet, edit.changes.ReminderSet.value_or(true));
  }
}

// The clock goes forward in the night of 28 March: an alarm of the day before, at the same time by
// the clock, comes 23 hours before.
TEST_F(EventTest, RemindersGoByTheClockOnTheWall) {
  const auto read = [](const char* trigger) {
    return *Event::Read(Object(std::string("DTSTART:20040328T120000Z\r\nBEGIN:VALARM\r\n"
                                           "ACTION:DISPLAY\r\nTRIGGER:") +
                               trigger + "\r\nEND:VALARM\r\n"));
  };
  EXPECT_EQ(read("-P1D").fields().ReminderMinutesBeforeStart, 1440);
  EXPECT_EQ(read("-PT24H").fields().ReminderMinutesBeforeStart, 1500);
  Event event = read("-PT1M");
  AppointmentChanges changes;
  changes.ReminderMinutesBeforeStart = 1440;
  event.Apply(changes);
  EXPECT_NE(event.Bytes().find("TRIGGER:-PT1380M"), std::string::npos) << event.Bytes();
  EXPECT_EQ(event.fields().ReminderMinutesBeforeStart, 1440);
}

TEST_F(EventTest, AnOccurrenceAloneBecomesAnEventOfItsOwn) {
  const std::string lines = "DTSTART:20040615T120000Z\r\n";
  Event event = *Event::Read(Object("RECURRENCE-ID:20040614T120000Z\r\n" + lines));
  AppointmentChanges changes;
  changes.clearRecurrence = true;
  event.Apply(changes);
  EXPECT_EQ(event.Bytes(), Object(lines));
}

TEST_F(EventTest, WholeDaysStayWholeDaysAndDurationsGiveWay) {
  const std::string day = Object("DTSTART;VALUE=DATE:20040615\r\nDURATION:P1D\r\n");
  Event moved = *Event::Read(day);
  AppointmentChanges changes;
  changes.Start = At(u"17/06/2004");
  changes.End = At(u"19/06/2004");
  moved.Apply(changes);
  EXPECT_EQ(moved.Bytes(), Object("DTSTART;VALUE=DATE:20040617\r\nDTEND;VALUE=DATE:20040619\r\n"));
  changes.Start = At(u"17/06/2004 09:00:00");
  Event timed = *Event::Read(day);
  timed.Apply(changes);
  EXPECT_EQ(timed.Bytes(), Object("DTSTART:20040617T070000Z\r\nDTEND:20040618T220000Z\r\n"));
}

TEST_F(EventTest, ANewEventHoldsWhatItWasGiven) {
  Event event = Event::New("id", At(u"15/06/2004 11:50:10"));
  EXPECT_EQ(event.fields().Start, At(u"15/06/2004 12:00:00"));
  AppointmentChanges changes;
  changes.Subject = u"Line 1\r\nLine 2";
  changes.Start = At(u"30/03/2004 02:30:00");
  changes.End = At(u"30/03/2004 03:30:00");
  changes.ReminderSet = true;
  changes.ReminderMinutesBeforeStart = 20;
  changes.playSound = true;
  event.Apply(changes);
  EXPECT_EQ(event.Bytes(),
            "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Tessarin//EN\r\nBEGIN:VEVENT\r\nUID:id\r\n"
            "DTSTAMP:20040615T095010Z\r\nDTSTART:20040330T003000Z\r\nDTEND:20040330T013000Z\r\n"
            "SUMMARY:Line 1\\nLine 2\r\n"
            "BEGIN:VALARM\r\nACTION:DISPLAY\r\nTRIGGER:-PT20M\r\nDESCRIPTION:Line 1\\nLine 2\r\n"
            "END:VALARM\r\nBEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER:-PT20M\r\nEND:VALARM\r\n"
            "END:VEVENT\r\nEND:VCALENDAR\r\n");
}

TEST_F(EventTest, TodosAreNoEventsAndDamagedFilesAreRefused) {
  const std::string todo =
      "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VTODO\nUID:u\nSUMMARY:x\nEND:VTODO\nEND:VCALENDAR\n";
  EXPECT_FALSE(Event::Read(todo)->IsItem());
  const std::string broken[] = {
      Object(""),
      Object("DTSTART:yesterday\r\n"),
      Object("DTSTART:20041315T120000Z\r\n"),
      Object("DTSTART:00010101T000000Z\r\n"),
      Object("DTSTART:20040615T120000Z\r\nDURATION:P999999999W\r\n"),
      Object("DTSTART:20040615T120000Z\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nUID:other\r\n"
             "DTSTART:20040615T120000Z\r\n"),
      Object("DTSTART:20040615T120000Z\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nUID:u\r\n"
             "DTSTART:20040616T120000Z\r\n"),
      Replaced(Object("DTSTART:20040615T120000Z\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\n"
                      "RECURRENCE-ID:20040616T120000Z\r\nDTSTART:20040616T120000Z\r\n"),
               "UID:u\r\n", ""),
      Replaced(Object("DTSTART:20040615T120000Z\r\n"), "END:VEVENT\r\n", ""),
      todo + todo,
      "BEGIN:VCARD\nVERSION:3.0\nEND:VCARD\n",
  };
  for (const std::string& bytes : broken) EXPECT_FALSE(Event::Read(bytes)) << bytes;
}

}  // namespace
}  // namespace tessarin::outlook
