#pragma once

// The engine of the contacts synchronisation: one pass over the rows of a pane, in each of the
// three forms that there are. Nothing is ever deleted, and nothing is taken back: what was done
// before a failure stays done.
//
// A contact is known by its link: towards Outlook field 0, the EntryID, between the phone and the
// system's own book field 1.

#include <functional>

#include "files/frmOverwrite.h"
#include "outlook/SyncRun.h"
#include "outlook/clsOutContactList.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

class ContactSync {
 public:
  // All must outlive the engine.
  struct Needs {
    WindowHost& host;
    const Language& language;
    SyncProgress& progress;
    // Writes a contact to the phone's memory "s" or "p", as a new entry when `mode` is 1. Answers
    // "-1" when that failed, and for a new entry its identifier.
    std::function<Text(clsT610Contact& contact, char16_t kind, int mode)> writeToPhone;
    // Asks whether to replace one contact by another; the answer goes into `overwriteDecision` and
    // `addAsNew`.
    std::function<void(const Text& replaced, const Text& replacing)> askOverwrite;
  };
  explicit ContactSync(Needs needs) : needs_(std::move(needs)) {}

  bool twoWay = false;
  std::int16_t overwriteDecision = overwrite::kNo;
  bool addAsNew = false;

  // Each walks the rows of `pane`, which shows the source, and tells what became of them. In a
  // two-way run all rows are walked, and the later of two contacts wins; else the selected ones,
  // and the overwrite question decides. Faults of Outlook's rise.
  SyncCount SyncListToOutlook(clsT610ContactList& list, clsOutContactList& outlookContacts,
                              const ListView& pane);
  SyncCount SyncOutlookToList(clsOutContactList& outlookContacts, clsT610ContactList& list,
                              const ListView& pane);
  SyncCount SyncListToList(clsT610ContactList& source, clsT610ContactList& destination,
                           const ListView& pane);

 private:
  enum class Act { Leave, Update, Add };

  // What to do with a contact that is there on both sides.
  Act Decide(const Text& sourceTime, const Text& destinationTime,
             const std::function<Text()>& replaced, const std::function<Text()>& replacing);
  void ToOutlook(clsT610Contact& record, clsOutContactList& outlookContacts);
  void ToList(const clsOutlookContact& contact, clsT610ContactList& list);
  void ToOtherList(clsT610Contact& record, clsT610ContactList& destination);

  // The list's own copy first, the phone second.
  void AddFromOutlook(clsT610ContactList& list, const clsOutlookContact& outlookContact);
  void UpdateFromOutlook(clsT610ContactList& list, int index,
                         const clsOutlookContact& outlookContact, clsT610Contact& contact);
  void AddToList(clsT610ContactList& list, clsT610Contact& contact);
  void UpdateInList(clsT610ContactList& list, int index, clsT610Contact& contact);
  // The last contact of the list was written to the phone as a new one, with this result.
  void TakeNewIdentity(clsT610ContactList& list, char16_t kind, const Text& result);

  Needs needs_;
  SyncCount count_;
};

}  // namespace tessarin
