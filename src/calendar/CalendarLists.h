#pragma once

// The session's list of the phone's calendar entries and the file that keeps it between sessions.

#include <memory>
#include <vector>

#include "calendar/clsT610AppointList.h"
#include "codecs/modFile.h"
#include "codecs/vCalendar.h"
#include "core/Page.h"

namespace tessarin {

class CalendarLists : public SessionPart {
 public:
  // All must outlive the lists.
  CalendarLists(const modFile& files, const Language& language, const Clock& clock)
      : files_(files), language_(language), clock_(clock) {}

  // Null until the calendar was read for the first time.
  std::unique_ptr<clsT610AppointList> phoneAppointments;

  // Takes the place of the list: the events among the records, tasks being left out, joined with
  // what the file tells of them.
  void Rebuild(const std::vector<CalendarRecord>& records);
  // Writes the list, if there is one; not over a file that could not be read for it.
  void Save() const;

  void Unloading() override;

 private:
  std::shared_ptr<clsT610Appoint> AppointOf(const CalendarRecord& record) const;

  const modFile& files_;
  const Language& language_;
  const Clock& clock_;
  bool fileKnown_ = false;
};

}  // namespace tessarin
