#include <algorithm>

#include "codecs/ListFile.h"
#include "core/PageTable.h"
#include "tests/endtoend/EndToEnd.h"

namespace tessarin {
namespace {

using phonesim::Fields;

Fields Event(const char* start, const char* end, const char* summary) {
  return {{"kind", "EVENT"}, {"start", start}, {"end", end}, {"summary", summary}};
}

class CalendarTest : public EndToEnd {
 protected:
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
    form.DPicker(frmAddEvent::kEnd).value = form.DPicker(frmAddEvent::kEnd).value + 1;
    form.Check1.checked = true;
  });
  ASSERT_TRUE(Press("New"));
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
