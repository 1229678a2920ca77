#pragma once

// The contacts of Outlook's default folder.

#include "outlook/OutlookList.h"
#include "outlook/clsOutlookContact.h"

namespace tessarin {

inline const Text& EntryIdOf(const clsOutlookContact& contact) { return contact.CItem->EntryID(); }

class clsOutContactList : public OutlookList<clsOutlookContact> {
 public:
  explicit clsOutContactList(const OutlookNeeds& needs)
      : OutlookList(needs, outlook::kContactsFolder) {}

  // Adds the folder's contacts to the list. Items of other classes, such as groups, are left out.
  void LoadOutlookContact();
  // Writes the contact into the item at `index`; field 2 becomes the item's time.
  void UpdateOutlookContact(clsT610Contact& contact, int index);
  // Makes a new item of the contact and links the contact to it: fields 0 and 2 become the item's
  // identity and time.
  void AddOutlookContact(clsT610Contact& contact);
};

}  // namespace tessarin
