#pragma once

// The rows and columns of the calendar synchronisation's panes.

#include "calendar/clsT610AppointList.h"
#include "controls/ListView.h"
#include "outlook/clsOutAppointList.h"

namespace tessarin {

std::vector<ListColumn> AppointColumns(const Language& language);
// A row's key is "Item" and field 1.
std::vector<ListRow> AppointRows(const clsT610AppointList& list);
// A row's key is the EntryID.
std::vector<ListRow> OutlookAppointRows(const clsOutAppointList& list);

// What follows "Item" in the key of a row of the list.
Text MobileIdInAppointKey(const std::string& key);

}  // namespace tessarin
