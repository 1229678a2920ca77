#include "calendar/CalendarLists.h"

#include "codecs/Faults.h"

namespace tessarin {

namespace {

constexpr char16_t kFile[] = u"\\Cal\\CalendarMobile.dat";

bool IsLinked(const clsT610Appoint& appoint) {
  return appoint.GetData(clsT610Appoint::kGuid) != clsT610AppointList::GetTEMPID();
}

}  // namespace

void CalendarLists::Rebuild(const std::vector<CalendarRecord>& records) {
  const auto unsaved = isSaved_ ? std::vector<std::string>() : LinkedLines();
  phoneAppointments = std::make_unique<clsT610AppointList>(language_);
  for (const CalendarRecord& record : records) {
    if (record.EntryType == u"EVENT") phoneAppointments->Add(AppointOf(record));
  }
  Join(unsaved);
}

void CalendarLists::Join(const std::vector<std::string>& newer) {
  unreadLines_.clear();
  try {
    unreadLines_ = phoneAppointments->LoadT610AppointList(files_.Path(kFile));
    isHidden_ = false;
  } catch (const FileError&) {
    isHidden_ = true;
  }
  phoneAppointments->MergeLines(newer);
}

std::vector<std::string> CalendarLists::LinkedLines() const {
  std::vector<std::string> lines;
  for (const auto& appoint : phoneAppointments->NewEnum()) {
    if (IsLinked(*appoint)) lines.push_back(clsT610AppointList::EncodeContactStr(*appoint));
  }
  return lines;
}

std::vector<std::string> CalendarLists::KeptLines() const {
  std::vector<std::string> kept, damaged;
  for (const std::string& line : unreadLines_) {
    const auto fields = clsT610AppointList::DecodeContactStr(line);
    if (fields.size() < clsT610Appoint::kFields) {
      damaged.push_back(line);
      continue;
    }
    const int index = phoneAppointments->FindExistingMobileID(fields[clsT610Appoint::kMobileId]);
    if (index > 0 && !IsLinked(phoneAppointments->item(index))) kept.push_back(line);
  }
  kept.insert(kept.end(), damaged.begin(), damaged.end());
  return kept;
}

std::shared_ptr<clsT610Appoint> CalendarLists::AppointOf(const CalendarRecord& record) const {
  const int typeNo = clsT610Appoint::TypeOfPhoneCategory(record.Category.Trimmed());
  auto appoint = std::make_shared<clsT610Appoint>();
  appoint->LetData(Text(clsT610AppointList::GetTEMPID()), clsT610Appoint::kGuid);
  appoint->LetData(record.Luid.Trimmed(), clsT610Appoint::kMobileId);
  appoint->LetData(modDate::FormatDateText(clock_.Now()), clsT610Appoint::kModified);
  appoint->LetData(clsT610Appoint::GetTypeName(typeNo, language_), clsT610Appoint::kCategory);
  appoint->LetData(record.AlarmTime.Trimmed(), clsT610Appoint::kAlarm);
  appoint->LetData(record.StartTime.Trimmed(), clsT610Appoint::kStart);
  appoint->LetData(record.EndTime.Trimmed(), clsT610Appoint::kEnd);
  appoint->LetData(ToText(record.Spare), clsT610Appoint::kSpare);
  appoint->LetData(record.Summary.Trimmed(), clsT610Appoint::kSubject);
  appoint->LetData(record.Location.Trimmed(), clsT610Appoint::kLocation);
  return appoint;
}

void CalendarLists::Save() {
  if (phoneAppointments == nullptr) return;
  if (isHidden_) Join(LinkedLines());  // the file may be one that can be read by now
  isSaved_ = phoneAppointments->WriteContactToFile(files_.Path(kFile), KeptLines());
}

void CalendarLists::Unloading() {
  Save();
  phoneAppointments.reset();
}

}  // namespace tessarin
