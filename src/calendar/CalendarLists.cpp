#include "calendar/CalendarLists.h"

namespace tessarin {

namespace {

constexpr char16_t kFile[] = u"\\Cal\\CalendarMobile.dat";

}  // namespace

void CalendarLists::Rebuild(const std::vector<CalendarRecord>& records) {
  phoneAppointments = std::make_unique<clsT610AppointList>(language_);
  for (const CalendarRecord& record : records) {
    if (record.EntryType == u"EVENT") phoneAppointments->Add(AppointOf(record));
  }
  fileKnown_ = phoneAppointments->LoadT610AppointList(files_.Path(kFile));
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

void CalendarLists::Save() const {
  if (phoneAppointments != nullptr && fileKnown_) {
    phoneAppointments->WriteContactToFile(files_.Path(kFile));
  }
}

void CalendarLists::Unloading() {
  Save();
  phoneAppointments.reset();
}

}  // namespace tessarin
