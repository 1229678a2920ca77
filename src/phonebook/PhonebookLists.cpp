#include "phonebook/PhonebookLists.h"

namespace tessarin {

namespace {

constexpr char16_t kMobileFile[] = u"\\Pb\\ContactMobile.dat";
constexpr char16_t kBookFile[] = u"\\Pb\\ContactTSC.dat";

}  // namespace

void PhonebookLists::PhoneFound() {
  Save();
  tscContacts = std::make_unique<clsT610ContactList>();
  damagedLines_ = tscContacts->LoadTSCContactList(files_.Path(kBookFile));
  phoneContacts = std::make_unique<clsT610ContactList>();
  phoneContacts->ListType = -1;
  unreadLines_ = ReadContactLines(files_.Path(kMobileFile));
}

void PhonebookLists::Unloading() {
  Save();
  phoneContacts.reset();
  tscContacts.reset();
}

void PhonebookLists::Save() {
  if (phoneContacts != nullptr) {
    phoneContacts->WriteContactToFile(files_.Path(kMobileFile), unreadLines_);
  }
  if (tscContacts != nullptr)
    tscContacts->WriteContactToFile(files_.Path(kBookFile), damagedLines_);
}

}  // namespace tessarin
