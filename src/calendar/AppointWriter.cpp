// The way of a list's entry to the phone.
#include "calendar/clsT610AppointList.h"
#include "codecs/vCalendar.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

constexpr TextView kNoMobileId = u"-1";

CalendarRecord RecordOf(const clsT610Appoint& appoint) {
  CalendarRecord record;
  record.Category = appoint.GetData(clsT610Appoint::kCategory);
  record.StartTime = appoint.GetData(clsT610Appoint::kStart);
  record.EndTime = appoint.GetData(clsT610Appoint::kEnd);
  record.AlarmTime = appoint.GetData(clsT610Appoint::kAlarm);
  record.Summary = appoint.GetData(clsT610Appoint::kSubject);
  record.Location = appoint.GetData(clsT610Appoint::kLocation);
  return record;
}

}  // namespace

void CutToPhone(clsT610Appoint& appoint) {
  const CalendarRecord record = RecordOf(appoint);
  appoint.LetData(record.Summary.Trimmed(), clsT610Appoint::kSubject);
  appoint.LetData(record.Location.Trimmed(), clsT610Appoint::kLocation);
}

Text clsT610AppointList::WriteAppointToMobile(const clsT610Appoint& appoint, TessarinMenu& session,
                                              const PhoneLink& link, bool* written) {
  CalendarRecord record = RecordOf(appoint);
  const Text& mobileID = appoint.GetData(clsT610Appoint::kMobileId);
  const std::string hex = vcard::EncodeVCalendar(record, session.clock());
  const bool isNew = mobileID == kNoMobileId || mobileID.empty();
  Text result;
  std::string connectionId;
  link.obex.EndOBEXSession();
  const bool isOpen = link.obex.ConnectIrmcSync(connectionId);
  const bool done = isOpen && (isNew ? link.irmc.AddCalendarEntry(hex, result)
                                     : link.irmc.ReplaceCalendarEntry(mobileID, hex));
  link.obex.EndOBEXSession();
  if (written != nullptr) *written = done;
  if (done) return result;
  session.ShowError(text::error::kWriteEvent);
  return isOpen ? Text(kNoMobileId) : Text();
}

}  // namespace tessarin
