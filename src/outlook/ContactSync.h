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

class ContactSync : public SyncEngine {
 public:
  // All must outlive the engine.
  struct Needs {
    WindowHost& host;
    const Language& language;
    SyncProgress& progress;
    // Writes a contact to the phone's memory "s" or "p", as a new entry when `mode` is 1. Answers
    // "-1" when the phone refused it, empty text when no session came about, and for a new entry
    // its identifier; `written` becomes whether the phone took it.
    std::function<Text(clsT610Contact& contact, char16_t kind, int mode, bool& written)>
        writeToPhone;
    // Asks whether to replace one contact by another; the answer goes into `overwriteDecision` and
    // `addAsNew`.
    std::function<void(const Text& replaced, const Text& replacing)> askOverwrite;
  };
  explicit ContactSync(Needs needs)
      : SyncEngine(needs.host, needs.language, needs.progress), needs_(std::move(needs)) {}

  std::int16_t overwriteDecision = overwrite::kNo;
  bool addAsNew = false;

  // Each walks the rows of `pane`, which shows the source. Where the user is asked, the overwrite
  // question decides. Faults of Outlook's rise.
  void SyncListToOutlook(clsT610ContactList& list, clsOutContactList& outlookContacts,
                         const ListView& pane);
  void SyncOutlookToList(clsOutContactList& outlookContacts, clsT610ContactList& list,
                         const ListView& pane);
  void SyncListToList(clsT610ContactList& source, clsT610ContactList& destination,
                      const ListView& pane);

 private:
  enum class Act { Leave, Update, Add };

  // Two contacts of one identity: the times by which the later one is known, and how each is shown
  // in the overwrite question.
  struct Meeting {
    Text sourceTime;
    std::function<Text()> destinationTime;
    std::function<Text()> replaced, replacing;
  };
  // What becomes of the destination.
  Act Decide(const Meeting& meeting);
  bool AskToReplace(const Meeting& meeting);
  void ToOutlook(clsT610Contact& record, clsOutContactList& outlookContacts);
  void ToList(const clsOutlookContact& contact, clsT610ContactList& list);
  void ToOtherList(clsT610Contact& record, clsT610ContactList& destination);

  // The list's own copy first, the phone second.
  void AddFromOutlook(clsT610ContactList& list, const clsOutlookContact& outlookContact);
  void UpdateFromOutlook(clsT610ContactList& list, int index,
                         const clsOutlookContact& outlookContact, clsT610Contact& contact);
  void AddToList(clsT610ContactList& list, clsT610Contact& contact);
  void UpdateInList(clsT610ContactList& list, int index, clsT610Contact& contact);
  // The phone's half of both. `contact` is written and the contact at `index`, or the list's last
  // one, stands for it; nothing more is to do when the list is not the phone's.
  void UpdateOnPhone(clsT610ContactList& list, int index, clsT610Contact& contact);
  void AddToPhone(clsT610ContactList& list, clsT610Contact& contact, char16_t kind);

  Needs needs_;
};

}  // namespace tessarin
