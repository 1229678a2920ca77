#include "phonebook/PhonebookLists.h"

#include <utility>

#include "codecs/Faults.h"
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
  if (SaveBook()) ReadBook();
  phoneContacts = std::make_unique<clsT610ContactList>();
  phoneContacts->ListType = -1;
  ReadPhoneFile();
}

void PhonebookLists::ReadBook() {
  tscContacts = std::make_unique<clsT610ContactList>();
  auto damaged = tscContacts->LoadTSCContactList(files_.Path(kBookFile));
  bookFileKnown_ = damaged.has_value();
  damagedLines_ = std::move(damaged).value_or(std::vector<std::string>());
}

void PhonebookLists::ReadPhoneFile() {
  phoneFileKnown_ = true;
  try {
    unreadLines_ = ListFile::ReadLines(files_.Path(kMobileFile));
  } catch (const FileError&) {
    unreadLines_.clear();
    phoneFileKnown_ = false;
  }
}

void PhonebookLists::MemoryRead(char16_t kind, bool complete) {
  if (!phoneContacts->LoadT610ContactList(files_.Path(kMobileFile))) phoneFileKnown_ = false;
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
  if (phoneContacts != nullptr && phoneFileKnown_) {
    phoneContacts->WriteContactToFile(files_.Path(kMobileFile), UnreadLines());
  }
}

bool PhonebookLists::SaveBook() const {
  if (tscContacts == nullptr) return true;
  if (!bookFileKnown_) return tscContacts->Count() == 0;
  return tscContacts->WriteContactToFile(files_.Path(kBookFile), damagedLines_);
}

}  // namespace tessarin
