// The calendar's synchronisation window through the whole program: what is on the phone and in the
// files of Outlook's folder afterwards.

#include "tests/endtoend/SyncEndToEnd.h"

namespace tessarin {
namespace {

using phonesim::Book;
using phonesim::Field;

constexpr char kPhone[] = "Phone", kOutlook[] = "Outlook";
constexpr char kDentist[] =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Somebody//EN\r\nBEGIN:VEVENT\r\nUID:dentist\r\n"
    "DTSTAMP:20040101T000000Z\r\nDTSTART:20040316T080000Z\r\nDTEND:20040316T090000Z\r\n"
    "SUMMARY:Dentist\r\nX-COLOUR:red\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";

class CalendarSyncTest : public SyncEndToEnd {
 protected:
  template <class Act>
  auto Change(Act act) {
    return phone.GetMemory().With([&](phonesim::Books& books) { return act(books.events); });
  }
  CalendarSyncTest() : SyncEndToEnd("Calendar") {
    Change([](Book& events) {
      events.Fill({Event("20040229T080000Z", "20040229T090000Z", "Schalttag"),
                   Event("20040315T080000Z", "20040315T090000Z", "Zahnarzt")});
    });
    WriteItem("dentist.ics", kDentist);
  }
  static phonesim::Fields Event(const char* start, const char* end, const char* summary) {
    return {{"kind", "EVENT"},
            {"start", start},
            {"end", end},
            {"summary", summary},
            {"category", "APPOINTMENT"}};
  }
  // Somebody with the phone in hand changes an entry.
  void SetOnPhone(const std::string& summary, const char* field, const std::string& value) {
    Change([&](Book& events) {
      for (const auto& entry : events.Entries()) {
        if (Field(entry.fields, "summary") != summary) continue;
        auto fields = entry.fields;
        fields[field] = value;
        return events.Replace(entry.luid, fields);
      }
      return false;
    });
  }
  // The phone's entries, one a line: start, subject, location, category.
  std::string Events() {
    return Change([](const Book& events) {
      std::string all;
      for (const auto& entry : events.Entries()) {
        for (const char* field : {"start", "summary", "location", "category"}) {
          all += Field(entry.fields, field) + "|";
        }
        all.back() = '\n';
      }
      return all;
    });
  }
  bool OpensCalendar() {
    return StartsAndConnects() && Does([this] { session.Toolbar2.clicked("Calendar"); });
  }
  // The page reads the phone anew when the window has gone.
  void InSync(const std::function<void(frmCalendarSync&)>& act) {
    InWindow<frmCalendarSync>(program.calendarSync(), act);
    EXPECT_EQ(session.commandState, job::kLoadCalendar);
    EXPECT_TRUE(host.RunUntil([this] { return session.commandState == job::kIdlePoll; }));
  }
  std::string TwoWay() {
    std::string told;
    InSync([&](frmCalendarSync& sync) { told = Run(sync, "cmdSync"); });
    return told;
  }
};

TEST_F(CalendarSyncTest, ASecondTwoWayRunMovesOnlyWhatWasChanged) {
  ASSERT_TRUE(OpensCalendar());
  EXPECT_EQ(TwoWay(), Summary(kPhone, "1", "0", "0") + " / " + Summary(kOutlook, "2", "0", "0"));
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSPromptStr(text::prompt::kSyncWithOutlook));
  const Items first = ReadItems();
  EXPECT_EQ(first.size(), 3u);
  EXPECT_EQ(first.at("dentist.ics"), kDentist);
  const std::string events = Events();
  EXPECT_NE(events.find("20040316T080000Z|Dentist||MISCELLANEOUS\n"), std::string::npos) << events;

  EXPECT_EQ(TwoWay(), Summary(kPhone, "0", "0", "3") + " / " + Summary(kOutlook, "0", "0", "3"));
  EXPECT_EQ(ReadItems(), first);
  EXPECT_EQ(Events(), events);

  AwaitNextSecond();
  SetOnPhone("Schalttag", "location", "Köln");
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("Refresh"); }));
  const std::string leapDay = Holding("SUMMARY:Schalttag");
  Edit("dentist.ics", "DTSTART:20040316T080000Z", "DTSTART:20040316T083000Z");
  Items edited = ReadItems();
  EXPECT_EQ(TwoWay(), Summary(kPhone, "0", "1", "2") + " / " + Summary(kOutlook, "0", "1", "2"));
  EXPECT_EQ(Events(),
            "20040229T080000Z|Schalttag|Köln|APPOINTMENT\n"
            "20040315T080000Z|Zahnarzt||APPOINTMENT\n"
            "20040316T083000Z|Dentist||MISCELLANEOUS\n");
  Items now = ReadItems();
  EXPECT_NE(now.at(leapDay).find("LOCATION:Köln\r\n"), std::string::npos);
  now.erase(leapDay);
  edited.erase(leapDay);
  EXPECT_EQ(now, edited);

  // What is deleted on one side comes back from the other.
  Change([](Book& book) { book.Remove(book.Entries()[2].luid); });
  std::filesystem::remove(folder.Path() / items_ / leapDay);
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("Refresh"); }));
  EXPECT_EQ(TwoWay(), Summary(kPhone, "1", "0", "1") + " / " + Summary(kOutlook, "1", "0", "1"));
  EXPECT_EQ(ReadItems().size(), 3u);
  EXPECT_NE(Events().find("Dentist"), std::string::npos);
}

TEST_F(CalendarSyncTest, RowsAreCopiedOneByOneAndEachReplacementIsAsked) {
  ASSERT_TRUE(OpensCalendar());
  InSync([this](frmCalendarSync& sync) {
    Select(sync, 0, {1});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "1", "0", "0"));
    const std::string item = Holding("SUMMARY:Zahnarzt");
    Edit(item, "SUMMARY:Zahnarzt", "X-COLOUR:red\r\nSUMMARY:Arzt");
    const Items edited = ReadItems();
    EXPECT_TRUE(host.boxes.empty());
    host.answers = {Answer::Cancel, Answer::Ok};
    Select(sync, 0, {0, 1});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "1", "0", "1"));
    EXPECT_EQ(ReadItems().at(item), edited.at(item));
    EXPECT_EQ(host.boxes.size(), 1u);
    EXPECT_NE(host.boxes[0].text.find(u"\r\n\r\nArzt"), Text::npos);
    Select(sync, 0, {1});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "0", "1", "0"));
    EXPECT_NE(ReadItems().at(item).find("X-COLOUR:red\r\nSUMMARY:Zahnarzt\r\n"), std::string::npos);

    Edit(item, "SUMMARY:Zahnarzt", "SUMMARY:Arzt");
    sync.chkLocation[1].checked = true;
    host.RunEvent([&] { sync.chkLocation[1].clicked(); });
    host.answers = {Answer::Ok, Answer::Ok};
    EXPECT_EQ(Run(sync, "cmdToLeft"), Summary(kPhone, "1", "2", "0") + " / ");
  });
  EXPECT_NE(Events().find("20040315T080000Z|Arzt||MISCELLANEOUS\n"), std::string::npos) << Events();
}

TEST_F(CalendarSyncTest, WhatFailsIsToldAndTriedAgainByTheNextRun) {
  WriteItem("damaged.ics", "BEGIN:VCALENDAR\r\n");
  ASSERT_TRUE(OpensCalendar());
  Behave([](phonesim::Behaviour& b) { b.irmc.eventMaximum = 2; });
  InSync([this](frmCalendarSync& sync) {
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_NE(host.boxes[0].text.find(u"damaged.ics"), Text::npos);
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "0", "0", "1") + " / " + Summary(kOutlook, "2", "0", "0"));
    EXPECT_EQ(host.boxes.back().text, session.language().getTSErrStr(text::error::kWriteEvent));
    EXPECT_EQ(sync.lvwLocation[0].Count(), 2);
    Behave([](phonesim::Behaviour& b) { b.irmc.eventMaximum = 10; });
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "1", "0", "2") + " / " + Summary(kOutlook, "0", "0", "2"));

    // An item that another program has damaged meanwhile is not written over: the run ends there.
    const std::string item = Holding("SUMMARY:Zahnarzt");
    WriteItem(item, "BEGIN:VCALENDAR\r\n");
    Select(sync, 0, {0, 1, 2});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "0", "1", "0", "1"));
    EXPECT_NE(host.boxes.back().text.find(FromUtf8(item)), Text::npos);
    EXPECT_EQ(folder.Read(items_ + item), "BEGIN:VCALENDAR\r\n");
    EXPECT_TRUE(sync.cmdSync.enabled && sync.cmdCancel.enabled);
  });
  EXPECT_FALSE(host.IsEnding());
  EXPECT_EQ(folder.Read(items_ + "damaged.ics"), "BEGIN:VCALENDAR\r\n");
}

TEST_F(CalendarSyncTest, ALineLostBetweenTwoEntriesLosesNone) {
  for (const char* uid : {"ears", "eyes"}) {
    std::string event = kDentist;
    event.replace(event.find("dentist"), 7, uid);
    WriteItem(std::string(uid) + ".ics", event.replace(event.find("Dentist"), 7, uid));
  }
  ASSERT_TRUE(OpensCalendar());
  const Items before = ReadItems();
  InWindow<frmCalendarSync>(program.calendarSync(), [this](frmCalendarSync& sync) {
    bool isOut = false;
    const auto watch = sync.prgRows.changed.Connect([&] {
      if (sync.prgRows.value == 2 && !std::exchange(isOut, true)) phone.HangUp();
    });
    Select(sync, 1, {0, 1, 2});
    EXPECT_EQ(Run(sync, "cmdToLeft"), Summary(kPhone, "1", "0", "0", "2") + " / ");
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
    EXPECT_FALSE(sync.cmdSync.enabled);
    EXPECT_TRUE(sync.cmdCancel.enabled);
  });
  phone.Restart();
  ASSERT_TRUE(Connects());
  ASSERT_TRUE(Does([this] { session.Toolbar2.clicked("Calendar"); }));
  EXPECT_EQ(TwoWay(), Summary(kPhone, "2", "0", "1") + " / " + Summary(kOutlook, "2", "0", "1"));
  for (const char* subject : {"Dentist", "ears", "eyes"}) {
    const std::string events = Events();
    const auto at = events.find(subject);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(events.find(subject, at + 1), std::string::npos);
  }
  for (const auto& [name, bytes] : before) EXPECT_EQ(ReadItems().at(name), bytes);
}

}  // namespace
}  // namespace tessarin
