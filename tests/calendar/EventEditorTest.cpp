#include "codecs/Faults.h"
#include "tests/calendar/CalendarBench.h"

namespace tessarin {
namespace {

using Moment = frmAddEvent::Moment;

class EventEditorTest : public CalendarBench {
 protected:
  frmAddEvent& form = page.editor();

  // What the user does in the form that opens, OK and the tick behind it last; the form is closed
  // where that was not enough.
  void InForm(const std::function<void()>& act) {
    host.WhenShown("frmAddEvent", [this, act](Window& window) {
      act();
      ScriptedHost::Press(window, "Command1");
      Tick(session.Timer1);
      closedByItself = !window.IsLoaded();
      if (window.IsLoaded()) ScriptedHost::Press(window, "Command2");
    });
  }
  void Set(Moment moment, const char16_t* dateText) {
    form.DPicker(moment).value = form.TPicker(moment).value = modDate::ReadSystemDate(dateText);
  }
  // A user who is quick: what comes before the tick.
  void Quickly(std::initializer_list<const char*> buttons) {
    host.WhenShown("frmAddEvent", [buttons](Window& window) {
      for (const char* button : buttons) ScriptedHost::Press(window, button);
    });
    Press("New");
  }
  void LosePhone() {
    port.levels.assign(3, linkport::kNoBatteryLevel);
    Tick(session.Timer1);
  }
  void Reconnect() {
    for (int tick = 0; tick < 300 && session.statusPhase == kNoPhone; ++tick) Tick(session.Timer2);
  }
  void SetAlarm(bool alarm) {
    form.Check1.checked = alarm;
    form.Check1.clicked();
  }

  bool closedByItself = false;
};

TEST_F(EventEditorTest, AddsAnEventWithAnAlarm) {
  Open();
  InForm([this] {
    EXPECT_EQ(form.caption(), Word(text::interface_::kEventNewTitle));
    EXPECT_EQ(form.Combo1.Count(), 6);
    for (const Moment moment : {form.kStart, form.kEnd, form.kAlarm}) {
      EXPECT_EQ(form.DPicker(moment).text(), u"15/05/2004");
      EXPECT_EQ(form.TPicker(moment).text(), u"00:00");
    }
    EXPECT_FALSE(form.TPicker(form.kAlarm).enabled || form.Frame2.enabled);
    form.Combo1.Select(2);
    form.Text1.text = u" Flug\nnach Łódź ";
    form.Text2.text = u"Terminal 2";
    Set(form.kStart, u"01/07/2004 09:05:59");
    Set(form.kEnd, u"01/07/2004 09:05:10");  // the same minute: seconds do not count
    SetAlarm(true);
    EXPECT_TRUE(form.TPicker(form.kAlarm).enabled && form.Frame2.enabled);
    Set(form.kAlarm, u"01/07/2004 09:05");
  });
  Press("New");
  EXPECT_TRUE(closedByItself);
  EXPECT_EQ(LastBox(), Prompt(text::prompt::kEventAdded));
  ASSERT_EQ(Events().size(), 1u);
  EXPECT_EQ(OnPhone(0, "start"), "20040701T080500Z");
  EXPECT_EQ(OnPhone(0, "end"), "20040701T080500Z");
  EXPECT_EQ(OnPhone(0, "alarm"), "20040701T080500Z");
  EXPECT_EQ(OnPhone(0, "summary"), "Flug\nnach Łódź");
  EXPECT_EQ(OnPhone(0, "location"), "Terminal 2");
  EXPECT_EQ(OnPhone(0, "category"), "TRAVEL");
  EXPECT_EQ(session.commandState, job::kLoadCalendar);
  Tick(session.Timer1);
  EXPECT_EQ(session.MSHFlexGrid1.Rows(), 2);
}

TEST_F(EventEditorTest, RewritesTheTickedEntry) {
  FillSample();
  Open();
  TickRow(session.MSHFlexGrid1, 2, kAllColumns);
  InForm([this] {
    EXPECT_EQ(form.caption(), Word(text::interface_::kEventEditTitle));
    EXPECT_EQ(form.editLUID, u"000200000003");
    EXPECT_EQ(form.Combo1.Selected(), 1);
    EXPECT_EQ(form.Text1.text(), u"Über\nMitternacht");
    EXPECT_EQ(form.DPicker(form.kStart).text() + u" " + form.TPicker(form.kStart).text(),
              u"31/05/2004 23:30");
    EXPECT_EQ(form.DPicker(form.kEnd).text() + u" " + form.TPicker(form.kEnd).text(),
              u"01/06/2004 01:30");
    EXPECT_FALSE(form.Check1.checked);
    form.Text1.text = u"Früher";
    form.Combo1.Select(5);
  });
  Press("Edit");
  EXPECT_TRUE(closedByItself);
  EXPECT_EQ(LastBox(), Prompt(text::prompt::kEventChanged));
  ASSERT_EQ(Events().size(), 4u);
  EXPECT_EQ(OnPhone(2, "summary"), "Früher");
  EXPECT_EQ(OnPhone(2, "category"), "MISCELLANEOUS");
  EXPECT_EQ(OnPhone(2, "start"), "20040531T223000Z");
  EXPECT_EQ(OnPhone(2, "alarm"), "");
}

TEST_F(EventEditorTest, AnOpenedRowIsEdited) {
  FillSample();
  Open();
  Text opened;
  host.WhenShown("frmAddEvent", [&](Window& window) {
    opened += form.editLUID + u" ";
    EXPECT_TRUE(form.Check1.checked);
    EXPECT_EQ(form.TPicker(form.kAlarm).text(), u"08:45");
    ScriptedHost::Press(window, "Command2");
  });
  host.RunEvent([this] {
    session.MSHFlexGrid1.SetCurrent(1, kAllColumns.subject);
    session.MSHFlexGrid1.activated();
    session.MSHFlexGrid1.SetCurrent(3, kAllColumns.tick);
    session.MSHFlexGrid1.activated();
  });
  EXPECT_EQ(opened, u"000200000001 ") << "in the tick's column a double click is two clicks";
}

TEST_F(EventEditorTest, RefusesWhatCannotBe) {
  Open();
  const struct {
    const char16_t* start;
    const char16_t* end;
    const char16_t* alarm;  // empty for none
    const char16_t* subject;
    const char16_t* location;
    int error;
  } cases[] = {
      {u"01/07/2004 09:00", u"01/07/2004 08:59", u"", u"a", u"b", text::error::kEndBeforeStart},
      {u"01/07/2004 09:00", u"30/06/2004 10:00", u"", u"a=", u"b", text::error::kEndBeforeStart},
      {u"01/07/2004 09:00", u"01/07/2004 09:00", u"", u"=a", u"b", text::error::kEqualsSign},
      {u"01/07/2004 09:00", u"01/07/2004 09:00", u"", u"a", u"x=y", text::error::kEqualsSign},
      {u"01/07/2004 09:00", u"01/07/2004 10:00", u"01/07/2004 09:01", u"a", u"b",
       text::error::kAlarmAfterStart},
  };
  for (const auto& c : cases) {
    InForm([&] {
      Set(form.kStart, c.start);
      Set(form.kEnd, c.end);
      form.Text1.text = c.subject;
      form.Text2.text = c.location;
      SetAlarm(!Text(c.alarm).empty());
      if (form.Check1.checked) Set(form.kAlarm, c.alarm);
    });
    Press("New");
    EXPECT_FALSE(closedByItself);
    EXPECT_EQ(LastBox(), Error(c.error)) << ToUtf8(c.subject);
    EXPECT_EQ(session.commandState, job::kIdlePoll);
  }
  EXPECT_EQ(host.boxes.size(), std::size(cases));
  EXPECT_TRUE(Events().empty());
}

TEST_F(EventEditorTest, AFailedWriteKeepsTheFormOpenAndTheLineFree) {
  FillSample();
  Open();
  Refuse(phonesim::ObexOperation::Put, {});
  for (const char* action : {"New", "Edit"}) {
    if (!CanPress("Edit")) TickRow(session.MSHFlexGrid1, 1, kAllColumns);
    InForm([] {});
    Press(action);
    EXPECT_FALSE(closedByItself);
    EXPECT_EQ(LastBox(), Error(text::error::kWriteEvent));
    Tick(session.Timer1);
    EXPECT_EQ(PanelText(panel::kBattery), u"85%");
  }
  EXPECT_EQ(Events().size(), 4u);
  EXPECT_EQ(session.MSHFlexGrid1.Rows(), 4);
  EXPECT_EQ(lists.phoneAppointments->Count(), 3);
}

TEST_F(EventEditorTest, WhatWasGivenUpIsNotWritten) {
  FillSample();
  Open();
  Quickly({"Command1", "Command2"});
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  Quickly({"Command1", "Command2"});
  host.WhenShown("frmAddEvent", [this](Window& window) {
    Tick(session.Timer1);
    EXPECT_TRUE(window.IsLoaded()) << "the next form, which nobody has filled yet";
    ScriptedHost::Press(window, "Command2");
  });
  Press("New");
  session.commandState = job::kWriteEvent;
  Tick(session.Timer1);
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(Events().size(), 4u);
}

// While the form stands, the phone is lost, and the same or another one found.
TEST_F(EventEditorTest, AnEntryIsRewrittenOnItsOwnPhoneOnly) {
  const struct {
    const char* serial;
    std::size_t entries;
    const char* first;
  } cases[] = {
      {"001017006100427", 4, "Neu"}, {"001017006100999", 5, "Zahnärztin"}, {"", 5, "Zahnärztin"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.serial);
    FillSample();
    Open();
    TickRow(session.MSHFlexGrid1, 1, kAllColumns);
    InForm([&] {
      form.Text1.text = u"Neu";
      LosePhone();
      host.boxes.clear();
      ScriptedHost::Press(form, "Command1");
      EXPECT_EQ(LastBox(), Error(text::error::kWriteEvent)) << "no phone";
      settings.With([&](auto& behaviour) { behaviour.identity.serial = c.serial; });
      Reconnect();
      EXPECT_EQ(session.statusPhase, kPhonePresent);
    });
    Press("Edit");
    EXPECT_TRUE(closedByItself);
    ASSERT_EQ(Events().size(), c.entries);
    EXPECT_EQ(OnPhone(0, "summary"), c.first);
    EXPECT_EQ(OnPhone(c.entries - 1, "summary"), c.entries == 5 ? "Neu" : "Lauf");
    settings.With([](auto& behaviour) { behaviour.identity = {}; });
    host.RunEvent([this] { LosePhone(); });
    Reconnect();
  }
}

TEST_F(EventEditorTest, AnEntryWithoutALuidIsNeitherAddedAgainNorDeleted) {
  FillSample();
  port.spoil = [](std::string& sent) {
    const std::string property = "X-IRMC-LUID:000200000001";
    const auto place = sent.find(property);
    if (place != std::string::npos) sent.replace(place, 11, "X-IRMC-NONE");
  };
  Open();
  TickRow(session.MSHFlexGrid1, 1, kAllColumns);
  InForm([] {});
  Press("Edit");
  EXPECT_FALSE(closedByItself);
  EXPECT_EQ(LastBox(), Error(text::error::kWriteEvent));
  Press("Delete");
  Tick(session.Timer1);
  EXPECT_EQ(LastBox(), Error(text::error::kDeleteEvent));
  EXPECT_EQ(Events().size(), 4u);
}

TEST_F(EventEditorTest, ATimeBeyondTheCalendarIsRefused) {
  Open();
  InForm([this] {
    Set(form.kStart, u"01/01/0100 00:30");  // an hour earlier in UTC
  });
  Press("New");
  EXPECT_FALSE(closedByItself);
  EXPECT_EQ(LastBox(), Error(text::error::kWriteEvent));
  EXPECT_TRUE(Events().empty());
}

// Of a subject in which line breaks become longer on the way, no more can be typed than arrives.
TEST_F(EventEditorTest, TheSubjectHoldsWhatThePhoneGets) {
  Open();
  const Text lines = u"one\ntwo\nthree\n" + Text(84, u'x') + u"yz";  // 100 units
  const struct {
    Text typed;
    int caret;
    Text kept;
  } cases[] = {
      {lines, 100, u"one\ntwo\nthree\n" + Text(80, u'x')},
      {lines, 20, u"one\ntwo\nthree\n" + Text(78, u'x') + u"yz"},
      {lines, 2, u"e\ntwo\nthree\n" + Text(82, u'x')},  // all in front, then from the end
      {Text(99, u'x') + u"\n", 100, Text(99, u'x')},    // the break that was typed last
      {Text(100, u'x'), 100, Text(100, u'x')},
      {u"Ł" + lines.substr(1), 100, u"Ł" + lines.substr(1)},  // UTF-7 keeps a break's length
  };
  for (const auto& c : cases) {
    InForm([&] {
      form.Text1.text = c.typed;
      form.Text1.caret = c.caret;
      form.Text1.edited();
      EXPECT_EQ(ToUtf8(form.Text1.text()), ToUtf8(c.kept));
    });
    Press("New");
    EXPECT_EQ(OnPhone(Events().size() - 1, "summary"), ToUtf8(TrimBlanks(c.kept)));
    Tick(session.Timer1);
  }
}

TEST_F(EventEditorTest, AnEntryOfTheListGoesToThePhone) {
  FillSample();
  Open();
  clsT610Appoint entry = lists.phoneAppointments->item(1);
  const auto write = [&] { return clsT610AppointList::WriteAppointToMobile(entry, session, link); };
  entry.LetData(u"Neuer Termin", clsT610Appoint::kSubject);
  EXPECT_EQ(write(), u"");
  EXPECT_EQ(OnPhone(0, "summary"), "Neuer Termin");
  for (const char16_t* unwritten : {u"", u"-1"}) {
    entry.LetData(unwritten, clsT610Appoint::kMobileId);
    const Text luid = write();
    EXPECT_EQ(luid.size(), 12u);
    EXPECT_EQ(Events().back().luid, ToUtf8(luid));
  }
  EXPECT_TRUE(host.boxes.empty());
  Refuse(phonesim::ObexOperation::Put, {});
  EXPECT_EQ(write(), u"-1");
  EXPECT_EQ(LastBox(), Error(text::error::kWriteEvent));
  Refuse(phonesim::ObexOperation::Connect, {});
  EXPECT_EQ(write(), u"") << "no session, no verdict of the phone";
  EXPECT_EQ(host.boxes.size(), 2u);
  entry.LetData(u"", clsT610Appoint::kEnd);
  EXPECT_THROW(write(), ConversionError);
}

}  // namespace
}  // namespace tessarin
