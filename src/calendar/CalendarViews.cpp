#include "calendar/CalendarViews.h"

#include <array>
#include <cmath>

#include "calendar/FlexGrid.h"
#include "calendar/MonthSheet.h"
#include "calendar/clsT610Appoint.h"
#include "codecs/Faults.h"
#include "core/PageTable.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr int kNoHead = -1;
constexpr CellColour kHeader{16764057, 0x5B4632};  // FFCC99 in the light theme
constexpr CellColour kSheet{0xFFFFFF, 0x1A1D23};
constexpr CellColour kHasEntries{0xFFF0D6, 0x3D3426};

Text DatePart(DateValue value) { return modDate::FormatDateText(value).substr(0, 10); }
Text TimePart(DateValue value) { return modDate::FormatDateText(value).substr(11); }

// "hh:mm" of a date text; empty when it does not read, as with an event that has no end.
Text ShortTime(const Text& dateText) {
  try {
    return TimePart(modDate::ReadSystemDate(dateText)).substr(0, 5);
  } catch (const ConversionError&) {
    return {};
  }
}

// One line for a cell: line breaks become blanks.
Text OneLine(const Text& text) { return Replace(Replace(text, u"\r\n", u" "), u"\n", u" "); }

// A category that has no word of its own is shown as the phone names it.
Text CategoryWord(const CalendarRecord& record, const Language& language) {
  const Text category = record.Category.Trimmed();
  const auto place = static_cast<std::size_t>(clsT610Appoint::TypeOfPhoneCategory(category) - 1);
  return category == kPhoneCategories[place] ? CategoryWords(language)[place] : category;
}

}  // namespace

void CalendarViews::Take(const std::vector<CalendarRecord>& records) {
  entries_.clear();
  unreadable_ = nullptr;
  for (const CalendarRecord& record : records) {
    if (!IsEvent(record)) continue;
    try {
      entries_.push_back({&record, modDate::ReadSystemDate(record.StartTime.Trimmed())});
    } catch (const ConversionError&) {
      unreadable_ = &record;
      return;
    }
  }
}

void CalendarViews::ShowView() {
  switch (CalendarView{session_.ViewMode.Selected()}) {
    case CalendarView::All:
      getCalendarAllEvent();
      break;
    case CalendarView::Month:
      getCalendarMonthlyEvent();
      break;
    case CalendarView::Day:
      getCalendarDailyEvent();
      break;
  }
}

void CalendarViews::Hide() {
  for (Panel* frame : {&session_.frmAllEvent, &session_.frmMonthlyEvent, &session_.frmDailyEvent}) {
    frame->visible = false;
  }
  ShowPeriod(u"");
  navigator_.Enable(false, false);
}

void CalendarViews::ShowPeriod(Text period) {
  session_.lblPeriod.accessibleName = period.empty() ? Word(words::kView) : period;
  session_.lblPeriod.text = std::move(period);
}

void CalendarViews::ShowNone() {
  Hide();
  ShowCount(0);
}

// The frame that stands already is not hidden for a moment: it would lose the keys.
void CalendarViews::ShowFrame(CalendarView view) {
  const std::pair<Panel*, CalendarView> frames[] = {
      {&session_.frmAllEvent, CalendarView::All},
      {&session_.frmMonthlyEvent, CalendarView::Month},
      {&session_.frmDailyEvent, CalendarView::Day}};
  for (const auto& [frame, ofFrame] : frames) frame->visible = ofFrame == view;
  ShowPeriod(u"");
  navigator_.Enable(view != CalendarView::All, view == CalendarView::Day);
}

// The job that reads the calendar may run when another page is in front already.
void CalendarViews::ShowCount(std::size_t entries) {
  if (session_.panelInFront() != kCalendarPanel) return;
  const Text count = ToText(static_cast<long long>(entries));
  session_.StatusBar1.SetText(panel::kCount,
                              session_.language().Filled(words::kStatusEntries, {count}));
}

void CalendarViews::FillList(Grid& grid, const std::vector<int>& heads,
                             const std::vector<Entry>& entries,
                             std::vector<Text> (*textsOf)(const Entry&, const Language&),
                             ListColumns columns) {
  const Language& language = session_.language();
  const Grid::Update update(grid);
  grid.emptyText = Word(words::kNoEntries);
  grid.SetSize(static_cast<int>(entries.size()) + 1, static_cast<int>(heads.size()));
  for (int column = 0; int head : heads) {
    grid.SetText(0, column++, head == kNoHead ? Text() : Word(head));
  }
  for (int row = 1; const Entry& entry : entries) {
    for (int column = 0; Text & text : textsOf(entry, language)) {
      grid.SetText(row, column++, std::move(text));
    }
    grid.SetCell(row++, columns.tick, TickCell(false, language));
  }
  FlexGridColumnColor(grid, 1, grid.Columns() - 1);
  FG_AutosizeCols(grid);
  grid.SetColumnWidth(columns.luid, Grid::kHidden);
  ShowCount(entries.size());
}

// Column 4 tells of the record's spare number, which no phone's entry has.
void CalendarViews::getCalendarAllEvent() {
  ShowFrame(CalendarView::All);
  const auto textsOf = [](const Entry& entry, const Language& language) -> std::vector<Text> {
    return {u"",
            DatePart(entry.start),
            TimePart(entry.start),
            u"",
            u"",
            CategoryWord(*entry.record, language),
            OneLine(entry.record->Summary.Trimmed()),
            entry.record->Luid.Trimmed()};
  };
  FillList(session_.MSHFlexGrid1,
           {kNoHead, words::kColumnDate, words::kColumnTime, words::kColumnTick, kNoHead,
            words::kColumnCategory, words::kColumnSubject, kNoHead},
           entries_, textsOf, kAllColumns);
}

void CalendarViews::getCalendarDailyEvent() {
  ShowFrame(CalendarView::Day);
  const Text day = DatePart(navigator_.Date());
  std::vector<Entry> ofDay;
  for (const Entry& entry : entries_) {
    if (DatePart(entry.start) == day) ofDay.push_back(entry);
  }
  const auto textsOf = [](const Entry& entry, const Language&) -> std::vector<Text> {
    return {TimePart(entry.start).substr(0, 5),
            ShortTime(entry.record->EndTime.Trimmed()),
            u"",
            OneLine(entry.record->Summary.Trimmed()),
            OneLine(entry.record->Location.Trimmed()),
            entry.record->Luid.Trimmed(),
            DatePart(entry.start)};
  };
  FillList(session_.MSHFlexGrid3,
           {words::kEventStartTime, words::kEventEndTime, words::kColumnTick, words::kColumnSubject,
            words::kColumnLocation, kNoHead, words::kColumnDate},
           ofDay, textsOf, kDayColumns);
  const int weekday = MonthSheet(navigator_.Year(), navigator_.Month()).ColumnOf(navigator_.Day());
  ShowPeriod(Word(words::kDayNames + weekday) + u", " + day);
}

void CalendarViews::getCalendarMonthlyEvent() {
  ShowFrame(CalendarView::Month);
  const MonthSheet sheet(navigator_.Year(), navigator_.Month());
  std::array<int, 32> entriesOfDay{};
  std::size_t entriesOfMonth = 0;
  for (const Entry& entry : entries_) {
    const DateParts start = modDate::Unpack(entry.start);
    if (start.year != navigator_.Year() || start.month != navigator_.Month()) continue;
    ++entriesOfDay[static_cast<std::size_t>(start.day)];
    ++entriesOfMonth;
  }
  Grid& grid = session_.MSHFlexGrid2;
  const Grid::Update update(grid);
  grid.SetSize(sheet.Rows(), MonthSheet::kColumns);
  FillHeader();
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 0; column < MonthSheet::kColumns; ++column) {
      grid.SetBackground(row, column, kSheet);
    }
  }
  for (int day = 1; day <= sheet.days; ++day) {
    FillDay(day, entriesOfDay[static_cast<std::size_t>(day)]);
  }
  grid.SetCurrent(sheet.RowOf(navigator_.Day()), sheet.ColumnOf(navigator_.Day()));
  ShowPeriod(Word(words::kMonthNames + navigator_.Month() - 1) + u" " + ToText(navigator_.Year()));
  ShowCount(entriesOfMonth);
}

void CalendarViews::FillHeader() {
  for (int column = 0; column < MonthSheet::kColumns; ++column) {
    GridCell cell;
    cell.text = Word(words::kDayNames + column);
    cell.background = kHeader;
    cell.centred = true;
    session_.MSHFlexGrid2.SetCell(0, column, std::move(cell));
  }
}

void CalendarViews::FillDay(int day, int entries) {
  const MonthSheet sheet(navigator_.Year(), navigator_.Month());
  const DateValue date = modDate::PackDate(navigator_.Year(), navigator_.Month(), day);
  GridCell cell;
  cell.text = ToText(day);
  cell.framed = std::floor(session_.clock().Now()) == date;
  cell.background = entries > 0 ? kHasEntries : kSheet;
  if (entries > 0) cell.badge = ToText(entries);
  cell.description = Word(words::kDayNames + sheet.ColumnOf(day)) + u", " + DatePart(date);
  if (cell.framed) cell.description += u", " + Word(words::kToday);
  if (entries > 0) {
    cell.description +=
        u", " + session_.language().Filled(words::kStatusEntries, {ToText(entries)});
  }
  session_.MSHFlexGrid2.SetCell(sheet.RowOf(day), sheet.ColumnOf(day), std::move(cell));
}

}  // namespace tessarin
