#pragma once

// Contacts between Outlook and the lists, field by field.

#include "outlook/clsOutlookContact.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

// A property of Outlook's and the field that holds it. Fields 1 and 13 have no property.
struct ContactField {
  int field;
  outlook::ContactProperty property;
};
// In the order in which a contact is read from Outlook.
extern const std::vector<ContactField> kContactReadOrder;
// In the order in which it is written there.
extern const std::vector<ContactField> kContactWriteOrder;

// "dd/mm/yyyy hh:mm:ss" of the item's LastModificationTime.
Text ModifiedText(outlook::Item& item);

// Fields 0 and 2 to 24 as Outlook holds them, empty ones too. Field 1 stays.
void UpdateByOutlookContact(clsT610Contact& contact, const clsOutlookContact& outlookContact);

// The contact at `index` likewise; field 1 becomes `mobileID` unless that is "-1".
void UpdateOutlookContact(clsT610ContactList& list, const clsOutlookContact& outlookContact,
                          int index, TextView mobileID);
// A new contact at the end, whose field 1 is empty.
void AddOutlookContact(clsT610ContactList& list, const clsOutlookContact& outlookContact);

}  // namespace tessarin
