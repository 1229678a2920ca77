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
  // Writes the list, if there is one. What could not be written is joined to the next list, since
  // it exists nowhere else.
  void Save();

  void Unloading() override;

 private:
  std::shared_ptr<clsT610Appoint> AppointOf(const CalendarRecord& record) const;
  // Joins the list with the file, and then with lines that are newer than the file.
  void Join(const std::vector<std::string>& newer);
  // The lines of the entries that are linked to Outlook's.
  std::vector<std::string> LinkedLines() const;
  // What the file is to hold behind the entries: lines that a damaged one has hidden, as far as
  // they tell of a link that the list lacks, and at the end, where they hide nothing, damaged ones.
  std::vector<std::string> KeptLines() const;

  const modFile& files_;
  const Language& language_;
  const Clock& clock_;
  std::vector<std::string> unreadLines_;  // of the file, from a damaged one on
  bool isHidden_ = false;                 // the file was there and could not be read
  bool isSaved_ = true;                   // nothing is in the list that the file should hold
};

}  // namespace tessarin
