#include "outlook/clsOutlookContact.h"

#include "outlook/ContactMapping.h"

namespace tessarin {

clsOutlookContact::clsOutlookContact(outlook::Automation& automation)
    : CItem(std::dynamic_pointer_cast<outlook::ContactItem>(
          automation.Shared().CreateItem(outlook::kContactType))) {}

Text clsOutlookContact::GetDisplayName() const {
  const Text first = CItem->FirstName();
  const Text last = CItem->LastName();
  if (last.empty()) return first;
  return first.empty() ? last : first + u" " + last;
}

void clsOutlookContact::UpdateByT610Contact(const clsT610Contact& contact) {
  for (const ContactField& entry : ContactWriteOrder()) {
    CItem->Set(entry.property, contact.GetData(entry.field));
  }
  CItem->Save();
}

}  // namespace tessarin
