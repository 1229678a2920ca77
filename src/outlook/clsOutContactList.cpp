#include "outlook/clsOutContactList.h"

#include "outlook/ContactMapping.h"

namespace tessarin {

void clsOutContactList::LoadOutlookContact() {
  Load([this](const std::shared_ptr<outlook::Item>& item) {
    if (item->TypeName() != u"ContactItem") return;
    auto contact = std::make_shared<clsOutlookContact>(automation());
    contact->CItem = std::dynamic_pointer_cast<outlook::ContactItem>(item);
    Add(std::move(contact));
  });
}

void clsOutContactList::UpdateOutlookContact(clsT610Contact& contact, int index) {
  item(index).UpdateByT610Contact(contact);
  contact.LetData(ModifiedText(*item(index).CItem), clsT610Contact::kModified);
}

void clsOutContactList::AddOutlookContact(clsT610Contact& contact) {
  auto added = std::make_shared<clsOutlookContact>(automation());
  added->UpdateByT610Contact(contact);
  Add(added);
  contact.LetData(added->CItem->EntryID(), clsT610Contact::kGuid);
  contact.LetData(ModifiedText(*added->CItem), clsT610Contact::kModified);
}

}  // namespace tessarin
