#include <array>
#include <map>
#include <set>

#include "phonesim/ContentLine.h"
#include "phonesim/SampleCalendar.h"
#include "tests/phonesim/IrmcBench.h"

namespace phonesim {
namespace {

const std::string kHead = "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\n";
const std::string kTail = "END:VEVENT\r\nEND:VCALENDAR\r\n";
const std::string kTimes = "DTSTART:20040229T083000Z\r\nDTEND:20040229T093000Z\r\n";

class CalendarTest : public IrmcBench {
 protected:
  void Fill(const std::vector<Fields>& events) {
    phone.GetMemory().With([&](Books& books) { books.events.Fill(events); });
  }
  std::vector<Book::Entry> Events() {
    return phone.GetMemory().With([](Books& books) { return books.events.Entries(); });
  }
};

TEST_F(CalendarTest, GivesEachEntryOutInItsOwnWrapper) {
  Fill({{{"kind", "EVENT"},
         {"start", "20040229T083000Z"},
         {"end", "20040229T093000Z"},
         {"alarm", "20040229T080000Z"},
         {"summary", "Tea: 4+1; cake"},
         {"location", "é\nb"},
         {"category", "DATE"}},
        {{"kind", "TASK"}, {"due", "20040301T170000"}, {"summary", "a"}, {"status", "COMPLETED"}}});
  ConnectSync();
  EXPECT_EQ(Download("telecom/cal.vcs"),
            kHead + kTimes +
                "SUMMARY:Tea: 4+-1; cake\r\n"
                "LOCATION;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=0D=0A=62\r\n"
                "AALARM:20040229T080000Z\r\nCATEGORIES:DATE\r\nX-IRMC-LUID:000200000001\r\n" +
                kTail +
                "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VTODO\r\nDUE:20040301T170000\r\n"
                "SUMMARY:a\r\nSTATUS:COMPLETED\r\nX-IRMC-LUID:000200000002\r\nEND:VTODO\r\n"
                "END:VCALENDAR\r\n");
  EXPECT_EQ(
      Download("telecom/cal/luid/0.log"),
      "Total-Records:2\r\nMaximum-Records:300\r\nIEL:8\r\nHD:YES\r\nSAT:CC\r\nDID:0C01\r\n*\r\n");
  ExpectNoReports();
}

TEST_F(CalendarTest, ReadsWhatAClientWrites) {
  const Fields base = {{"kind", "EVENT"},
                       {"start", "20040229T083000Z"},
                       {"end", "20040229T093000Z"},
                       {"category", "TRAVEL"}};
  const std::array<std::pair<std::string, Fields>, 5> entries = {{
      {"CATEGORIES;CHARSET=ISO-8859-1:TRAVEL\r\n", {}},
      {"AALARM:20040229T080000Z\r\nSUMMARY;CHARSET=ISO-8859-1:\xDC"
       "ber: uns\r\n"
       "CATEGORIES;CHARSET=ISO-8859-1:TRAVEL\r\n",
       {{"alarm", "20040229T080000Z"}, {"summary", "Über: uns"}}},
      {"SUMMARY;CHARSET=ISO-8859-1;ENCODING=QUOTED-PRINTABLE:a=0Ab\r\nCATEGORIES:TRAVEL\r\n",
       {{"summary", "a\nb"}}},
      {"SUMMARY;CHARSET=UTF-7;ENCODING=QUOTED-PRINTABLE:+ZRc-=0A+ZRc-\r\nCATEGORIES:TRAVEL\r\n",
       {{"summary", "\u6517\n\u6517"}}},
      {"LOCATION;CHARSET=UTF-7:+ZRc\r\nCATEGORIES;CHARSET=ISO-8859-1:Sonstiges\r\n",
       {{"location", "\u6517"}, {"category", "MISCELLANEOUS"}}},
  }};
  ConnectSync();
  for (const auto& [lines, fields] : entries) {
    const std::string reply = Put("telecom/cal/luid/.vcs", kHead + kTimes + lines + kTail);
    ASSERT_EQ(reply.substr(0, 2), "A0") << lines;
    Fields wanted = fields;
    wanted.insert(base.begin(), base.end());
    EXPECT_EQ(Events().back().fields, wanted) << lines;
    EXPECT_EQ(reply.substr(24, 35), ToHex(ToBytes(Events().back().luid)));
  }
  EXPECT_EQ(Delete("telecom/cal/luid/000200000002.vcs").substr(0, 2), "A0");
  EXPECT_EQ(Talk("82 0052 01 0047" + NameDigits("telecom/cal/luid/000200000003.vcs") +
                 "4C 0008 4C00051200")
                .substr(0, 2),
            "A0");
  EXPECT_EQ(Events().size(), 3U);
  EXPECT_EQ(Download("telecom/cal/luid/5.log").substr(71),
            "H:6::000200000002\r\nH:7::000200000003\r\n");
  ExpectNoReports();
}

TEST_F(CalendarTest, ReportsWhatIsNoEntry) {
  const std::array<std::pair<std::string, const char*>, 6> objects = {{
      {"BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\n" + kTimes + kTail,
       "object is not framed by BEGIN:VCALENDAR;VERSION:1.0;BEGIN:VEVENT and "
       "END:VEVENT;END:VCALENDAR"},
      {kHead + kTail, "event without DTSTART"},
      {kHead + "DTSTART:20030229T083000Z\r\n" + kTail, "DTSTART is no time stamp"},
      {kHead + "DTSTART:20040229T240000Z\r\n" + kTail, "DTSTART is no time stamp"},
      {kHead + kTimes + "AALARM:\r\n" + kTail, "AALARM is no time stamp"},
      {kHead + kTimes + kTimes + kTail, "a second DTSTART"},
  }};
  ConnectSync();
  for (const auto& [object, report] : objects) {
    EXPECT_EQ(Put("telecom/cal/luid/.vcs", object), "C0 00 03") << object;
    ASSERT_EQ(reports.Count(), 1U) << object;
    EXPECT_EQ(reports.All()[0].substr(0, reports.All()[0].rfind(':')), report);
    reports.Clear();
  }
  EXPECT_TRUE(Events().empty());
}

TEST(SampleCalendar, HasWhatIsWorthLookingAt) {
  for (const int year : {2023, 2024, 2026, 2033}) {
    const std::vector<Fields> entries = MakeSampleCalendar(year);
    EXPECT_EQ(entries.size(), 150U);
    std::map<std::string, int> categories;
    std::set<std::string> years;
    int leapDays = 0;
    int tasks = 0;
    for (const Fields& entry : entries) {
      ++categories[Field(entry, "category")];
      tasks += Field(entry, "kind") == "TASK" ? 1 : 0;
      const std::string date = Field(entry, "start").substr(0, 8);
      if (!date.empty()) years.insert(date.substr(0, 4));
      leapDays += date.size() == 8 && date.substr(4) == "0229" ? 1 : 0;
    }
    EXPECT_EQ(categories.size(), 6U);
    EXPECT_EQ(tasks, 8);
    EXPECT_GE(leapDays, 1);
    EXPECT_TRUE(years.contains(std::to_string(year - 1)) &&
                years.contains(std::to_string(year + 1)));
  }
}

}  // namespace
}  // namespace phonesim
