#pragma once

// An ordered list of contacts and its file.
//
// A file holds one line a contact, ended by CR LF: 24 groups separated by commas, for fields 0 to
// 23 in order, each the field's UTF-16 units as four upper-case hexadecimal digits each. Field 24
// is never written. Empty lines are skipped.

#include <cstdint>
#include <filesystem>
#include <memory>
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

  static std::vector<Text> DecodeContactStr(std::string_view line);
  static std::string EncodeContactStr(const clsT610Contact& contact);
  // Adds a new contact made of elements 0 to 23; BoundsError when there are fewer.
  void AssignContact(const std::vector<Text>& fields);

  // Any error, a line with too few groups among them, ends the reading silently with what was read
  // so far. Gives the lines that were not taken, so that they can be kept as they stand.
  [[nodiscard]] std::vector<std::string> LoadTSCContactList(const std::filesystem::path& file);
  // Writes the list, and behind it `further` lines as they stand. An error ends it silently and
  // leaves the old file whole.
  void WriteContactToFile(const std::filesystem::path& file,
                          const std::vector<std::string>& further = {}) const;

 private:
  std::vector<std::shared_ptr<clsT610Contact>> contacts_;
};

// The lines of a list file that are not empty, without their ends; none when it cannot be read.
std::vector<std::string> ReadContactLines(const std::filesystem::path& file);

}  // namespace tessarin
