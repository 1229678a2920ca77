#pragma once

// The Calendar page: reads the phone's calendar, shows it in one of three views, and changes it by
// the rows that are ticked.

#include <functional>

#include "calendar/CalendarLists.h"
#include "calendar/CalendarNavigator.h"
#include "calendar/CalendarViews.h"
#include "calendar/frmAddEvent.h"
#include "core/Page.h"
#include "core/PageTable.h"
#include "core/PhoneLink.h"
#include "files/frmSplashTransmission.h"

namespace tessarin {

class CalendarPage : public Page {
 public:
  // Puts its jobs and its worker into the tables. All must outlive the page.
  CalendarPage(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow,
               CalendarLists& lists);

  int panel() const override { return kCalendarPanel; }
  void Show() override;
  bool CanDo(std::string_view action) const override;
  std::string_view DeletionIn(const Control& control) const override {
    return &control == FrontList().grid ? "Delete" : std::string_view();
  }
  void Do(std::string_view action) override;
  void PhoneFound() override { editor_.PhoneFound(); }
  void PhoneLost() override;
  void ApplyTexts() override;

  // What the "Sync" button opens. Until it is set the button stays disabled.
  void SetSync(std::function<void()> sync) { sync_ = std::move(sync); }

  // The calendar as it was last read.
  const std::vector<CalendarRecord>& CalendarRecords() const { return records_; }
  frmAddEvent& editor() { return editor_; }

 private:
  // The list in front and its columns; null for the month sheet.
  struct ShownList {
    Grid* grid;
    ListColumns columns;
  };
  ShownList FrontList() const;
  std::vector<int> TickedRows() const;
  std::vector<Text> TickedLuids() const;

  // Job and worker that read the calendar.
  void Load();
  void calendarLoading();
  bool ReadCalendar(Text& calendarText, int& count);
  // False, with a message, when an entry cannot be read; those before it are shown.
  bool Decode(const Text& calendarText, int count, std::vector<CalendarRecord>& records);
  void TellUnreadable(const CalendarRecord& record);
  // Shows the records in the view that is chosen, and tells when some of them cannot be shown.
  void ShowRecords();

  // Job that deletes the rows that were ticked when it was asked for.
  void DeleteTicked();
  // False, the session being open, when the phone refused; true when nothing more is to be closed.
  bool deletecalnote();
  bool DeleteOnPhone(TextView luid);
  // Takes the tick off a row that is gone from the phone.
  void Untick(TextView luid);

  void NewEvent();
  void EditCalendarEntry(TextView luid);

  void PrepareControls();
  void ListClicked();
  void ListActivated();
  void FlipCurrentTick();
  void DayChosen();
  bool ListKey(GridKey key);
  bool SheetKey(GridKey key);
  bool NavigationKey(GridKey key);
  // Shows the view anew after the selectors were moved.
  void MoveTo(const std::function<void()>& move);
  void Today();

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashTransmission& busyWindow_;
  CalendarLists& lists_;
  CalendarNavigator navigator_;
  CalendarViews views_;
  frmAddEvent editor_;
  std::function<void()> sync_;
  std::vector<CalendarRecord> records_;
  std::vector<Text> toDelete_;  // LUIDs; the view may be another one when the job runs
  bool loaded_ = false;         // in this connection
  bool syncable_ = false;       // the list is that of the phone
};

}  // namespace tessarin
