#pragma once

// One appointment of Outlook's.

#include "calendar/clsT610AppointList.h"
#include "outlook/Outlook.h"

namespace tessarin {

class clsOutAppoint {
 public:
  // Stands for a new item, not yet saved. `automation` need not outlive the wrapper.
  explicit clsOutAppoint(outlook::Automation& automation);

  std::shared_ptr<outlook::AppointmentItem> AItem;  // never null

  // Writes the entry over the item, which becomes a single one, and saves it. An entry without an
  // alarm switches the reminder off; empty times leave those of the item. ConversionError for a
  // time that does not read.
  void UpdateByT610Appoint(const clsT610Appoint& appoint);
};

// What the calendar's list takes over from an item.
OutlookFacts FactsOf(const clsOutAppoint& appoint);

}  // namespace tessarin
