#include "calendar/clsT610AppointList.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/ListFile.h"

namespace tessarin {

namespace {

constexpr TextView kNoMobileId = u"-1";

const Text& FieldOf(const std::vector<Text>& fields, int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place >= fields.size()) throw BoundsError();
  return fields[place];
}

}  // namespace

clsT610Appoint& clsT610AppointList::item(int index) const {
  if (index < 1 || index > Count()) throw BoundsError();
  return *appoints_[static_cast<std::size_t>(index - 1)];
}

void clsT610AppointList::Remove(int index) {
  if (index < 1 || index > Count()) throw BoundsError();
  appoints_.erase(appoints_.begin() + index - 1);
}

int clsT610AppointList::Find(TextView id, int field) const {
  for (int index = 1; index <= Count(); ++index) {
    if (item(index).GetData(field) == id) return index;
  }
  return -1;
}

int clsT610AppointList::FindExistingMobileID(TextView id) const {
  return Find(id, clsT610Appoint::kMobileId);
}

int clsT610AppointList::FindExistingGUID(TextView id) const {
  return Find(id, clsT610Appoint::kGuid);
}

std::vector<Text> clsT610AppointList::DecodeContactStr(std::string_view line) {
  return ListFile::DecodeLine(line);
}

std::string clsT610AppointList::EncodeContactStr(const clsT610Appoint& appoint) {
  std::vector<Text> fields;
  for (int field = 0; field < clsT610Appoint::kFields; ++field) {
    fields.push_back(appoint.GetData(field));
  }
  return ListFile::EncodeLine(fields);
}

void clsT610AppointList::AssignContact(const std::vector<Text>& fields) {
  auto appoint = std::make_shared<clsT610Appoint>();
  for (int field = 0; field < clsT610Appoint::kFields; ++field) {
    if (field != clsT610Appoint::kSpare) appoint->LetData(FieldOf(fields, field), field);
  }
  Add(std::move(appoint));
}

void clsT610AppointList::UpdateOutlookAppoint(const OutlookFacts& appoint, int index,
                                              TextView mobileID) {
  clsT610Appoint& entry = item(index);
  entry.LetData(appoint.EntryID, clsT610Appoint::kGuid);
  if (mobileID != kNoMobileId) entry.LetData(Text(mobileID), clsT610Appoint::kMobileId);
  entry.LetData(modDate::FormatDateText(appoint.LastModificationTime), clsT610Appoint::kModified);
  // Whichever type the item's categories name, the kept word is that of all types.
  entry.LetData(clsT610Appoint::GetTypeName(1, language_), clsT610Appoint::kCategory);
  const DateValue alarm =
      appoint.Start - modDate::MinutesToDays(appoint.ReminderMinutesBeforeStart);
  entry.LetData(appoint.ReminderSet ? modDate::FormatDateText(alarm) : Text(),
                clsT610Appoint::kAlarm);
  entry.LetData(modDate::FormatDateText(appoint.Start), clsT610Appoint::kStart);
  entry.LetData(modDate::FormatDateText(appoint.End), clsT610Appoint::kEnd);
  entry.LetData(appoint.Subject, clsT610Appoint::kSubject);
  entry.LetData(appoint.Location, clsT610Appoint::kLocation);
}

void clsT610AppointList::AddOutlookAppoint(const OutlookFacts& appoint, TextView mobileID) {
  Add(std::make_shared<clsT610Appoint>());
  UpdateOutlookAppoint(appoint, Count(), mobileID);
}

std::vector<std::string> clsT610AppointList::LoadT610AppointList(
    const std::filesystem::path& file) {
  return MergeLines(ListFile::ReadLines(file));
}

std::vector<std::string> clsT610AppointList::MergeLines(const std::vector<std::string>& lines) {
  auto line = lines.begin();
  try {
    for (; line != lines.end(); ++line) MergeAppointRecord(DecodeContactStr(*line));
  } catch (const BoundsError&) {
    return {line, lines.end()};  // what was merged so far holds
  }
  return {};
}

// The file holds what the phone held at the last save, so a difference is a change made on the
// phone meanwhile, and the fresh change time stays.
void clsT610AppointList::MergeAppointRecord(const std::vector<Text>& fields) {
  const int index = FindExistingMobileID(FieldOf(fields, clsT610Appoint::kMobileId));
  if (index < 0) return;
  if (IsSameAppoint(index, fields)) {
    item(index).LetData(FieldOf(fields, clsT610Appoint::kModified), clsT610Appoint::kModified);
  }
  item(index).LetData(FieldOf(fields, clsT610Appoint::kGuid), clsT610Appoint::kGuid);
}

bool clsT610AppointList::IsSameAppoint(int index, const std::vector<Text>& fields) const {
  constexpr int kCompared[] = {clsT610Appoint::kCategory, clsT610Appoint::kSubject,
                               clsT610Appoint::kLocation, clsT610Appoint::kAlarm,
                               clsT610Appoint::kStart,    clsT610Appoint::kEnd};
  const clsT610Appoint& appoint = item(index);
  return std::all_of(std::begin(kCompared), std::end(kCompared), [&](int field) {
    return ListFile::IsSameField(appoint.GetData(field), FieldOf(fields, field));
  });
}

bool clsT610AppointList::WriteContactToFile(const std::filesystem::path& file,
                                            const std::vector<std::string>& further) const {
  std::vector<std::string> lines;
  for (const auto& appoint : appoints_) lines.push_back(EncodeContactStr(*appoint));
  lines.insert(lines.end(), further.begin(), further.end());
  return ListFile::WriteLines(file, lines);
}

}  // namespace tessarin
