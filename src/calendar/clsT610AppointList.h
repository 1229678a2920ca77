#pragma once

// An ordered list of calendar entries and its file (codecs/ListFile.h), which has ten groups a
// line, for fields 0 to 9.

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/OutlookFacts.h"
#include "calendar/clsT610Appoint.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"

namespace tessarin {

class clsT610AppointList {
 public:
  // `language` must outlive the list.
  explicit clsT610AppointList(const Language& language) : language_(language) {}

  // What stands in field 0 of an entry that was never linked to Outlook.
  static TextView GetTEMPID() { return u"123456789012345678901234567890123456789012345678"; }

  int Count() const { return static_cast<int>(appoints_.size()); }
  // By position, from 1. Each raises BoundsError for a position that is not there.
  clsT610Appoint& item(int index) const;
  void Remove(int index);
  // Appends the very object.
  void Add(std::shared_ptr<clsT610Appoint> appoint) { appoints_.push_back(std::move(appoint)); }
  // All entries in order.
  const std::vector<std::shared_ptr<clsT610Appoint>>& NewEnum() const { return appoints_; }

  // The position of the first entry whose field 1, or 0, is exactly `id`; -1 for none.
  int FindExistingMobileID(TextView id) const;
  int FindExistingGUID(TextView id) const;

  static std::vector<Text> DecodeContactStr(std::string_view line);
  static std::string EncodeContactStr(const clsT610Appoint& appoint);
  // Adds a new entry made of elements 0 to 6, 8 and 9; BoundsError when there are fewer.
  void AssignContact(const std::vector<Text>& fields);

  // Takes the fields of an Outlook item over into the entry at `index`. "-1" as `mobileID` leaves
  // field 1 as it is.
  void UpdateOutlookAppoint(const OutlookFacts& appoint, int index, TextView mobileID);
  // A new entry at the end, filled likewise.
  void AddOutlookAppoint(const OutlookFacts& appoint, TextView mobileID);

  // For a list just read from the phone: brings back from the file what the phone does not hold,
  // the links to Outlook, and the change times of the entries that are as they were when the file
  // was written. Lines of entries that are not in the list are dropped. A line with too few groups
  // ends it silently, and the lines from that one on come back. Raises FileError when there is a
  // file that cannot be read.
  std::vector<std::string> LoadT610AppointList(const std::filesystem::path& file);
  // The same with lines that stand in no file.
  std::vector<std::string> MergeLines(const std::vector<std::string>& lines);
  // The entries' lines and then `further` ones. An error ends it silently and leaves the old file
  // whole. Gives whether it was written.
  bool WriteContactToFile(const std::filesystem::path& file,
                          const std::vector<std::string>& further = {}) const;

  // Writes one entry to the phone over a session of its own: replaces the entry of its LUID, or
  // adds one when it has none. Gives the new LUID; empty text for a replaced entry, and also when
  // no session came about; "-1" when the phone refused the entry. Both failures show a message.
  // `written`, where it is given, tells whether the phone took the entry. Throws ConversionError,
  // before anything is sent, when a time does not read.
  static Text WriteAppointToMobile(const clsT610Appoint& appoint, TessarinMenu& session,
                                   const PhoneLink& link, bool* written = nullptr);

 private:
  int Find(TextView id, int field) const;
  bool IsSameAppoint(int index, const std::vector<Text>& fields) const;
  void MergeAppointRecord(const std::vector<Text>& fields);

  const Language& language_;
  std::vector<std::shared_ptr<clsT610Appoint>> appoints_;
};

// Leaves in an entry that was written to the phone what the phone has of it: texts that are too
// long are cut. The next reading finds nothing changed then.
void CutToPhone(clsT610Appoint& appoint);

}  // namespace tessarin
