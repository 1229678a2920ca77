#pragma once

// The two contact lists of a session and the files that keep them between sessions.

#include <memory>
#include <string>
#include <vector>

#include "codecs/modFile.h"
#include "core/Page.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

class PhonebookLists : public SessionPart {
 public:
  // `files` must outlive the lists.
  explicit PhonebookLists(const modFile& files) : files_(files) {}

  // Null until the first phone was found.
  std::unique_ptr<clsT610ContactList> phoneContacts;  // phone memory and SIM
  std::unique_ptr<clsT610ContactList> tscContacts;    // the system's own contact book

  // Makes both lists. Lists of an earlier connection are written first, so nothing of them is lost.
  void PhoneFound() override;
  // That memory, "s" or "p", was read into `phoneContacts`: joins to its contacts what the file of
  // earlier sessions knows of them. From then on the saved lines of that memory are no longer kept,
  // unless the reading was not `complete`: they may be those of contacts that nobody saw.
  void MemoryRead(char16_t kind, bool complete = true);
  // Writes the mobile list, if there is one. Kept lines go with it, and a file that could not be
  // read when its lines were needed is left alone.
  void SavePhoneContacts() const;
  // True when nothing of the book is in memory only.
  bool SaveBook() const;
  void Unloading() override;

 private:
  void ReadBook();
  void ReadPhoneFile();
  // Those of the kept lines that no contact of `phoneContacts` has taken the place of.
  std::vector<std::string> UnreadLines() const;

  const modFile& files_;
  // False once a file could not be read: what it holds is not known here.
  bool phoneFileKnown_ = false, bookFileKnown_ = false;
  // The saved lines of memories that were not read in this connection. They hold links and times
  // of contacts that nobody looked at, so they go back into the file as they stand.
  std::vector<std::string> unreadLines_;
  // Lines of the contact book from a damaged one on, kept likewise.
  std::vector<std::string> damagedLines_;
};

}  // namespace tessarin
