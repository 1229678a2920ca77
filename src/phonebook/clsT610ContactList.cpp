#include "phonebook/clsT610ContactList.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/ListFile.h"

namespace tessarin {

clsT610Contact& clsT610ContactList::item(int index) const {
  if (index < 1 || index > Count()) throw BoundsError();
  return *contacts_[static_cast<std::size_t>(index - 1)];
}

void clsT610ContactList::Remove(int index) {
  if (index < 1 || index > Count()) throw BoundsError();
  contacts_.erase(contacts_.begin() + (index - 1));
}

void clsT610ContactList::ClearAll(char16_t kind) {
  std::erase_if(contacts_, [kind](const auto& contact) { return contact->IsIn(kind); });
}

int clsT610ContactList::Find(int field, TextView value) const {
  const auto found = std::find_if(contacts_.begin(), contacts_.end(), [&](const auto& contact) {
    return contact->GetData(field) == value;
  });
  return found == contacts_.end() ? -1 : static_cast<int>(found - contacts_.begin()) + 1;
}

void clsT610ContactList::AddContact(const clsT610Contact& contact) {
  Add(std::make_shared<clsT610Contact>());
  UpdateContact(contact, Count());
}

void clsT610ContactList::UpdateContact(const clsT610Contact& contact, int index) {
  clsT610Contact& target = item(index);
  for (int field = 0; field < GetNoOfField(); ++field) {
    target.LetData(contact.GetData(field), field);
  }
}

void clsT610ContactList::AddOutlookContact(const clsT610Contact& contact) {
  Add(std::make_shared<clsT610Contact>());
  item(Count()).UpdateByOutlookContact(contact);
}

void clsT610ContactList::UpdateOutlookContact(const clsT610Contact& contact, int index,
                                              TextView mobileID) {
  clsT610Contact& target = item(index);
  if (mobileID != u"-1") target.LetData(Text(mobileID), clsT610Contact::kMobileId);
  target.UpdateByOutlookContact(contact);
}

std::vector<Text> clsT610ContactList::DecodeContactStr(std::string_view line) {
  return ListFile::DecodeLine(line);
}

std::string clsT610ContactList::EncodeContactStr(const clsT610Contact& contact) {
  std::vector<Text> fields;
  for (int field = 0; field < GetNoOfField(); ++field) fields.push_back(contact.GetData(field));
  return ListFile::EncodeLine(fields);
}

void clsT610ContactList::AssignContact(const std::vector<Text>& fields) {
  if (fields.size() < static_cast<std::size_t>(GetNoOfField())) throw BoundsError();
  auto contact = std::make_shared<clsT610Contact>();
  for (int field = 0; field < GetNoOfField(); ++field) {
    contact->LetData(fields[static_cast<std::size_t>(field)], field);
  }
  Add(std::move(contact));
}

std::optional<std::vector<std::string>> clsT610ContactList::LoadTSCContactList(
    const std::filesystem::path& file) {
  std::vector<std::string> lines;
  std::size_t taken = 0;
  try {
    lines = ListFile::ReadLines(file);
    for (; taken < lines.size(); ++taken) AssignContact(DecodeContactStr(lines[taken]));
  } catch (const FileError&) {
    return std::nullopt;
  } catch (const BoundsError&) {
    // the damaged line and those behind it stay in `lines`
  }
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(taken));
  return lines;
}

bool clsT610ContactList::LoadT610ContactList(const std::filesystem::path& file) {
  try {
    for (const auto& line : ListFile::ReadLines(file)) {
      const auto fields = DecodeContactStr(line);
      if (fields.size() < static_cast<std::size_t>(GetNoOfField())) throw BoundsError();
      if (fields[clsT610Contact::kMobileId].starts_with(u's')) {
        MergeSIMRecord(fields);
      } else {
        MergePhoneRecord(fields);
      }
    }
  } catch (const FileError&) {
    return false;
  } catch (const BoundsError&) {
    // a damaged line: what stands behind it is not trusted
  }
  return true;
}

bool clsT610ContactList::IsSameContact(int index, const std::vector<Text>& fields) const {
  const clsT610Contact& contact = item(index);
  for (int field = clsT610Contact::kName; field < GetNoOfField(); ++field) {
    if (!ListFile::IsSameField(contact.GetData(field), fields[static_cast<std::size_t>(field)])) {
      return false;
    }
  }
  return true;
}

bool clsT610ContactList::IsSameSIMContact(int index, TextView name, TextView number) const {
  const clsT610Contact& contact = item(index);
  return contact.GetData(clsT610Contact::kName) == name &&
         contact.GetData(clsT610Contact::kHome) == number;
}

void clsT610ContactList::MergePhoneRecord(const std::vector<Text>& fields) {
  const int index = FindExistingMobileID(fields[clsT610Contact::kMobileId]);
  if (index != -1) Merge(index, fields, IsSameContact(index, fields));
}

void clsT610ContactList::MergeSIMRecord(const std::vector<Text>& fields) {
  const int index = FindExistingMobileID(fields[clsT610Contact::kMobileId]);
  if (index == -1) return;
  Merge(index, fields,
        IsSameSIMContact(index, fields[clsT610Contact::kName], fields[clsT610Contact::kHome]));
}

void clsT610ContactList::Merge(int index, const std::vector<Text>& fields, bool isSame) {
  clsT610Contact& contact = item(index);
  if (isSame) contact.LetData(fields[clsT610Contact::kModified], clsT610Contact::kModified);
  contact.LetData(fields[clsT610Contact::kGuid], clsT610Contact::kGuid);
}

bool clsT610ContactList::WriteContactToFile(const std::filesystem::path& file,
                                            const std::vector<std::string>& further) const {
  std::vector<std::string> lines;
  for (const auto& contact : contacts_) lines.push_back(EncodeContactStr(*contact));
  lines.insert(lines.end(), further.begin(), further.end());
  return ListFile::WriteLines(file, lines);
}

}  // namespace tessarin
