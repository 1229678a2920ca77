#include "phonebook/PhonebookLists.h"

#include "codecs/ListFile.h"

namespace tessarin {

namespace {

constexpr char16_t kMobileFile[] = u"\\Pb\\ContactMobile.dat";
constexpr char16_t kBookFile[] = u"\\Pb\\ContactTSC.dat";

Text MobileIdOf(const std::string& line) {
  const auto fields = clsT610ContactList::DecodeContactStr(line);
  return fields.size() > clsT610Contact::kMobileId ? fields[clsT610Contact::kMobileId] : Text();
}

}  // namespace

void PhonebookLists::PhoneFound() {
  SavePhoneContacts();
  // A book that could not be written exists nowhere else.
  if (SaveBook()) {
    tscContacts = std::make_unique<clsT610ContactList>();
    damagedLines_ = tscContacts->LoadTSCContactList(files_.Path(kBookFile));
  }
  phoneContacts = std::make_unique<clsT610ContactList>();
  phoneContacts->ListType = -1;
  unreadLines_ = ListFile::ReadLines(files_.Path(kMobileFile));
}

void PhonebookLists::MemoryRead(char16_t kind, bool complete) {
  phoneContacts->LoadT610ContactList(files_.Path(kMobileFile));
  if (!complete) return;
  std::erase_if(unreadLines_,
                [kind](const auto& line) { return MobileIdOf(line).starts_with(kind); });
}

std::vector<std::string> PhonebookLists::UnreadLines() const {
  auto lines = unreadLines_;
  std::erase_if(lines, [this](const auto& line) {
    return phoneContacts->FindExistingMobileID(MobileIdOf(line)) != -1;
  });
  return lines;
}

void PhonebookLists::Unloading() {
  SavePhoneContacts();
  SaveBook();
  phoneContacts.reset();
  tscContacts.reset();
}

void PhonebookLists::SavePhoneContacts() const {
  if (phoneContacts != nullptr) {
    phoneContacts->WriteContactToFile(files_.Path(kMobileFile), UnreadLines());
  }
}

bool PhonebookLists::SaveBook() const {
  return tscContacts == nullptr ||
         tscContacts->WriteContactToFile(files_.Path(kBookFile), damagedLines_);
}

}  // namespace tessarin
