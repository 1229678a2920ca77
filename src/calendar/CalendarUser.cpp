// What the user does in the Calendar page's grids.
#include "calendar/CalendarPage.h"
#include "calendar/FlexGrid.h"
#include "calendar/MonthSheet.h"

namespace tessarin {

void CalendarPage::ListClicked() {
  const ShownList list = FrontList();
  if (list.grid == nullptr || list.grid->CurrentRow() < 1) return;
  if (list.grid->CurrentColumn() == list.columns.tick) FlipCurrentTick();
  const auto cell = [&list](int column) {
    return list.grid->Cell(list.grid->CurrentRow(), column).text;
  };
  session_.StatusBar1.SetText(panel::kPage,
                              cell(list.columns.date) + u" " + cell(list.columns.subject));
}

void CalendarPage::FlipCurrentTick() {
  const ShownList list = FrontList();
  FlipTick(*list.grid, list.grid->CurrentRow(), list.columns.tick, session_.language());
  session_.UpdateActions();
}

// Opens the entry; in the tick's column a double click is two clicks.
void CalendarPage::ListActivated() {
  const ShownList list = FrontList();
  if (list.grid == nullptr || list.grid->CurrentRow() < 1) return;
  if (list.grid->CurrentColumn() == list.columns.tick) return;
  EditCalendarEntry(list.grid->Cell(list.grid->CurrentRow(), list.columns.luid).text);
}

void CalendarPage::DayChosen() {
  const MonthSheet sheet(navigator_.Year(), navigator_.Month());
  const Grid& grid = session_.MSHFlexGrid2;
  const int day = sheet.DayAt(grid.CurrentRow(), grid.CurrentColumn());
  MoveTo([&] {
    if (day == 0) return;
    navigator_.Choose(modDate::PackDate(navigator_.Year(), navigator_.Month(), day));
    session_.ViewMode.Select(static_cast<int>(CalendarView::Day));
  });
}

// Up and down go through the entries; in the day's list the other keys go through the days.
bool CalendarPage::ListKey(GridKey key) {
  if (key == GridKey::Space) {
    const ShownList list = FrontList();
    if (list.grid != nullptr && list.grid->CurrentRow() > 0) FlipCurrentTick();
    return true;
  }
  const bool isRowKey = key == GridKey::Up || key == GridKey::Down;
  return session_.frmDailyEvent.visible && !isRowKey && NavigationKey(key);
}

bool CalendarPage::SheetKey(GridKey key) {
  constexpr int kWeek = 7;
  if (key == GridKey::Up || key == GridKey::Down) {
    MoveTo([&] { navigator_.MoveDays(key == GridKey::Up ? -kWeek : kWeek); });
    return true;
  }
  return NavigationKey(key);
}

bool CalendarPage::NavigationKey(GridKey key) {
  switch (key) {
    case GridKey::Left:
    case GridKey::Right:
      MoveTo([&] { navigator_.MoveDays(key == GridKey::Left ? -1 : 1); });
      return true;
    case GridKey::PageUp:
    case GridKey::PageDown:
      MoveTo([&] { navigator_.MoveMonths(key == GridKey::PageUp ? -1 : 1); });
      return true;
    case GridKey::Home:
      Today();
      return true;
    default:
      return false;
  }
}

}  // namespace tessarin
