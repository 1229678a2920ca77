#include "codecs/Faults.h"
#include "tests/calendar/CalendarBench.h"

namespace tessarin {
namespace {

using phonesim::ObexOperation;

class CalendarPageTest : public CalendarBench {
 protected:
  Grid& all = session.MSHFlexGrid1;
  Grid& sheet = session.MSHFlexGrid2;
  Grid& day = session.MSHFlexGrid3;

  Text Chosen() const {
    return session.Combo3.SelectedText() + u"/" + session.Combo2.SelectedText() + u"/" +
           session.Text1.text();
  }
  // The cell of a day on the sheet that is shown.
  const GridCell& DayCell(int number) const {
    for (int row = 1; row < sheet.Rows(); ++row) {
      for (int column = 0; column < sheet.Columns(); ++column) {
        if (sheet.Cell(row, column).text == ToText(number)) return sheet.Cell(row, column);
      }
    }
    throw BoundsError();
  }
  void Key(Grid& grid, GridKey key) {
    host.RunEvent([&] { EXPECT_TRUE(grid.keyPressed(key)); });
  }
};

TEST_F(CalendarPageTest, ShowsAllEventsInTheOrderOfThePhone) {
  FillSample();
  Open();
  EXPECT_TRUE(session.frmAllEvent.visible);
  EXPECT_FALSE(session.frmMonthlyEvent.visible || session.frmDailyEvent.visible);
  ASSERT_EQ(all.Rows(), 4);
  EXPECT_EQ(all.Columns(), 8);
  EXPECT_EQ(Row(all, 0), "Date|Time|Select|Type|Subject|");
  EXPECT_EQ(Row(all, 1), "15/05/2004|09:00:00||Travel|Zahnärztin|");
  EXPECT_EQ(Row(all, 2), "31/05/2004|23:30:00||Date|Über Mitternacht|");
  EXPECT_EQ(Row(all, 3), "15/05/2004|07:00:00||Miscellaneous|Lauf|");
  EXPECT_EQ(all.Cell(2, kAllColumns.luid).text, u"000200000003");
  EXPECT_EQ(PanelText(panel::kCount), u"Entries: 3");
  for (const Control* selector : std::initializer_list<Control*>{
           &session.Text1, &session.UpDown1, &session.Combo2, &session.Combo3, &session.cmdToday}) {
    EXPECT_FALSE(selector->enabled) << selector->name();
  }
  EXPECT_TRUE(CanPress("New") && CanPress("Refresh") && CanPress("Sync"));
  Press("Sync");
  EXPECT_EQ(syncs, 1);
  ASSERT_NE(lists.phoneAppointments, nullptr);
  EXPECT_EQ(lists.phoneAppointments->Count(), 3);
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  session.ChangeLanguage(4);
  EXPECT_EQ(Row(all, 1), "15/05/2004|09:00:00||Reise|Zahnärztin|");
}

TEST_F(CalendarPageTest, CountsItsEntriesOnlyInFront) {
  FillSample();
  Open();
  Press("Refresh");
  session.ShowStartPanel();
  Tick(session.Timer1);
  EXPECT_EQ(all.Rows(), 4);
  EXPECT_EQ(PanelText(panel::kCount), u"");
}

TEST_F(CalendarPageTest, TicksDecideWhatCanBeDone) {
  FillSample();
  Open();
  const auto can = [this] { return std::pair(CanPress("Delete"), CanPress("Edit")); };
  EXPECT_EQ(can(), std::pair(false, false));
  TickRow(all, 1, kAllColumns);
  EXPECT_EQ(can(), std::pair(true, true));
  EXPECT_EQ(PanelText(panel::kPage), u"15/05/2004 Zahnärztin");
  TickRow(all, 3, kAllColumns);
  EXPECT_EQ(can(), std::pair(true, false));
  host.RunEvent([this] { all.SelectByUser(3, kAllColumns.subject); });
  EXPECT_EQ(can(), std::pair(true, false)) << "no click on the box";
  all.SetCurrent(1, 1);
  Key(all, GridKey::Space);
  EXPECT_EQ(can(), std::pair(true, true));
  EXPECT_FALSE(all.keyPressed(GridKey::Down)) << "goes through the rows as in any list";
  ChooseView(CalendarView::Month);
  EXPECT_EQ(can(), std::pair(false, false));
  ChooseView(CalendarView::All);
  EXPECT_EQ(can(), std::pair(false, false)) << "the ticks are forgotten";
}

TEST_F(CalendarPageTest, AMonthIsASheetOfWeeks) {
  FillSample();
  Open();
  ChooseView(CalendarView::Month);
  EXPECT_TRUE(session.frmMonthlyEvent.visible && session.Combo2.enabled);
  EXPECT_FALSE(session.frmAllEvent.visible || session.Combo3.enabled);
  EXPECT_EQ(sheet.Rows(), 7) << "May 2004 begins on a Saturday";
  EXPECT_EQ(Row(sheet, 0), "Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday|");
  EXPECT_EQ(Row(sheet, 6), "30|31||||||");
  EXPECT_EQ(sheet.Cell(0, 3).background->light, 16764057u);
  EXPECT_EQ(session.lblPeriod.text(), u"May 2004");
  EXPECT_EQ(PanelText(panel::kCount), u"Entries: 3");
  EXPECT_EQ(DayCell(15).badge, u"2");
  EXPECT_TRUE(DayCell(15).framed) << "today";
  EXPECT_EQ(DayCell(15).description, u"Saturday, 15/05/2004, Today, Entries: 2");
  EXPECT_EQ(DayCell(31).badge, u"1");
  EXPECT_EQ(DayCell(30).badge, u"");
  EXPECT_NE(DayCell(31).background, DayCell(30).background);
  EXPECT_FALSE(DayCell(30).framed);
  EXPECT_EQ(sheet.Cell(sheet.CurrentRow(), sheet.CurrentColumn()).text, u"15");
  session.Combo2.Select(5);
  host.RunEvent([this] { session.Combo2.clicked(); });
  EXPECT_EQ(session.lblPeriod.text(), u"June 2004");
  EXPECT_EQ(DayCell(1).badge, u"") << "an entry over midnight stands on its first day only";
  EXPECT_EQ(sheet.Rows(), 6);
}

TEST_F(CalendarPageTest, AClickOnADayOpensIt) {
  FillSample();
  Open();
  ChooseView(CalendarView::Month);
  host.RunEvent([this] { sheet.SelectByUser(1, 0); });
  EXPECT_TRUE(session.frmMonthlyEvent.visible) << "no day stands there";
  EXPECT_EQ(sheet.CurrentRow(), 3) << "the chosen day is current still";
  host.RunEvent([this] { sheet.SelectByUser(3, 6); });
  EXPECT_EQ(session.ViewMode.Selected(), 2);
  EXPECT_TRUE(session.frmDailyEvent.visible && session.Combo3.enabled);
  EXPECT_EQ(session.lblPeriod.text(), u"Saturday, 15/05/2004");
  ASSERT_EQ(day.Rows(), 3);
  EXPECT_EQ(Row(day, 0), "Start time|End time|Select|Subject|Location|Date|");
  EXPECT_EQ(Row(day, 1), "09:00|10:30||Zahnärztin|Köln|15/05/2004|");
  EXPECT_EQ(Row(day, 2), "07:00|08:00||Lauf||15/05/2004|");
  EXPECT_EQ(day.Cell(1, 5).text, u"000200000001");
  EXPECT_EQ(PanelText(panel::kCount), u"Entries: 2");
  TickRow(day, 2, kDayColumns);
  EXPECT_TRUE(CanPress("Delete") && CanPress("Edit"));
  EXPECT_EQ(PanelText(panel::kPage), u"15/05/2004 Lauf");
  host.RunEvent([this] {
    session.Combo3.Select(0);
    session.Combo3.clicked();
  });
  EXPECT_EQ(day.Rows(), 1);
  EXPECT_FALSE(CanPress("Delete"));
}

TEST_F(CalendarPageTest, KeysAndSelectorsMoveThroughTheYears) {
  FillSample();
  Open();
  ChooseView(CalendarView::Month);
  const struct {
    GridKey key;
    const char16_t* chosen;
  } steps[] = {{GridKey::Right, u"16/5/2004"},  {GridKey::Down, u"23/5/2004"},
               {GridKey::Down, u"30/5/2004"},   {GridKey::Right, u"31/5/2004"},
               {GridKey::PageUp, u"30/4/2004"}, {GridKey::PageDown, u"30/5/2004"},
               {GridKey::Down, u"6/6/2004"},    {GridKey::Up, u"30/5/2004"},
               {GridKey::Left, u"29/5/2004"},   {GridKey::Home, u"15/5/2004"}};
  for (const auto& step : steps) {
    Key(sheet, step.key);
    EXPECT_EQ(Chosen(), step.chosen);
  }
  const auto stepYear = [this](int by) { host.RunEvent([&] { session.UpDown1.stepped(by); }); };
  session.Combo2.Select(1);
  host.RunEvent([this] { session.Combo2.clicked(); });
  EXPECT_EQ(session.Combo3.Count(), 29);
  stepYear(-1);
  EXPECT_EQ(Chosen(), u"15/2/2003");
  EXPECT_EQ(session.Combo3.Count(), 28);
  const auto typeYear = [this](const char16_t* year) {
    session.Text1.text = year;
    host.RunEvent([this] { session.Text1.edited(); });
  };
  for (const char16_t* nonsense : {u"", u"2", u"20x4", u"1899", u"3000", u"٢٠٠٤"}) {
    typeYear(nonsense);
    EXPECT_EQ(session.lblPeriod.text(), u"February 2003") << ToUtf8(nonsense);
  }
  typeYear(u"2999");
  EXPECT_EQ(session.lblPeriod.text(), u"February 2999");
  stepYear(1);
  EXPECT_EQ(Chosen(), u"15/2/2999") << "the last year";
  host.RunEvent([this] { session.cmdToday.clicked(); });
  EXPECT_EQ(Chosen(), u"15/5/2004");
  ChooseView(CalendarView::Day);
  Key(day, GridKey::Left);
  EXPECT_EQ(Chosen(), u"14/5/2004");
  Key(day, GridKey::PageDown);
  EXPECT_EQ(Chosen(), u"14/6/2004");
  EXPECT_FALSE(day.keyPressed(GridKey::Up));
}

TEST_F(CalendarPageTest, AnEmptyCalendarShowsNoView) {
  Open();
  EXPECT_FALSE(session.frmAllEvent.visible || session.frmMonthlyEvent.visible ||
               session.frmDailyEvent.visible);
  EXPECT_TRUE(session.lblNoEntries.visible && CanPress("Sync"));
  EXPECT_EQ(PanelText(panel::kCount), u"Entries: 0");
  ASSERT_NE(lists.phoneAppointments, nullptr);
  EXPECT_EQ(lists.phoneAppointments->Count(), 0);
}

TEST_F(CalendarPageTest, ACategoryOfThePhonesOwnIsShownAsItIs) {
  Fill({{{"kind", "EVENT"}, {"start", "20040515T080000Z"}, {"category", "MEETING"}},
        {{"kind", "EVENT"}, {"start", "20040515T090000Z"}}});
  Open();
  EXPECT_EQ(Row(all, 1), "15/05/2004|09:00:00||MEETING||");
  EXPECT_EQ(Row(all, 2), "15/05/2004|10:00:00||||");
}

TEST_F(CalendarPageTest, MoreEntriesThanCanBeCountedAreNotShownAsHalfACalendar) {
  Fill(std::vector<Fields>(32768, {{"kind", "EVENT"}, {"start", "20040515T080000Z"}}));
  Open();
  EXPECT_EQ(LastBox(), Error(text::error::kReadCalendar));
  EXPECT_EQ(lists.phoneAppointments, nullptr);
}

TEST_F(CalendarPageTest, AStartThatIsMissingEndsTheViewAndIsNamed) {
  Fill({{{"kind", "EVENT"}, {"start", "20040515T080000Z"}, {"summary", "first"}},
        {{"kind", "EVENT"}, {"summary", "timeless"}},
        {{"kind", "EVENT"}, {"start", "20040516T080000Z"}, {"summary", "third"}}});
  Open();
  EXPECT_EQ(all.Rows(), 2);
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(LastBox(), FillPlaceholders(Error(text::error::kEntryTime), {u"timeless"}));
  EXPECT_EQ(lists.phoneAppointments->Count(), 3) << "the list takes it as it is";
}

TEST_F(CalendarPageTest, AStampThatIsNoneKeepsTheListAsItWas) {
  FillSample();
  Open();
  Fill({{{"kind", "EVENT"}, {"start", "20040515T080000Z"}, {"summary", "first"}},
        {{"kind", "EVENT"}, {"start", "2004-05-16"}, {"summary", "odd"}}});
  Press("Refresh");
  Tick(session.Timer1);
  EXPECT_EQ(all.Rows(), 2);
  EXPECT_EQ(LastBox(), FillPlaceholders(Error(text::error::kEntryTime), {u"odd"}));
  EXPECT_EQ(lists.phoneAppointments->Count(), 3);
  EXPECT_FALSE(CanPress("Sync"));
}

TEST_F(CalendarPageTest, ACalendarThatCannotBeReadLeavesThePage) {
  FillSample();
  Open();
  for (const char* object : {"telecom/cal/luid/0.log", "telecom/cal.vcs"}) {
    host.boxes.clear();
    Refuse(ObexOperation::Get, {.object = object});
    Press("Refresh");
    Tick(session.Timer1);
    ASSERT_EQ(host.boxes.size(), 1u) << object;
    EXPECT_EQ(LastBox(), Error(text::error::kReadCalendar));
    EXPECT_EQ(all.Rows(), 4);
    Tick(session.Timer1);
    EXPECT_EQ(PanelText(panel::kBattery), u"85%") << "the line takes commands again";
  }
}

TEST_F(CalendarPageTest, DeletesTheTickedRowsAndReadsAnew) {
  FillSample();
  Open();
  TickRow(all, 1, kAllColumns);
  TickRow(all, 3, kAllColumns);
  Press("Delete");
  Tick(session.Timer1);
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(LastBox(), Prompt(text::prompt::kEventsDeleted));
  ASSERT_EQ(Events().size(), 2u);
  EXPECT_EQ(all.Rows(), 4) << "the reading anew brings the rows";
  Tick(session.Timer1);
  EXPECT_EQ(all.Rows(), 2);
  EXPECT_EQ(all.Cell(1, kAllColumns.luid).text, u"000200000003");
  EXPECT_EQ(lists.phoneAppointments->Count(), 1);
}

TEST_F(CalendarPageTest, ADeleteThatFailsLeavesTheListAndTheLine) {
  FillSample();
  Open();
  for (int row : {1, 2, 3}) TickRow(all, row, kAllColumns);
  Refuse(ObexOperation::Delete, {.skip = 1});
  Press("Delete");
  Tick(session.Timer1);
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(LastBox(), Error(text::error::kDeleteEvent));
  EXPECT_EQ(Events().size(), 3u) << "the first went, the second was refused, no third was tried";
  EXPECT_EQ(lists.phoneAppointments->Count(), 3);
  EXPECT_EQ(all.Rows(), 4);
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  Tick(session.Timer1);
  EXPECT_EQ(PanelText(panel::kBattery), u"85%") << "the line takes commands again";

  settings.With([](auto& behaviour) { behaviour.refusedOperations.clear(); });
  Press("Delete");
  Tick(session.Timer1);
  EXPECT_EQ(LastBox(), Prompt(text::prompt::kEventsDeleted)) << "the first is not asked for again";
  EXPECT_EQ(Events().size(), 1u);
}

TEST_F(CalendarPageTest, WhatWasTickedAtThePressIsDeleted) {
  FillSample();
  Open();
  TickRow(all, 3, kAllColumns);
  bool isOpened = false;
  host.WhenShown("frmAddEvent", [&](Window& window) {
    isOpened = true;
    ScriptedHost::Press(window, "Command2");
  });
  Press("Delete");
  host.RunEvent([this] { all.activated(); });
  Press("Edit");
  EXPECT_FALSE(isOpened) << "an entry that is about to go";
  ChooseView(CalendarView::Month);
  ChooseView(CalendarView::Day);
  Tick(session.Timer1);
  ASSERT_EQ(Events().size(), 3u);
  EXPECT_EQ(OnPhone(2, "summary"), "Über\nMitternacht");
}

TEST_F(CalendarPageTest, ALostPhoneTakesItsEntriesAlong) {
  FillSample();
  Open();
  TickRow(all, 1, kAllColumns);
  port.levels = {linkport::kNoBatteryLevel, linkport::kNoBatteryLevel, linkport::kNoBatteryLevel};
  Tick(session.Timer1);
  EXPECT_EQ(session.statusPhase, kNoPhone);
  EXPECT_FALSE(session.frmAllEvent.visible);
  EXPECT_TRUE(page.CalendarRecords().empty());
  ChooseView(CalendarView::Month);
  EXPECT_FALSE(session.frmMonthlyEvent.visible);
  host.RequestEnd();
  EXPECT_EQ(std::count(std::istreambuf_iterator<char>(
                           std::ifstream(folder.Path() / "app/Cal/CalendarMobile.dat").rdbuf()),
                       {}, '\n'),
            3)
      << "the list is saved all the same";
}

}  // namespace
}  // namespace tessarin
