// The Calendar page's work with the phone.
#include <cstdint>
#include <limits>

#include "calendar/CalendarPage.h"
#include "calendar/FlexGrid.h"
#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

// Entries are counted in 16 bits.
constexpr int kMostEntries = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t kLuidLength = decltype(CalendarRecord::Luid)::size();

}  // namespace

void CalendarPage::Load() {
  busyWindow_.PhoneToPc(worker::kCalendarLoading,
                        session_.language().getTSInterfaceStr(text::interface_::kWorkCalendar));
  busyWindow_.Work();
  session_.SetCommandIdle();
}

void CalendarPage::calendarLoading() {
  Text calendarText;
  int count = 0;
  if (!ReadCalendar(calendarText, count) || count > kMostEntries) {
    return session_.ShowError(text::error::kReadCalendar);
  }
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
  records.resize(static_cast<std::size_t>(count));
  try {
    vcard::DecodeVCalendars(calendarText, static_cast<std::int16_t>(count), records,
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
  if (!deletecalnote()) link_.obex.EndOBEXSession();
}

// The same words are shown when no session came about; the calendar, read again, shows what is
// there.
bool CalendarPage::deletecalnote() {
  std::string connectionId;
  link_.obex.EndOBEXSession();
  if (link_.obex.ConnectIrmcSync(connectionId)) {
    for (std::size_t done = 0; done < toDelete_.size(); ++done) {
      if (DeleteOnPhone(toDelete_[done])) continue;
      for (std::size_t gone = 0; gone < done; ++gone) Untick(toDelete_[gone]);
      session_.ShowError(text::error::kDeleteEvent);
      return false;
    }
  }
  link_.obex.EndOBEXSession();
  session_.host().MessageBox(session_.language().getTSPromptStr(text::prompt::kEventsDeleted));
  session_.commandState = job::kLoadCalendar;
  return true;
}

// The packet's lengths are those of twelve characters; with others the phone would wait for more
// than comes, and the program for the phone.
bool CalendarPage::DeleteOnPhone(TextView luid) {
  return luid.size() == kLuidLength && link_.irmc.DeleteCalendarEntry(luid);
}

// Another press of the button then begins with what is there still.
void CalendarPage::Untick(TextView luid) {
  const ShownList list = FrontList();
  for (const int row : TickedRows()) {
    if (list.grid->Cell(row, list.columns.luid).text != luid) continue;
    FlipTick(*list.grid, row, list.columns.tick, session_.language());
  }
  session_.UpdateActions();
}

}  // namespace tessarin
