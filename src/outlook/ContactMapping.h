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
using ContactFields = std::array<ContactField, outlook::kContactProperties>;

// In the order in which a contact is read from Outlook, and in that in which it is written there.
const ContactFields& ContactReadOrder();
const ContactFields& ContactWriteOrder();

// "dd/mm/yyyy hh:mm:ss" of the item's LastModificationTime.
Text ModifiedText(outlook::Item& item);

// Fields 0 and 2 to 24 as Outlook holds them, empty ones too; 1 and 13 are empty.
clsT610Contact ContactOf(const clsOutlookContact& outlookContact);

}  // namespace tessarin
