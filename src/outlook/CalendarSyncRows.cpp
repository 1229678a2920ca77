#include "outlook/CalendarSyncRows.h"

#include "core/TextIndex.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

namespace words = text::interface_;
using A = clsT610Appoint;

constexpr std::string_view kItem = "Item";

struct Column {
  int heading;
  int width;  // pixels
  int field;
};

constexpr Column kColumns[] = {
    {words::kCalendarSyncCategory, 120, A::kCategory},
    {words::kCalendarSyncSubject, 150, A::kSubject},
    {words::kCalendarSyncLocation, 110, A::kLocation},
    {words::kCalendarSyncStart, 130, A::kStart},
    {words::kCalendarSyncEnd, 130, A::kEnd},
    {words::kCalendarSyncAlarm, 130, A::kAlarm},
    {words::kCalendarSyncModified, 130, A::kModified},
};

}  // namespace

std::vector<ListColumn> AppointColumns(const Language& language) {
  std::vector<ListColumn> columns;
  for (const Column& column : kColumns) {
    columns.push_back({language.getTSInterfaceStr(column.heading), column.width, false, true});
  }
  return columns;
}

// The first cell of the phone's entries is the kept word, MISCELLANEOUS for all: the list knows no
// types, and this is what Outlook gets as the category.
std::vector<ListRow> AppointRows(const clsT610AppointList& list) {
  std::vector<ListRow> rows;
  for (const auto& entry : list.NewEnum()) {
    ListRow row;
    row.key = std::string(kItem) + ToUtf8(entry->GetData(A::kMobileId));
    for (const Column& column : kColumns) {
      row.cells.push_back(OneLine(entry->GetData(column.field)));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<ListRow> OutlookAppointRows(const clsOutAppointList& list) {
  std::vector<ListRow> rows;
  for (const auto& appoint : list.NewEnum()) {
    const OutlookFacts facts = FactsOf(*appoint);
    const auto text = [](DateValue value) { return modDate::FormatDateText(value); };
    const DateValue alarm = facts.Start - modDate::MinutesToDays(facts.ReminderMinutesBeforeStart);
    ListRow row;
    row.key = ToUtf8(facts.EntryID);
    row.cells = {facts.Categories,
                 facts.Subject,
                 facts.Location,
                 text(facts.Start),
                 text(facts.End),
                 facts.ReminderSet ? text(alarm) : Text(),
                 text(facts.LastModificationTime)};
    rows.push_back(std::move(row));
  }
  return rows;
}

Text MobileIdInAppointKey(const std::string& key) {
  return FromUtf8(std::string_view(key).substr(std::min(kItem.size(), key.size())));
}

}  // namespace tessarin
