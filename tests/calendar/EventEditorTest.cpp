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
