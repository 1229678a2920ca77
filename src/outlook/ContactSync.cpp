#include "outlook/ContactSync.h"

#include "outlook/ContactMapping.h"
#include "outlook/ContactRows.h"

namespace tessarin {

namespace {

constexpr int kNewEntry = 1, kOldEntry = 2;  // modes of writing
constexpr char16_t kSim = u's', kPhone = u'p';

bool IsPhone(const clsT610ContactList& list) { return list.ListType != 0; }

char16_t KindOf(const clsT610Contact& contact) {
  return contact.GetData(clsT610Contact::kMobileId).starts_with(kSim) ? kSim : kPhone;
}

const Text& TimeOf(const clsT610Contact& contact) {
  return contact.GetData(clsT610Contact::kModified);
}

}  // namespace

SyncCount ContactSync::SyncListToOutlook(clsT610ContactList& list,
                                         clsOutContactList& outlookContacts, const ListView& pane) {
  count_ = {};
  ForEachRow(RowsToSync(pane, twoWay, needs_.host, needs_.language), needs_.progress,
             [&](const std::string& key) {
               const int position = PositionInKey(key);
               if (IsPosition(position)) ToOutlook(list.item(position), outlookContacts);
             });
  return count_;
}

SyncCount ContactSync::SyncOutlookToList(clsOutContactList& outlookContacts,
                                         clsT610ContactList& list, const ListView& pane) {
  count_ = {};
  ForEachRow(RowsToSync(pane, twoWay, needs_.host, needs_.language), needs_.progress,
             [&](const std::string& key) {
               const int position = outlookContacts.FindExistingGUID(FromUtf8(key));
               if (IsPosition(position)) ToList(outlookContacts.item(position), list);
             });
  return count_;
}

SyncCount ContactSync::SyncListToList(clsT610ContactList& source, clsT610ContactList& destination,
                                      const ListView& pane) {
  count_ = {};
  ForEachRow(RowsToSync(pane, twoWay, needs_.host, needs_.language), needs_.progress,
             [&](const std::string& key) {
               const int position = PositionInKey(key);
               if (IsPosition(position)) ToOtherList(source.item(position), destination);
             });
  return count_;
}

// Yes alone leaves the decision at No, so the contact is passed over; only Yes to all replaces.
ContactSync::Act ContactSync::Decide(const Text& sourceTime, const Text& destinationTime,
                                     const std::function<Text()>& replaced,
                                     const std::function<Text()>& replacing) {
  Act act = Act::Leave;
  if (twoWay) {
    if (modDate::IsDateBefore(destinationTime, sourceTime)) act = Act::Update;
  } else {
    if (overwriteDecision != overwrite::kYesToAll && overwriteDecision != overwrite::kNoToAll) {
      needs_.askOverwrite(replaced(), replacing());
    }
    const bool yes =
        overwriteDecision == overwrite::kYes || overwriteDecision == overwrite::kYesToAll;
    if (yes) act = addAsNew ? Act::Add : Act::Update;
  }
  if (act == Act::Leave) ++count_.leftAlone;
  return act;
}

void ContactSync::ToOutlook(clsT610Contact& record, clsOutContactList& outlookContacts) {
  const int found = outlookContacts.FindExistingGUID(record.GetData(clsT610Contact::kGuid));
  Act act = Act::Add;
  if (IsPosition(found)) {
    const clsOutlookContact& old = outlookContacts.item(found);
    act = Decide(
        TimeOf(record), ModifiedText(*old.CItem), [&] { return FactsOf(old, needs_.language); },
        [&] { return FactsOf(record, needs_.language); });
  }
  if (act == Act::Add) {
    outlookContacts.AddOutlookContact(record);
    ++count_.added;
  } else if (act == Act::Update) {
    outlookContacts.UpdateOutlookContact(record, found);
    ++count_.updated;
  }
}

void ContactSync::ToList(const clsOutlookContact& contact, clsT610ContactList& list) {
  const int found = list.FindExistingGUID(contact.CItem->EntryID());
  Act act = Act::Add;
  if (IsPosition(found)) {
    clsT610Contact& old = list.item(found);
    act = Decide(
        ModifiedText(*contact.CItem), TimeOf(old), [&] { return FactsOf(old, needs_.language); },
        [&] { return FactsOf(contact, needs_.language); });
    if (act == Act::Add) {
      old.LetData(Text(clsT610ContactList::GetTEMPID()), clsT610Contact::kGuid);
    } else if (act == Act::Update) {
      UpdateFromOutlook(list, found, contact, old);
    }
  }
  if (act == Act::Add) AddFromOutlook(list, contact);
}

void ContactSync::ToOtherList(clsT610Contact& record, clsT610ContactList& destination) {
  const int found = destination.FindExistingMobileID(record.GetData(clsT610Contact::kMobileId));
  Act act = Act::Add;
  if (IsPosition(found)) {
    const clsT610Contact& old = destination.item(found);
    act = Decide(
        TimeOf(record), TimeOf(old), [&] { return FactsOf(old, needs_.language); },
        [&] { return FactsOf(record, needs_.language); });
    if (act == Act::Add && !IsPhone(destination)) {
      record.LetData(u"", clsT610Contact::kMobileId);
    }
  }
  if (act == Act::Add) AddToList(destination, record);
  if (act == Act::Update) UpdateInList(destination, found, record);
}

// A contact that is new to the phone never goes onto the SIM.
void ContactSync::AddFromOutlook(clsT610ContactList& list,
                                 const clsOutlookContact& outlookContact) {
  AddOutlookContact(list, outlookContact);
  if (IsPhone(list)) {
    clsT610Contact& contact = list.item(list.Count());
    TakeNewIdentity(list, kPhone, needs_.writeToPhone(contact, kPhone, kNewEntry));
  } else {
    ++count_.added;
  }
}

void ContactSync::UpdateFromOutlook(clsT610ContactList& list, int index,
                                    const clsOutlookContact& outlookContact,
                                    clsT610Contact& contact) {
  UpdateOutlookContact(list, outlookContact, index, contact.GetData(clsT610Contact::kMobileId));
  const bool failed =
      IsPhone(list) && needs_.writeToPhone(contact, KindOf(contact), kOldEntry) == u"-1";
  ++(failed ? count_.failed : count_.updated);
}

// The phone is given the source itself, not the copy, so that its URL goes along.
void ContactSync::AddToList(clsT610ContactList& list, clsT610Contact& contact) {
  list.AddContact(contact);
  if (IsPhone(list)) {
    const char16_t kind = KindOf(contact);
    TakeNewIdentity(list, kind, needs_.writeToPhone(contact, kind, kNewEntry));
  } else {
    ++count_.added;
  }
}

void ContactSync::UpdateInList(clsT610ContactList& list, int index, clsT610Contact& contact) {
  list.UpdateContact(contact, index);
  const bool failed =
      IsPhone(list) && needs_.writeToPhone(contact, KindOf(contact), kOldEntry) == u"-1";
  ++(failed ? count_.failed : count_.updated);
}

// An empty result, when no session was to be had, passes as an identifier: the contact stays, and
// counts as present on the phone from then on.
void ContactSync::TakeNewIdentity(clsT610ContactList& list, char16_t kind, const Text& result) {
  if (result == u"-1") {
    list.Remove(list.Count());
  } else {
    list.item(list.Count()).LetData(kind + result, clsT610Contact::kMobileId);
  }
  ++(result == u"-1" || result.empty() ? count_.failed : count_.added);
}

}  // namespace tessarin
