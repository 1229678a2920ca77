#include "outlook/ContactSync.h"

#include "outlook/ContactMapping.h"
#include "outlook/ContactRows.h"
#include "phonebook/ContactRecord.h"

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

void ContactSync::SyncListToOutlook(clsT610ContactList& list, clsOutContactList& outlookContacts,
                                    const ListView& pane) {
  Walk(pane, [&](const std::string& key) {
    const int position = PositionInKey(key);
    if (IsPosition(position)) ToOutlook(list.item(position), outlookContacts);
  });
}

void ContactSync::SyncOutlookToList(clsOutContactList& outlookContacts, clsT610ContactList& list,
                                    const ListView& pane) {
  Walk(pane, [&](const std::string& key) {
    const int position = outlookContacts.FindExistingGUID(FromUtf8(key));
    if (IsPosition(position)) ToList(outlookContacts.item(position), list);
  });
}

void ContactSync::SyncListToList(clsT610ContactList& source, clsT610ContactList& destination,
                                 const ListView& pane) {
  Walk(pane, [&](const std::string& key) {
    const int position = PositionInKey(key);
    if (IsPosition(position)) ToOtherList(source.item(position), destination);
  });
}

ContactSync::Act ContactSync::Decide(const Meeting& meeting) {
  Act act = Act::Leave;
  if (twoWay) {
    if (modDate::IsDateBefore(meeting.destinationTime(), meeting.sourceTime)) act = Act::Update;
  } else if (AskToReplace(meeting)) {
    act = addAsNew ? Act::Add : Act::Update;
  }
  if (act == Act::Leave) ++count_.leftAlone;
  return act;
}

// Yes alone leaves the decision at No, so the contact is passed over; only Yes to all replaces.
// What another program changed while the question stood was seen by nobody, and stays.
bool ContactSync::AskToReplace(const Meeting& meeting) {
  if (overwriteDecision != overwrite::kYesToAll && overwriteDecision != overwrite::kNoToAll) {
    const Text seen = meeting.destinationTime();
    needs_.askOverwrite(meeting.replaced(), meeting.replacing());
    if (meeting.destinationTime() != seen) return false;
  }
  return overwriteDecision == overwrite::kYes || overwriteDecision == overwrite::kYesToAll;
}

// A contact whose item cannot be read is not gone from there: a second one would be one too many.
void ContactSync::ToOutlook(clsT610Contact& record, clsOutContactList& outlookContacts) {
  const Text& guid = record.GetData(clsT610Contact::kGuid);
  const int found = outlookContacts.FindExistingGUID(guid);
  Act act = Act::Add;
  if (IsPosition(found)) {
    const clsOutlookContact& old = outlookContacts.item(found);
    act = Decide({TimeOf(record), [&] { return ModifiedText(*old.CItem); },
                  [&] { return FactsOf(old, language_); },
                  [&] { return FactsOf(record, language_); }});
  } else if (outlookContacts.IsSkipped(guid)) {
    ++count_.failed;
    return;
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
    act = Decide({ModifiedText(*contact.CItem), [&] { return TimeOf(old); },
                  [&] { return FactsOf(old, language_); },
                  [&] { return FactsOf(contact, language_); }});
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
    act = Decide({TimeOf(record), [&] { return TimeOf(old); },
                  [&] { return FactsOf(old, language_); },
                  [&] { return FactsOf(record, language_); }});
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
  list.AddOutlookContact(ContactOf(outlookContact));
  if (IsPhone(list)) {
    AddToPhone(list, list.item(list.Count()), kPhone);
  } else {
    ++count_.added;
  }
}

void ContactSync::UpdateFromOutlook(clsT610ContactList& list, int index,
                                    const clsOutlookContact& outlookContact,
                                    clsT610Contact& contact) {
  list.UpdateOutlookContact(ContactOf(outlookContact), index,
                            Text(contact.GetData(clsT610Contact::kMobileId)));
  UpdateOnPhone(list, index, contact);
}

// The phone is given the source itself, not the copy, so that its URL goes along.
void ContactSync::AddToList(clsT610ContactList& list, clsT610Contact& contact) {
  list.AddContact(contact);
  if (IsPhone(list)) {
    AddToPhone(list, contact, KindOf(contact));
  } else {
    ++count_.added;
  }
}

void ContactSync::UpdateInList(clsT610ContactList& list, int index, clsT610Contact& contact) {
  list.UpdateContact(contact, index);
  UpdateOnPhone(list, index, contact);
}

// What the phone refuses stays in the list all the same: the next reading of the phone finds the
// other content there, and takes that for the later one.
void ContactSync::UpdateOnPhone(clsT610ContactList& list, int index, clsT610Contact& contact) {
  bool written = true;
  if (IsPhone(list)) {
    const char16_t kind = KindOf(contact);
    written = false;
    needs_.writeToPhone(contact, kind, kOldEntry, written);
    if (written) CutToPhone(list.item(index), kind);
  }
  ++(written ? count_.updated : count_.failed);
}

// An empty result, when no session was to be had, passes as an identifier: the contact stays, and
// counts as present on the phone from then on. What comes from the own book is known there by the
// same identifier from now on, or the next run would take both for new.
void ContactSync::AddToPhone(clsT610ContactList& list, clsT610Contact& contact, char16_t kind) {
  const int last = list.Count();
  Text result;
  bool written = false;
  try {
    result = needs_.writeToPhone(contact, kind, kNewEntry, written);
  } catch (...) {
    list.Remove(last);  // the program ends while the phone is silent: nobody knows what it took
    throw;
  }
  ++(written ? count_.added : count_.failed);
  if (result == u"-1") {
    list.Remove(last);
    return;
  }
  list.item(last).LetData(kind + result, clsT610Contact::kMobileId);
  if (!written) return;
  contact.LetData(kind + result, clsT610Contact::kMobileId);
  CutToPhone(list.item(last), kind);
}

}  // namespace tessarin
