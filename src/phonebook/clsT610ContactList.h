#pragma once

// An ordered list of contacts and its file (codecs/ListFile.h), which has 24 groups a line, for
// fields 0 to 23. Field 24 is never written.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phonebook/clsT610Contact.h"

namespace tessarin {

class clsT610ContactList {
 public:
  // -1 for the mobile list, which mirrors the phone; 0 for the system's own contact book. Kept and
  // handed back, of no effect here.
  std::int16_t ListType = 0;

  // The persisted and copied fields are 0 to 23.
  static constexpr int GetNoOfField() { return 24; }
  // What stands in field 0 of a contact that was never linked to Outlook.
  static TextView GetTEMPID() { return u"123456789012345678901234567890123456789012345678"; }

  int Count() const { return static_cast<int>(contacts_.size()); }
  // By position, from 1. Raises BoundsError for a position that is not there.
  clsT610Contact& item(int index) const;
  // Appends the very object.
  void Add(std::shared_ptr<clsT610Contact> contact) { contacts_.push_back(std::move(contact)); }

  // BoundsError likewise.
  void Remove(int index);
  auto begin() const { return contacts_.begin(); }
  auto end() const { return contacts_.end(); }

  // Drop all contacts of the SIM, or of phone memory; those with no memory stay.
  void ClearAllSIMRecord() { ClearAll(u's'); }
  void ClearAllPMRecord() { ClearAll(u'p'); }

  // The position of the first contact with exactly that field 1 or 0; -1 for none.
  int FindExistingMobileID(TextView id) const { return Find(clsT610Contact::kMobileId, id); }
  int FindExistingGUID(TextView id) const { return Find(clsT610Contact::kGuid, id); }

  // Add a copy of fields 0 to 23, or write them over the contact at `index`.
  void AddContact(const clsT610Contact& contact);
  void UpdateContact(const clsT610Contact& contact, int index);

  // `contact` holds what Outlook has of a contact: its identifier, its time and fields 3 to 24 but
  // the spare one. Take it into a new contact, or into the one at `index`, whose field 1 then
  // becomes `mobileID` unless that is "-1".
  void AddOutlookContact(const clsT610Contact& contact);
  void UpdateOutlookContact(const clsT610Contact& contact, int index, TextView mobileID);

  static std::vector<Text> DecodeContactStr(std::string_view line);
  static std::string EncodeContactStr(const clsT610Contact& contact);
  // Adds a new contact made of elements 0 to 23; BoundsError when there are fewer.
  void AssignContact(const std::vector<Text>& fields);

  // A line with too few groups ends the reading silently with what was read so far. Gives the lines
  // that were not taken, so that they can be kept as they stand; nullopt when there is a file that
  // cannot be read, which must not be written over then.
  [[nodiscard]] std::optional<std::vector<std::string>> LoadTSCContactList(
      const std::filesystem::path& file);
  // Brings into a list that was read from the phone what the phone does not keep, from the file of
  // an earlier session: the Outlook link of each contact, and the change time of each that is the
  // same as it was. Of a contact on the SIM only name and number are compared. What the phone no
  // longer has is passed over. A line with too few groups ends the reading silently. False when
  // there is a file that cannot be read, which must not be written over then.
  [[nodiscard]] bool LoadT610ContactList(const std::filesystem::path& file);
  // Writes the list, and behind it `further` lines as they stand: those of the file that are not in
  // the list and are to be kept. An error ends it silently and leaves the old file whole. Gives
  // whether it was written.
  bool WriteContactToFile(const std::filesystem::path& file,
                          const std::vector<std::string>& further) const;

 private:
  void ClearAll(char16_t kind);
  int Find(int field, TextView value) const;
  bool IsSameContact(int index, const std::vector<Text>& fields) const;
  bool IsSameSIMContact(int index, TextView name, TextView number) const;
  void MergePhoneRecord(const std::vector<Text>& fields);
  void MergeSIMRecord(const std::vector<Text>& fields);
  // What both merges have in common, on the contact at `index`.
  void Merge(int index, const std::vector<Text>& fields, bool isSame);

  std::vector<std::shared_ptr<clsT610Contact>> contacts_;
};

}  // namespace tessarin
