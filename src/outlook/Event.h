#pragma once

// An iCalendar object as an appointment of Outlook. The appointment is the first VEVENT without a
// RECURRENCE-ID; others of the same UID are occurrences that were moved, and stay.
//
//   Categories   CATEGORIES, joined by ", "
//   Subject      SUMMARY
//   Location     LOCATION
//   Start        DTSTART in local time; midnight for a date
//   End          DTEND, else DTSTART and DURATION, else the day's end for a date, else the start
//   reminder     the first VALARM that shows or sounds, with any others of the same time; switching
//                it off takes all away that show or sound, so that no other is one then
//
// All else stays to the byte, and so do these while their value stays.

#include <optional>
#include <string>

#include "outlook/ContentLines.h"
#include "outlook/EventTimes.h"
#include "outlook/Outlook.h"

namespace tessarin::outlook {

// What to change; what is absent stays.
struct AppointmentChanges {
  std::optional<Text> Categories, Subject, Location;
  std::optional<DateValue> Start, End;
  std::optional<bool> ReminderSet;
  std::optional<long long> ReminderMinutesBeforeStart;
  bool playSound = false;  // of a reminder that is made
  bool clearRecurrence = false;
};

class Event {
 public:
  // None when the bytes are no whole object, or when their event has no start that can be read, or
  // when they hold several events: of several UIDs, without any, or of one UID but no occurrences.
  static std::optional<Event> Read(std::string_view bytes);
  // A new event of half an hour from the next half hour on.
  static Event New(const std::string& uid, DateValue now);

  std::string Bytes() const { return lines_.Bytes(); }
  // False for an object of to-dos, notes and the like. Nothing else may then be asked of it.
  bool IsItem() const { return event_.has_value(); }
  const Text& uid() const { return uid_; }
  const AppointmentFields& fields() const { return fields_; }

  void Apply(const AppointmentChanges& changes);

 private:
  explicit Event(ContentLines lines) : lines_(std::move(lines)) {}

  bool Survey();
  bool FindEvent();
  bool SurveyTimes();
  void SurveyReminder();
  // The event's own lines of that name.
  std::vector<std::size_t> FindAll(std::string_view name) const;
  std::optional<std::size_t> Find(std::string_view name) const;  // the first
  Text TextIn(std::string_view name) const;
  // Local time; none for an alarm by mail or the like.
  std::optional<DateValue> AlarmTime(const ContentBlock& alarm) const;
  std::vector<const ContentBlock*> Alarms() const;

  void SetText(const char* name, const Text& text);
  void SetCategories(const Text& categories);
  void SetTimes(DateValue start, DateValue end);
  void SetReminder(bool set, long long minutes, bool playSound);
  void AddReminder(const std::string& trigger, bool playSound);
  void ClearRecurrence();
  void EraseBlocks(const std::vector<std::size_t>& blocks);
  void Add(const std::vector<std::string>& texts);
  void Erase(const std::vector<std::size_t>& lines);

  ContentLines lines_;
  std::optional<std::size_t> event_;  // its block
  Text uid_;
  AppointmentFields fields_;
  bool allDay_ = false;
  std::vector<std::size_t> alarms_;     // blocks of those that show or sound
  std::vector<std::size_t> reminders_;  // of these the ones that are the reminder
};

}  // namespace tessarin::outlook
