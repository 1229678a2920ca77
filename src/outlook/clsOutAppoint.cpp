#include "outlook/clsOutAppoint.h"

namespace tessarin {

clsOutAppoint::clsOutAppoint(outlook::Automation& automation)
    : AItem(std::dynamic_pointer_cast<outlook::AppointmentItem>(
          automation.Shared().CreateItem(outlook::kAppointmentType))) {}

// An alarm without a start counts from the zero date, which lies before any alarm.
void clsOutAppoint::UpdateByT610Appoint(const clsT610Appoint& appoint) {
  const Text& alarm = appoint.GetData(clsT610Appoint::kAlarm);
  const Text& start = appoint.GetData(clsT610Appoint::kStart);
  const Text& end = appoint.GetData(clsT610Appoint::kEnd);
  // All times are read first: one that does not read leaves the item as it is.
  const DateValue startTime = start.empty() ? 0 : modDate::ParseDateText(start);
  const DateValue endTime = end.empty() ? 0 : modDate::ParseDateText(end);
  const long long minutes =
      alarm.empty()
          ? 0
          : modDate::DaysToMinutes(modDate::ParseDateText(start) - modDate::ParseDateText(alarm));
  AItem->SetCategories(appoint.GetData(clsT610Appoint::kCategory));
  AItem->SetSubject(appoint.GetData(clsT610Appoint::kSubject));
  AItem->SetLocation(appoint.GetData(clsT610Appoint::kLocation));
  AItem->ClearRecurrencePattern();
  if (!start.empty()) AItem->SetStart(startTime);
  if (!end.empty()) AItem->SetEnd(endTime);
  AItem->SetReminderSet(false);
  AItem->SetReminderPlaySound(false);
  if (!alarm.empty()) {
    AItem->SetReminderSet(true);
    AItem->SetReminderPlaySound(true);
    AItem->SetReminderMinutesBeforeStart(minutes);
  }
  AItem->Save();
}

OutlookFacts FactsOf(const clsOutAppoint& appoint) {
  outlook::AppointmentItem& item = *appoint.AItem;
  const DateValue modified = item.LastModificationTime();
  const outlook::AppointmentFields& fields = item.Get();
  return {item.EntryID(), modified,           fields.Categories,
          fields.Subject, fields.Location,    fields.Start,
          fields.End,     fields.ReminderSet, fields.ReminderMinutesBeforeStart};
}

}  // namespace tessarin
