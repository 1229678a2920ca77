#pragma once

// One contact of Outlook's.

#include "outlook/Outlook.h"
#include "phonebook/clsT610Contact.h"

namespace tessarin {

class clsOutlookContact {
 public:
  // Stands for a new item, not yet saved. `automation` need not outlive the wrapper.
  explicit clsOutlookContact(outlook::Automation& automation);

  std::shared_ptr<outlook::ContactItem> CItem;  // never null

  // First name, a blank and last name, as far as they are there.
  Text GetDisplayName() const;
  // Writes each field as it stands, so an empty one clears its property, and saves the item.
  void UpdateByT610Contact(const clsT610Contact& contact);
};

}  // namespace tessarin
