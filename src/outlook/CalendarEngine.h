#pragma once

// The engine of the calendar synchronisation: one pass over the rows of a pane. Nothing is ever
// deleted, and nothing is taken back: what was done before a failure stays done.

#include <functional>

#include "outlook/SyncRun.h"
#include "outlook/clsOutAppointList.h"

namespace tessarin {

class CalendarEngine : public SyncEngine {
 public:
  // All must outlive the engine.
  struct Needs {
    WindowHost& host;
    const Language& language;
    SyncProgress& progress;
    // Writes an entry to the phone, as a new one when it has no identifier. Answers "-1" when the
    // phone refused it, empty text when no session came about, and for a new entry its identifier;
    // `written` becomes whether the phone took it.
    std::function<Text(clsT610Appoint& entry, bool& written)> writeToPhone;
  };
  explicit CalendarEngine(Needs needs)
      : SyncEngine(needs.host, needs.language, needs.progress), needs_(std::move(needs)) {}

  // Each walks the rows of `pane`, which shows the source. Where the user is asked, a box asks for
  // each entry. Faults of Outlook's rise.
  void SyncPhoneToOutlook(clsT610AppointList& list, clsOutAppointList& outlookAppoints,
                          const ListView& pane);
  void SyncOutlookToPhone(clsOutAppointList& outlookAppoints, clsT610AppointList& list,
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
  void AddToPhone(const OutlookFacts& facts, clsT610AppointList& list);

  Needs needs_;
};

}  // namespace tessarin
