#include "outlook/frmCalendarSync.h"

#include "core/TextIndex.h"
#include "outlook/CalendarSyncRows.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr int kPhonePane = 0, kOutlookPane = 1;
constexpr int kFirstDateColumn = 3;  // counted from 0; the last column is one too

}  // namespace

frmCalendarSync::frmCalendarSync(Needs needs)
    : SyncDialog(
          needs.session, needs.busyWindow, "frmCalendarSync",
          {job::kCalendarSync, worker::kCalendarSync, words::kWorkCalendarSync,
           words::kCalendarSyncSelectAll, words::kCalendarSyncRun, words::kCalendarSyncCancel}),
      needs_(std::move(needs)),
      engine_({session_.host(), session_.language(), progress_, needs_.writeToPhone}) {}

void frmCalendarSync::FormLoad() {
  caption = Word(words::kCalendarSyncTitle);
  lblMobile.text = Word(words::kCalendarSyncPhone);
  lblOutlook.text = Word(words::kCalendarSyncOutlook);
  ApplySyncWords();
  phoneWasLost_ = false;
  progress_.End();
  ClearResults();
  outlookAppoints_ = std::make_unique<clsOutAppointList>(
      OutlookNeeds{needs_.automation, session_.host(), session_.language()});
  outlookAppoints_->LoadOutlookAppoint();
  for (ListView& pane : lvwLocation) pane.columns = AppointColumns(session_.language());
  FillAppointRows();
  FillOutlookAppointRows();
  EnableControls(true);
}

// The calendar page loads anew from the phone.
void frmCalendarSync::FormUnload() {
  needs_.lists.Save();
  outlookAppoints_.reset();
  session_.commandState = job::kLoadCalendar;
  session_.Refresh();
}

void frmCalendarSync::EnableControls(bool enabled) {
  EnableCommands(enabled && MayRun());
  EnableTickBoxes(enabled);
  cmdCancel.enabled = enabled;
}

// A folder that could not be read seems to lack what it has: all of that would be added again.
bool frmCalendarSync::MayRun() const {
  return IsLoaded() && !phoneWasLost_ && !outlookAppoints_->LoadFailed();
}

void frmCalendarSync::PhoneLost() {
  phoneWasLost_ = true;
  if (IsLoaded()) EnableControls(true);
}

void frmCalendarSync::FillAppointRows() {
  const auto& list = needs_.lists.phoneAppointments;
  FillPane(kPhonePane, list == nullptr ? std::vector<ListRow>() : AppointRows(*list));
}

void frmCalendarSync::FillOutlookAppointRows() {
  FillPane(kOutlookPane, OutlookAppointRows(*outlookAppoints_));
}

void frmCalendarSync::ColumnClicked(int pane, int column) {
  SortPane(pane, column, column >= kFirstDateColumn);
}

bool frmCalendarSync::AskTwoWay() {
  const Text& prompt = session_.language().getTSPromptStr(text::prompt::kSyncWithOutlook);
  return session_.host().MessageBox(prompt, MessageKind::Question, MessageButtons::OkCancel) ==
         Answer::Ok;
}

// The panes are filled anew only after both passes: what the first one added to Outlook has no row
// yet, so it cannot come back in the second.
void frmCalendarSync::CalendarSync() {
  EnableControls(false);
  ClearResults();
  progress_.Begin();
  const bool finished = (!engine_.twoWay && toLeft()) || PhoneToOutlook();
  if (finished && (engine_.twoWay || toLeft())) OutlookToPhone();
  progress_.End();
  needs_.lists.Save();  // the links that it made are nowhere else
  FillAppointRows();
  FillOutlookAppointRows();
  EnableControls(true);
  cmdCancel.caption = Word(words::kBack);
}

bool frmCalendarSync::PhoneToOutlook() {
  const auto pass = [this] {
    engine_.SyncPhoneToOutlook(*needs_.lists.phoneAppointments, *outlookAppoints_,
                               Pane(kPhonePane));
  };
  return RunPass(kOutlookPane, lblOutlook.text, pass, engine_.count());
}

void frmCalendarSync::OutlookToPhone() {
  const auto pass = [this] {
    engine_.SyncOutlookToPhone(*outlookAppoints_, *needs_.lists.phoneAppointments,
                               Pane(kOutlookPane));
  };
  RunPass(kPhonePane, lblMobile.text, pass, engine_.count());
}

}  // namespace tessarin
