#pragma once

// The three views of the Calendar page. They show the records as the phone gave them; tasks stand
// in none of them.

#include <vector>

#include "calendar/CalendarNavigator.h"
#include "codecs/vCalendar.h"
#include "core/TessarinMenu.h"

namespace tessarin {

// Rows of `ViewMode`.
enum class CalendarView { All, Month, Day };

// The columns of the two lists that the rest of the page works with.
struct ListColumns {
  int tick;
  int luid;
  int date;
  int subject;
};
inline constexpr ListColumns kAllColumns{3, 7, 1, 6};
inline constexpr ListColumns kDayColumns{2, 5, 6, 3};

inline bool IsEvent(const CalendarRecord& record) { return record.EntryType == u"EVENT"; }

class CalendarViews {
 public:
  // All must outlive this.
  CalendarViews(TessarinMenu& session, CalendarNavigator& navigator)
      : session_(session), navigator_(navigator) {}

  // Takes the events among the records, up to the first whose start does not read. `records` must
  // stay as it is until the next call.
  void Take(const std::vector<CalendarRecord>& records);
  // The event whose start does not read; it and those behind it are in no view. Null for none.
  const CalendarRecord* unreadable() const { return unreadable_; }

  // Shows the view that `ViewMode` tells.
  void ShowView();
  // Shows no view at all.
  void Hide();
  // The same for a calendar without entries.
  void ShowNone();

  // Each shows its frame, hides the others and fills its grid, in which nothing is ticked.
  void getCalendarAllEvent();
  void getCalendarMonthlyEvent();
  void getCalendarDailyEvent();

 private:
  struct Entry {
    const CalendarRecord* record;
    DateValue start;
  };

  void ShowFrame(CalendarView view);
  void ShowPeriod(Text period);
  void ShowCount(std::size_t entries);
  void FillList(Grid& grid, const std::vector<int>& heads, const std::vector<Entry>& entries,
                std::vector<Text> (*textsOf)(const Entry&, const Language&), ListColumns columns);
  void FillHeader();
  void FillDay(int day, int entries);
  Text Word(int index) const { return session_.language().getTSInterfaceStr(index); }

  TessarinMenu& session_;
  CalendarNavigator& navigator_;
  std::vector<Entry> entries_;
  const CalendarRecord* unreadable_ = nullptr;
};

}  // namespace tessarin
