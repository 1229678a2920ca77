#pragma once

// What a calendar entry takes over from an appointment of Outlook's.

#include "codecs/Text.h"
#include "codecs/modDate.h"

namespace tessarin {

struct OutlookFacts {
  Text EntryID;
  DateValue LastModificationTime = 0.0;
  Text Categories;
  Text Subject;
  Text Location;
  DateValue Start = 0.0;
  DateValue End = 0.0;
  bool ReminderSet = false;
  long long ReminderMinutesBeforeStart = 0;
};

}  // namespace tessarin
