#include "calendar/CalendarPage.h"

#include <algorithm>

#include "calendar/FlexGrid.h"
#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

CalendarPage::CalendarPage(TessarinMenu& session, const PhoneLink& link,
                           frmSplashTransmission& busyWindow, CalendarLists& lists)
    : session_(session),
      link_(link),
      busyWindow_(busyWindow),
      lists_(lists),
      navigator_(session, [this] { MoveTo([] {}); }),
      views_(session, navigator_),
      editor_(session, link) {
  session_.jobs().Set(job::kLoadCalendar, [this] { Load(); });
  session_.jobs().Set(job::kDeleteEvents, [this] { DeleteTicked(); });
  busyWindow_.workers().Set(worker::kCalendarLoading, [this] { calendarLoading(); });
  PrepareControls();
}

void CalendarPage::PrepareControls() {
  for (Panel* frame : {&session_.frmAllEvent, &session_.frmMonthlyEvent, &session_.frmDailyEvent}) {
    frame->visible = false;
  }
  session_.lblNoEntries.visible = false;
  session_.ViewMode.clicked.Always([this] { ShowRecords(); });
  session_.cmdToday.clicked.Always([this] { Today(); });
  for (Grid* list : {&session_.MSHFlexGrid1, &session_.MSHFlexGrid3}) {
    list->wholeRows = true;
    list->clicked.Always([this] { ListClicked(); });
    list->activated.Always([this] { ListActivated(); });
    list->keyPressed = [this](GridKey key) { return ListKey(key); };
  }
  session_.MSHFlexGrid3.contextMenuRequested.Always(
      [this] { session_.MainMenu.PopUp("mnuClickCalendar"); });
  Grid& sheet = session_.MSHFlexGrid2;
  sheet.fillsPlace = true;
  sheet.font = GridFont{"Arial", 12, true};
  sheet.clicked.Always([this] { DayChosen(); });
  sheet.activated.Always([this] { DayChosen(); });
  sheet.keyPressed = [this](GridKey key) { return SheetKey(key); };
}

void CalendarPage::ApplyTexts() {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  auto& choice = session_.ViewMode;
  const int selected = std::max(choice.Selected(), 0);
  choice.Clear();
  for (int view = 0; view < 3; ++view) choice.Add(word(words::kViewNames + view));
  choice.Select(selected);
  choice.accessibleName = word(words::kView);
  Panel* const frames[] = {&session_.frmAllEvent, &session_.frmMonthlyEvent,
                           &session_.frmDailyEvent};
  for (int view = 0; Panel * frame : frames) {
    frame->accessibleName = word(words::kViewNames + view++);
  }
  session_.cmdToday.caption = word(words::kToday);
  session_.lblNoEntries.text = word(words::kNoEntries);
  session_.MSHFlexGrid2.accessibleName = word(words::kNameMonthSheet);
  session_.MSHFlexGrid3.accessibleName = word(words::kNameDayEntries);
  const bool isViewShown = session_.frmAllEvent.visible || session_.frmMonthlyEvent.visible ||
                           session_.frmDailyEvent.visible;
  if (isViewShown) {
    views_.ShowView();
  } else {
    views_.Hide();
  }
}

void CalendarPage::PhoneLost() {
  loaded_ = syncable_ = false;
  records_.clear();
  views_.Take(records_);
  views_.Hide();
  session_.lblNoEntries.visible = false;
}

void CalendarPage::Show() { session_.commandState = job::kLoadCalendar; }

bool CalendarPage::CanDo(std::string_view action) const {
  if (session_.statusPhase != kPhonePresent) return false;
  if (action == "New" || action == "Refresh") return true;
  if (action == "Delete") return !TickedRows().empty();
  if (action == "Edit") return TickedRows().size() == 1;
  return action == "Sync" && syncable_ && sync_ != nullptr;
}

void CalendarPage::Do(std::string_view action) {
  if (action == "New") NewEvent();
  if (action == "Refresh") session_.commandState = job::kLoadCalendar;
  if (action == "Delete") {
    toDelete_ = TickedLuids();
    session_.commandState = job::kDeleteEvents;
  }
  if (action == "Sync") sync_();
  if (action != "Edit") return;
  EditCalendarEntry(TickedLuids().front());
}

CalendarPage::ShownList CalendarPage::FrontList() const {
  if (session_.frmAllEvent.visible) return {&session_.MSHFlexGrid1, kAllColumns};
  if (session_.frmDailyEvent.visible) return {&session_.MSHFlexGrid3, kDayColumns};
  return {nullptr, {}};
}

std::vector<int> CalendarPage::TickedRows() const {
  const ShownList list = FrontList();
  std::vector<int> rows;
  for (int row = 1; list.grid != nullptr && row < list.grid->Rows(); ++row) {
    if (IsTicked(*list.grid, row, list.columns.tick)) rows.push_back(row);
  }
  return rows;
}

std::vector<Text> CalendarPage::TickedLuids() const {
  const ShownList list = FrontList();
  std::vector<Text> luids;
  for (const int row : TickedRows()) {
    luids.push_back(list.grid->Cell(row, list.columns.luid).text);
  }
  return luids;
}

void CalendarPage::NewEvent() {
  editor_.initializeForm();
  editor_.Show(Modality::Modal);
}

// Rows that are about to be read anew or deleted show what the phone no longer holds.
void CalendarPage::EditCalendarEntry(TextView luid) {
  const int waiting = session_.commandState;
  if (waiting == job::kLoadCalendar || waiting == job::kDeleteEvents) return;
  const auto record = std::find_if(
      records_.begin(), records_.end(),
      [luid](const CalendarRecord& candidate) { return candidate.Luid.Trimmed() == luid; });
  if (record == records_.end()) return;
  editor_.initializeForm();
  try {
    editor_.Fill(*record);
  } catch (const ConversionError&) {
    return TellUnreadable(*record);
  }
  editor_.Show(Modality::Modal);
}

void CalendarPage::TellUnreadable(const CalendarRecord& record) {
  const Text summary = record.Summary.Trimmed();
  const Text& message = session_.language().getTSErrStr(text::error::kEntryTime);
  session_.host().MessageBox(
      FillPlaceholders(message, {summary.empty() ? record.Luid.Trimmed() : summary}),
      MessageKind::Error);
}

void CalendarPage::ShowRecords() {
  if (!loaded_) return;
  session_.lblNoEntries.visible = false;
  views_.ShowView();
  session_.UpdateActions();
  if (views_.unreadable() != nullptr) TellUnreadable(*views_.unreadable());
}

void CalendarPage::MoveTo(const std::function<void()>& move) {
  move();
  if (!loaded_) return;
  views_.ShowView();
  session_.UpdateActions();
}

void CalendarPage::Today() {
  MoveTo([this] { navigator_.Choose(session_.clock().Now()); });
}

}  // namespace tessarin
