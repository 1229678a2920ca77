#include <algorithm>

#include "codecs/ListFile.h"
#include "core/PageTable.h"
#include "phonesim/SampleCalendar.h"
#include "tests/endtoend/EndToEnd.h"

namespace tessarin {
namespace {

using phonesim::Fields;

Fields Event(const char* start, const char* end, const char* summary) {
  return {{"kind", "EVENT"}, {"start", start}, {"end", end}, {"summary", summary}};
}

// The zone of these tests is that of the stamps.
struct Greenwich {
  Greenwich() { Set("UTC0"); }
  ~Greenwich() { before.empty() ? Set(nullptr) : Set(before.c_str()); }
  static void Set(const char* zone) {
    zone == nullptr ? ::unsetenv("TZ") : ::setenv("TZ", zone, 1);
    ::tzset();
  }
  const std::string before = std::getenv("TZ") == nullptr ? "" : std::getenv("TZ");
};

// "20040615T093000Z" as "15/06/2004 09:30:00"; empty text as it is.
Text LocalText(const std::string& stamp) {
  if (stamp.empty()) return {};
  const auto part = [&stamp](std::size_t at, std::size_t size = 2) {
    return stamp.substr(at, size);
  };
  return FromUtf8(part(6) + "/" + part(4) + "/" + part(0, 4) + " " + part(9) + ":" + part(11) +
                  ":" + part(13));
}

class CalendarTest : public EndToEnd {
 protected:
  Greenwich greenwich;

  template <class Act>
  auto Change(Act act) {
    return phone.GetMemory().With([&](phonesim::Books& books) { return act(books.events); });
  }
  CalendarTest() {
    Change([](phonesim::Book& events) {
      events.Fill({Event("20040229T080000Z", "20040229T090000Z", "Schalttag"),
                   Event("20040315T080000Z", "20040315T090000Z", "Zahnarzt"),
                   Event("20040316T080000Z", "20040316T090000Z", "Übung"),
                   Event("20040317T080000Z", "20040317T090000Z", "生日")});
    });
  }

  std::string Summaries() {
    return Change([](const phonesim::Book& events) {
      std::string all;
      for (const auto& entry : events.Entries())
        all += phonesim::Field(entry.fields, "summary") + " ";
      return all;
    });
  }

  bool OpensCalendar() {
    return StartsAndConnects() && Does([this] { session.Toolbar2.clicked("Calendar"); });
  }
  bool Press(const char* action) {
    return Does([&] { session.Toolbar1.clicked(action); });
  }
  void TickRow(int row) {
    host.RunEvent([&] { session.MSHFlexGrid1.SelectByUser(row, kAllColumns.tick); });
  }
  // What the user does in the form; then OK, and whatever that brings.
  void InForm(const std::function<void(frmAddEvent&)>& act) {
    host.WhenShown("frmAddEvent", [act](Window& window) {
      act(dynamic_cast<frmAddEvent&>(window));
      ScriptedHost::Press(window, "Command1");
    });
  }

  static void Set(frmAddEvent& form, frmAddEvent::Moment moment, const char16_t* dateText) {
    form.DPicker(moment).value = form.TPicker(moment).value = modDate::ReadSystemDate(dateText);
  }
  static void TickAlarm(frmAddEvent& form) {
    form.Check1.checked = true;
    form.Check1.clicked();
  }
  std::string LastOnPhone(const char* field) {
    return Change([&](phonesim::Book& events) {
      return phonesim::Field(events.Entries().back().fields, field);
    });
  }
  void Choose(CalendarView view, int year, int month) {
    host.RunEvent([&] {
      session.ViewMode.Select(static_cast<int>(view));
      session.Text1.text = ToText(year);
      session.Combo2.Select(month - 1);
      session.ViewMode.clicked();
    });
  }

  int Rows() const { return session.MSHFlexGrid1.Rows() - 1; }
  // A field of the file's entry with that subject.
  Text Saved(TextView subject, int field) const {
    for (const auto& line : ListFile::ReadLines(folder.Path() / "app/Cal/CalendarMobile.dat")) {
      const auto fields = ListFile::DecodeLine(line);
      if (fields.at(clsT610Appoint::kSubject) == subject) {
        return fields.at(static_cast<std::size_t>(field));
      }
    }
    return u"(none)";
  }
};

TEST_F(CalendarTest, IsReadChangedAndReadAgain) {
  ASSERT_TRUE(OpensCalendar());
  EXPECT_EQ(Rows(), 4);
  TickRow(1);
  TickRow(3);
  ASSERT_TRUE(Press("Delete"));
  EXPECT_EQ(Summaries(), "Zahnarzt 生日 ");
  EXPECT_EQ(Rows(), 2);

  InForm([](frmAddEvent& form) {
    form.Text1.text = u"Flug nach Łódź";
    Set(form, form.kStart, u"15/07/2004 10:00");
    Set(form, form.kEnd, u"16/07/2004 01:15");
    TickAlarm(form);
    Set(form, form.kAlarm, u"14/07/2004 23:45");
  });
  ASSERT_TRUE(Press("New"));
  EXPECT_EQ(LastOnPhone("start"), "20040715T100000Z");
  EXPECT_EQ(LastOnPhone("end"), "20040716T011500Z");
  EXPECT_EQ(LastOnPhone("alarm"), "20040714T234500Z");
  EXPECT_EQ(Summaries(), "Zahnarzt 生日 Flug nach Łódź ");
  EXPECT_EQ(Rows(), 3);

  TickRow(2);
  InForm([](frmAddEvent& form) { form.Text1.text = form.Text1.text() + u"\n蛋糕"; });
  ASSERT_TRUE(Press("Edit"));
  EXPECT_EQ(Summaries(), "Zahnarzt 生日\n蛋糕 Flug nach Łódź ");
  EXPECT_EQ(session.MSHFlexGrid1.Cell(2, kAllColumns.subject).text, u"生日 蛋糕");
  EXPECT_EQ(host.boxes.size(), 3u) << "one for each change";
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
}

TEST_F(CalendarTest, ADeleteThatThePhoneRefusesLeavesTheList) {
  ASSERT_TRUE(OpensCalendar());
  Behave([](phonesim::Behaviour& b) { b.refusedOperations[phonesim::ObexOperation::Delete] = {}; });
  TickRow(2);
  ASSERT_TRUE(Press("Delete"));
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSErrStr(text::error::kDeleteEvent));
  EXPECT_EQ(Rows(), 4);
  EXPECT_EQ(program.calendarLists().phoneAppointments->Count(), 4);
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
}

TEST_F(CalendarTest, WhatCannotBeIsRefusedUntilItCan) {
  ASSERT_TRUE(OpensCalendar());
  host.WhenShown("frmAddEvent", [this](Window& window) {
    auto& form = dynamic_cast<frmAddEvent&>(window);
    const auto refused = [&](int error) {
      const auto before = host.boxes.size();
      ScriptedHost::Press(form, "Command1");
      ASSERT_TRUE(host.RunUntil([&] { return host.boxes.size() > before; }));
      EXPECT_EQ(host.boxes.back().text, session.language().getTSErrStr(error));
      EXPECT_TRUE(form.IsLoaded());
    };
    Set(form, form.kStart, u"15/07/2004 10:00");
    Set(form, form.kEnd, u"15/07/2004 09:59");
    form.Text1.text = u"1+1=2";
    refused(text::error::kEndBeforeStart);
    Set(form, form.kEnd, u"15/07/2004 10:00");
    refused(text::error::kEqualsSign);
    form.Text1.text = u"1+1";
    TickAlarm(form);
    Set(form, form.kAlarm, u"15/07/2004 10:01");
    refused(text::error::kAlarmAfterStart);
    EXPECT_EQ(Summaries(), "Schalttag Zahnarzt Übung 生日 ");
    Set(form, form.kAlarm, u"15/07/2004 10:00");
    ScriptedHost::Press(form, "Command1");
  });
  ASSERT_TRUE(Press("New"));
  EXPECT_EQ(Summaries(), "Schalttag Zahnarzt Übung 生日 1+1 ");
  EXPECT_EQ(LastOnPhone("alarm"), "20040715T100000Z");
  EXPECT_EQ(Rows(), 5);
}

TEST_F(CalendarTest, EverySampleEntryIsReadAndShown) {
  const auto sample = phonesim::MakeSampleCalendar(2004);
  Change([&](phonesim::Book& events) { events.Fill(sample); });
  ASSERT_TRUE(OpensCalendar());
  EXPECT_TRUE(host.boxes.empty());
  const auto& records = program.calendarPage().CalendarRecords();
  ASSERT_EQ(records.size(), 150u);
  std::map<std::string, std::size_t> entriesOfMonth;
  int events = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto field = [&](const char* name) { return phonesim::Field(sample[i], name); };
    SCOPED_TRACE(field("summary"));
    const bool isEvent = field("kind") == "EVENT";
    EXPECT_EQ(records[i].EntryType, isEvent ? u"EVENT" : u"");
    EXPECT_EQ(Replace(records[i].Summary.Trimmed(), u"\r\n", u"\n"), FromUtf8(field("summary")));
    EXPECT_EQ(records[i].Location.Trimmed(), FromUtf8(field("location")));
    EXPECT_EQ(records[i].Category.Trimmed(), FromUtf8(field("category")));
    EXPECT_EQ(records[i].StartTime.Trimmed(), LocalText(field("start")));
    EXPECT_EQ(records[i].EndTime.Trimmed(), LocalText(field("end")));
    EXPECT_EQ(records[i].AlarmTime.Trimmed(), LocalText(field("alarm")));
    if (!isEvent) continue;
    ++events;
    ++entriesOfMonth[field("start").substr(0, 6)];
  }
  EXPECT_EQ(Rows(), events);
  EXPECT_EQ(program.calendarLists().phoneAppointments->Count(), events);

  const Grid& sheet = session.MSHFlexGrid2;
  int sixWeeks = 0;
  for (int month = 1; month <= 12; ++month) {
    Choose(CalendarView::Month, 2004, month);
    const std::string name = std::to_string(200400 + month);
    EXPECT_EQ(PanelText(panel::kCount),
              session.language().Filled(text::interface_::kStatusEntries,
                                        {ToText(static_cast<int>(entriesOfMonth[name]))}));
    if (sheet.Rows() == 7) ++sixWeeks;
  }
  EXPECT_GT(sixWeeks, 0);
}

// From a day of the month's sheet to the list of that day, where an entry is deleted.
TEST_F(CalendarTest, ADayIsOpenedInTheMonthAndWorkedOn) {
  ASSERT_TRUE(OpensCalendar());
  Choose(CalendarView::Month, 2004, 2);
  const Grid& sheet = session.MSHFlexGrid2;
  EXPECT_EQ(sheet.Cell(5, 0).text, u"29");
  EXPECT_EQ(sheet.Cell(5, 0).badge, u"1");
  host.RunEvent([this] { session.MSHFlexGrid2.SelectByUser(5, 0); });
  Grid& day = session.MSHFlexGrid3;
  ASSERT_EQ(day.Rows(), 2);
  EXPECT_EQ(day.Cell(1, kDayColumns.subject).text, u"Schalttag");
  host.RunEvent([&] { day.SelectByUser(1, kDayColumns.tick); });
  InForm([](frmAddEvent& form) { form.Text2.text = u"Köln"; });
  ASSERT_TRUE(Press("Edit"));
  ASSERT_EQ(day.Rows(), 2) << "the day is shown still";
  EXPECT_EQ(day.Cell(1, 4).text, u"Köln");
  host.RunEvent([&] { day.SelectByUser(1, kDayColumns.tick); });
  ASSERT_TRUE(Press("Delete"));
  EXPECT_EQ(Summaries(), "Zahnarzt Übung 生日 ");
  EXPECT_EQ(day.Rows(), 1);
  Choose(CalendarView::Month, 2004, 2);
  EXPECT_EQ(sheet.Cell(5, 0).badge, u"");
}

// Where plain text and escapes meet, this phone's blanks get lost in reading.
TEST_F(CalendarTest, APhoneThatEscapesOnlyWhatItMust) {
  const std::pair<const char*, const char16_t*> texts[] = {
      {"Zahnärztin", u"Zahnärztin"},
      {"Ciné à 20:30; Été", u"Cinéà20:30;Été"},
      {"Agenda:\n1. Räume", u"Agenda:\n1. Räume"},
      {"Call +441234567 or +49 30", u"Call +441234567 or +49 30"},
      {"1 + 1", u"1 + 1"}};
  Behave([](phonesim::Behaviour& b) {
    b.irmc.quoteAllInEvents = false;
    b.irmc.plainPlus = true;
  });
  Change([&](phonesim::Book& events) {
    std::vector<Fields> entries;
    for (const auto& [summary, read] : texts) {
      entries.push_back(Event("20040515T080000Z", "20040515T090000Z", summary));
    }
    events.Fill(entries);
  });
  ASSERT_TRUE(OpensCalendar());
  const auto& records = program.calendarPage().CalendarRecords();
  ASSERT_EQ(records.size(), std::size(texts));
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_EQ(Replace(records[i].Summary.Trimmed(), u"\r\n", u"\n"), texts[i].second) << i;
  }
}

// The cable comes off while the user writes, and is plugged in again.
TEST_F(CalendarTest, TheFormOutlivesALostPhone) {
  ASSERT_TRUE(OpensCalendar());
  host.WhenShown("frmAddEvent", [this](Window& window) {
    auto& form = dynamic_cast<frmAddEvent&>(window);
    form.Text1.text = u"Geschrieben";
    phone.HangUp();
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
    ScriptedHost::Press(form, "Command1");
    EXPECT_EQ(host.boxes.back().text, session.language().getTSErrStr(text::error::kWriteEvent));
    phone.Start();
    ASSERT_TRUE(Connects());
    EXPECT_TRUE(form.IsLoaded());
    ScriptedHost::Press(form, "Command1");
  });
  TickRow(2);
  ASSERT_TRUE(Press("Edit"));
  EXPECT_EQ(Summaries(), "Schalttag Geschrieben Übung 生日 ") << "the same phone, the same entry";
}

TEST_F(CalendarTest, ALargeCalendarComesInManyPackets) {
  Change([](phonesim::Book& events) {
    std::vector<Fields> many;
    for (int i = 0; i < 300; ++i) {
      many.push_back(Event("20040515T080000Z", "20040515T090000Z", "Nr. é"));
      many.back()["location"] = std::string(40, 'x') + std::to_string(i);
    }
    events.Fill(many);
  });
  Behave([](phonesim::Behaviour& b) { b.irmc.logsInTwoPackets = true; });
  ASSERT_TRUE(OpensCalendar());
  EXPECT_EQ(Rows(), 300);
  EXPECT_EQ(program.calendarPage().CalendarRecords().back().Location.Trimmed(),
            Text(40, u'x') + u"299");
}

// Two runs of the program, and somebody with the phone in hand between them.
TEST_F(CalendarTest, TheFileTellsWhatWasChangedOnThePhone) {
  ASSERT_TRUE(OpensCalendar());
  for (const auto& entry : program.calendarLists().phoneAppointments->NewEnum()) {
    entry->LetData(u"link of " + entry->GetData(clsT610Appoint::kSubject), clsT610Appoint::kGuid);
    entry->LetData(u"01/01/2004 00:00:00", clsT610Appoint::kModified);
  }
  host.RequestEnd();
  EXPECT_EQ(Saved(u"生日", clsT610Appoint::kGuid), u"link of 生日");
  phone.Stop();

  Change([](phonesim::Book& events) {
    const auto entries = events.Entries();
    events.Remove(entries[0].luid);
    Fields moved = entries[1].fields;
    moved["start"] = "20040315T083000Z";
    events.Replace(entries[1].luid, moved);
  });
  ScriptedHost again;
  again.WhenShown("Asking", [](Window& asking) { ScriptedHost::Press(asking, "Command2"); });
  Program second(again, {folder.Path() / "app", TESSARIN_SHARE, folder.Path() / "registry.ini",
                         folder.Path() / "no-devices"});
  TessarinMenu& main = second.session();
  main.Timer1.interval = 100;
  main.Timer2.interval = 1;
  phone.Start();
  second.Start();
  ASSERT_TRUE(again.RunUntil([&] { return main.statusPhase == kPhonePresent; }));
  again.RunEvent([&] { main.Toolbar2.clicked("Calendar"); });
  ASSERT_TRUE(again.RunUntil([&] { return second.calendarLists().phoneAppointments != nullptr; }));
  again.RequestEnd();
  EXPECT_EQ(Saved(u"Schalttag", 0), u"(none)");
  EXPECT_EQ(Saved(u"Zahnarzt", clsT610Appoint::kGuid), u"link of Zahnarzt");
  EXPECT_NE(Saved(u"Zahnarzt", clsT610Appoint::kModified), u"01/01/2004 00:00:00")
      << "changed on the phone";
  EXPECT_EQ(Saved(u"生日", clsT610Appoint::kModified), u"01/01/2004 00:00:00");
}

}  // namespace
}  // namespace tessarin
