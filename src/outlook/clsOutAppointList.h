#pragma once

// The appointments of Outlook's default folder.

#include "outlook/OutlookList.h"
#include "outlook/clsOutAppoint.h"

namespace tessarin {

inline const Text& EntryIdOf(const clsOutAppoint& appoint) { return appoint.AItem->EntryID(); }

class clsOutAppointList : public OutlookList<clsOutAppoint> {
 public:
  explicit clsOutAppointList(const OutlookNeeds& needs)
      : OutlookList(needs, outlook::kCalendarFolder) {}

  // Adds the folder's appointments to the list, a recurring one once. Items of other classes, such
  // as to-dos, are left out.
  void LoadOutlookAppoint();
  // Writes the entry into the item at `index`; field 2 becomes the item's time.
  void UpdateOutlookAppoint(clsT610Appoint& appoint, int index);
  // Makes a new item of the entry and links the entry to it: fields 0 and 2 become the item's
  // identity and time.
  void AddOutlookAppoint(clsT610Appoint& appoint);
};

}  // namespace tessarin
