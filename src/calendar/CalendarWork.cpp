// The Calendar page's work with the phone.
#include <algorithm>
#include <limits>

#include "calendar/CalendarPage.h"
#include "calendar/FlexGrid.h"
#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

void CalendarPage::Load() {
  busyWindow_.PhoneToPc(worker::kCalendarLoading,
                        session_.language().getTSInterfaceStr(text::interface_::kWorkCalendar));
  busyWindow_.Work();
  session_.SetCommandIdle();
}

void CalendarPage::calendarLoading() {
  Text calendarText;
  int count = 0;
  if (!ReadCalendar(calendarText, count)) return session_.ShowError(text::error::kReadCalendar);
  std::vector<CalendarRecord> records;
  bool isWhole = true;
  try {
    isWhole = Decode(calendarText, count, records);
  } catch (const BoundsError&) {
    // Half a calendar in the list would pass for one whose other half was deleted.
    return session_.ShowError(text::error::kReadCalendar);
  }
  records_ = std::move(records);
  views_.Take(records_);
  loaded_ = true;
  if (count == 0) {
    views_.ShowNone();
    session_.lblNoEntries.visible = true;
  } else {
    ShowRecords();
  }
  if (isWhole) lists_.Rebuild(records_);
  syncable_ = isWhole;
  session_.UpdateActions();
}

bool CalendarPage::ReadCalendar(Text& calendarText, int& count) {
  std::string connectionId;
  int maxRecords = 0;
  link_.obex.EndOBEXSession();
  const bool isRead = link_.obex.ConnectIrmcSync(connectionId) &&
                      link_.irmc.ReadCalendarObject(count, calendarText, maxRecords);
  link_.obex.EndOBEXSession();
  return isRead;
}

bool CalendarPage::Decode(const Text& calendarText, int count,
                          std::vector<CalendarRecord>& records) {
  const int most = std::numeric_limits<std::int16_t>::max();
  records.resize(static_cast<std::size_t>(std::min(count, most)));
  try {
    vcard::DecodeVCalendars(calendarText, static_cast<std::int16_t>(records.size()), records,
                            session_.clock());
  } catch (const vcard::EntryTimeError& fault) {
    TellUnreadable(records[fault.entry()]);
    records.resize(fault.entry());
    return false;
  }
  return true;
}

// A session that the phone left in the middle of the work is closed all the same: between ticks
// the line takes AT commands.
void CalendarPage::DeleteTicked() {
  session_.SetCommandIdle();
  const ShownList list = FrontList();
  if (list.grid != nullptr && !deletecalnote(*list.grid)) link_.obex.EndOBEXSession();
}

// The same words are shown when no session came about; the calendar, read again, shows what is
// there.
bool CalendarPage::deletecalnote(Grid& grid) {
  const ListColumns columns = &grid == &session_.MSHFlexGrid1 ? kAllColumns : kDayColumns;
  std::string connectionId;
  link_.obex.EndOBEXSession();
  if (link_.obex.ConnectIrmcSync(connectionId)) {
    for (int row = 1; row < grid.Rows(); ++row) {
      if (!IsTicked(grid, row, columns.tick)) continue;
      if (!link_.irmc.DeleteCalendarEntry(grid.Cell(row, columns.luid).text)) {
        session_.ShowError(text::error::kDeleteEvent);
        return false;
      }
    }
  }
  link_.obex.EndOBEXSession();
  session_.host().MessageBox(session_.language().getTSPromptStr(text::prompt::kEventsDeleted));
  session_.commandState = job::kLoadCalendar;
  return true;
}

}  // namespace tessarin
