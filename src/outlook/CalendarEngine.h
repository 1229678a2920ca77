#pragma once

// The engine of the calendar synchronisation: one pass over the rows of a pane. Nothing is ever
// deleted, and nothing is taken back: what was done before a failure stays done.

#include <functional>

#include "outlook/SyncRun.h"
#include "outlook/clsOutAppointList.h"

namespace tessarin {

class CalendarEngine {
 public:
  // All must outlive the engine.
  struct Needs {
    WindowHost& host;
    const Language& language;
    SyncProgress& progress;
    // Writes an entry to the phone, as a new one when it has no identifier. Answers "-1" when that
    // failed, and for a new entry its identifier.
    std::function<Text(clsT610Appoint& entry)> writeToPhone;
  };
  explicit CalendarEngine(Needs needs) : needs_(std::move(needs)) {}

  bool twoWay = false;

  // Each walks the rows of `pane`, which shows the source, and tells what became of them. In a
  // two-way run all rows are walked, and the later of two entries wins; else the selected ones, and
  // a question decides. Faults of Outlook's rise.
  SyncCount SyncPhoneToOutlook(clsT610AppointList& list, clsOutAppointList& outlookAppoints,
                               const ListView& pane);
  SyncCount SyncOutlookToPhone(clsOutAppointList& outlookAppoints, clsT610AppointList& list,
                               const ListView& pane);

 private:
  struct Side {
    Text subject, time;
  };
  // Whether the source takes the place of the destination.
  bool Replaces(const Side& source, const Side& destination);
  bool Ask(const Side& replaced, const Side& replacing);
  void ToOutlook(clsT610Appoint& entry, clsOutAppointList& outlookAppoints);
  void ToPhone(clsOutAppoint& appoint, clsT610AppointList& list);

  Needs needs_;
  SyncCount count_;
};

}  // namespace tessarin
