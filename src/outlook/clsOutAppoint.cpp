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
  AItem->SetCategories(appoint.GetData(clsT610Appoint::kCategory));
  AItem->SetSubject(appoint.GetData(clsT610Appoint::kSubject));
  AItem->SetLocation(appoint.GetData(clsT610Appoint::kLocation));
  AItem->ClearRecurrencePattern();
  if (!start.empty()) AItem->SetStart(modDate::ParseDateText(start));
  if (!end.empty()) AItem->SetEnd(modDate::ParseDateText(end));
  AItem->SetReminderSet(false);
  AItem->SetReminderPlaySound(false);
  if (!alarm.empty()) {
    AItem->SetReminderSet(true);
    AItem->SetReminderPlaySound(true);
    AItem->SetReminderMinutesBeforeStart(
        modDate::DaysToMinutes(modDate::ParseDateText(start) - modDate::ParseDateText(alarm)));
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
