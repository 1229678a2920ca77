#pragma once

// The rows and columns of the contacts synchronisation's panes.

#include "controls/ListView.h"
#include "core/Language.h"
#include "outlook/clsOutContactList.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

// The 23 columns. The first, which tells the memory, is seen for the phone alone.
std::vector<ListColumn> ContactColumns(const Language& language, bool isPhone, bool isOutlook);

// A row's key is "Item-", the position in the list from 1, "-" and field 1.
std::vector<ListRow> ContactRows(const clsT610ContactList& list, const Language& language);
// A row's key is the EntryID.
std::vector<ListRow> OutlookRows(const clsOutContactList& list);

// Elements 1 and 2 of the key of a list's row. 65535 and empty text where there is none.
int PositionInKey(const std::string& key);
Text MobileIdInKey(const std::string& key);

// What the overwrite question shows of a contact: name, numbers and time of change, one a line.
Text FactsOf(const clsT610Contact& contact, const Language& language);
Text FactsOf(const clsOutlookContact& contact, const Language& language);

}  // namespace tessarin
