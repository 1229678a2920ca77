#pragma once

// What is shown of a contact: its row in the list, its details, its numbers.

#include <vector>

#include "codecs/RichText.h"
#include "controls/ListView.h"
#include "core/Language.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

struct ContactLine {
  Text label;
  Text value;
};

// A row of `lvwPhonePhonebook`: key "Item" and the position in the mobile list, from 1; name,
// numbers, and the position in five digits. Of phone memory the numbers are those of home, work and
// mobile, each with its label.
ListRow ContactRow(const clsT610Contact& contact, int position, const Language& language);
// The rows of the contacts in one memory, "s" or "p", in the order of the list.
std::vector<ListRow> ContactRows(const clsT610ContactList& list, char16_t kind,
                                 const Language& language);
// Upper and lower case being equal; rows that are equal keep their order.
void SortRows(std::vector<ListRow>& rows, int column, bool ascending);
// The key of the row of the contact at that position, and the position that a row's key tells.
std::string KeyOf(int position);
int PositionOf(const ListRow& row);

// Name and number of a SIM entry; of a contact in phone memory every field with a text, states and
// countries excepted.
std::vector<ContactLine> ContactDetails(const clsT610Contact& contact, const Language& language);

// The numbers of a contact in phone memory, fields 4 to 8, as far as it has them.
std::vector<ContactLine> ContactNumbers(const clsT610Contact& contact, const Language& language);

// Each line "label:", a tab, the value, and a line's end.
Text DetailsText(const std::vector<ContactLine>& details);
// The same with the labels in bold, and an empty line behind it.
void AppendDetails(const std::vector<ContactLine>& details, RichText& text);

}  // namespace tessarin
