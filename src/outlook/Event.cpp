#include "outlook/Event.h"

#include <algorithm>
#include <cmath>

#include "codecs/Faults.h"
#include "outlook/LineValue.h"

namespace tessarin::outlook {

namespace {

constexpr int kSecondsADay = 86400;

bool SameTime(DateValue a, DateValue b) { return modDate::Unpack(a) == modDate::Unpack(b); }

bool IsMidnight(DateValue value) {
  const DateParts parts = modDate::Unpack(value);
  return parts.hour == 0 && parts.minute == 0 && parts.second == 0;
}

// A trigger counts exact time, the reminder's minutes go by the clock on the wall.
std::string TriggerText(DateValue start, long long minutes) {
  const DateValue alarm = start - modDate::MinutesToDays(minutes);
  const long long exact = IsInYears(alarm) ? SecondsBetween(alarm, start) / 60 : minutes;
  return (exact < 0 ? "PT" : "-PT") + std::to_string(std::abs(exact)) + "M";
}

}  // namespace

std::optional<Event> Event::Read(std::string_view bytes) {
  auto lines = ContentLines::Read(bytes);
  if (!lines) return std::nullopt;
  int outer = 0;
  for (const ContentBlock& block : lines->blocks()) {
    if (block.depth != 0) continue;
    if (block.name != "VCALENDAR" || ++outer > 1) return std::nullopt;
  }
  Event event(std::move(*lines));
  if (!event.Survey()) return std::nullopt;
  return event;
}

Event Event::New(const std::string& uid, DateValue now) {
  const DateValue start = std::ceil(now * 48) / 48;
  return *Read(
      "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Tessarin//EN\r\nBEGIN:VEVENT\r\nUID:" + uid +
      "\r\nDTSTAMP:" + WriteUtcTime(now) + "\r\nDTSTART:" + WriteUtcTime(start) +
      "\r\nDTEND:" + WriteUtcTime(start + 1.0 / 48) + "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
}

std::vector<std::size_t> Event::FindAll(std::string_view name) const {
  std::vector<std::size_t> found;
  for (const std::size_t line : lines_.OwnLines(lines_.blocks()[*event_])) {
    if (lines_.lines()[line].name == name) found.push_back(line);
  }
  return found;
}

std::optional<std::size_t> Event::Find(std::string_view name) const {
  const auto found = FindAll(name);
  return found.empty() ? std::nullopt : std::optional(found.front());
}

Text Event::TextIn(std::string_view name) const {
  const auto line = Find(name);
  return line ? UnescapeText(lines_.lines()[*line].value()) : Text();
}

bool Event::Survey() {
  if (!FindEvent()) return false;
  if (!event_) return true;
  fields_ = {};
  fields_.Subject = TextIn("SUMMARY");
  fields_.Location = TextIn("LOCATION");
  for (const std::size_t line : FindAll("CATEGORIES")) {
    for (const auto& category : SplitValue(lines_.lines()[line].value(), ',')) {
      if (!fields_.Categories.empty()) fields_.Categories += u", ";
      fields_.Categories += TrimBlanks(UnescapeText(category));
    }
  }
  if (!SurveyTimes()) return false;
  SurveyReminder();
  return true;
}

// All events of an object are one: at most one that recurs or stands alone, and occurrences of it,
// which its UID ties to it.
bool Event::FindEvent() {
  const auto& blocks = lines_.blocks();
  event_.reset();
  std::optional<std::size_t> single, exception;
  std::optional<Text> uid;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (blocks[i].name != "VEVENT" || blocks[i].depth != 1) continue;
    event_ = i;
    const Text own = TrimBlanks(TextIn("UID"));
    auto& found = Find("RECURRENCE-ID") ? exception : single;
    if (uid && (own.empty() || own != *uid)) return false;
    if (single && &found == &single) return false;
    if (!found) found = i;
    uid = own;
  }
  event_ = single ? single : exception;
  uid_ = uid.value_or(Text());
  return true;
}

bool Event::SurveyTimes() {
  const auto startLine = Find("DTSTART");
  if (!startLine) return false;
  const auto start = ReadEventTime(lines_, lines_.lines()[*startLine]);
  if (!start) return false;
  allDay_ = start->allDay;
  fields_.Start = start->value;
  fields_.End = start->value + (allDay_ ? 1 : 0);
  if (const auto endLine = Find("DTEND")) {
    const auto end = ReadEventTime(lines_, lines_.lines()[*endLine]);
    if (!end) return false;
    fields_.End = end->value;
  } else if (const auto durationLine = Find("DURATION")) {
    const auto duration = ReadDuration(lines_.lines()[*durationLine].value());
    const auto end = duration ? After(start->value, *duration) : std::nullopt;
    if (!end) return false;
    fields_.End = *end;
  }
  return IsInYears(fields_.Start) && IsInYears(fields_.End);
}

std::vector<const ContentBlock*> Event::Alarms() const {
  std::vector<const ContentBlock*> alarms;
  const ContentBlock& event = lines_.blocks()[*event_];
  for (const ContentBlock& block : lines_.blocks()) {
    const bool inside = block.begin > event.begin && block.end < event.end;
    if (block.name == "VALARM" && inside && block.depth == event.depth + 1) {
      alarms.push_back(&block);
    }
  }
  return alarms;
}

std::optional<DateValue> Event::AlarmTime(const ContentBlock& alarm) const {
  std::optional<DateValue> time;
  bool isSeen = false;
  for (const std::size_t own : lines_.OwnLines(alarm)) {
    const ContentLine& line = lines_.lines()[own];
    const std::string value = UpperAscii(line.value());
    if (line.name == "ACTION") isSeen = value == "AUDIO" || value == "DISPLAY";
    if (line.name != "TRIGGER") continue;
    const bool fromEnd = UpperAscii(ParameterText(line, "RELATED")) == "END";
    if (const auto duration = ReadDuration(value)) {
      time = After(fromEnd ? fields_.End : fields_.Start, *duration);
    } else if (const auto moment = ReadEventTime(lines_, line)) {
      time = moment->value;
    }
  }
  return isSeen ? time : std::nullopt;
}

void Event::SurveyReminder() {
  alarms_.clear();
  reminders_.clear();
  std::optional<DateValue> first;
  for (const ContentBlock* alarm : Alarms()) {
    const auto time = AlarmTime(*alarm);
    if (!time) continue;
    if (!first) first = time;
    alarms_.push_back(static_cast<std::size_t>(alarm - lines_.blocks().data()));
    if (SameTime(*time, *first)) reminders_.push_back(alarms_.back());
  }
  fields_.ReminderSet = first.has_value();
  if (!first) return;
  // An alarm is never told later than it is.
  const auto seconds = std::llround((fields_.Start - *first) * kSecondsADay);
  fields_.ReminderMinutesBeforeStart =
      static_cast<long long>(std::ceil(static_cast<double>(seconds) / 60));
  const auto alarm = fields_.Start - modDate::MinutesToDays(fields_.ReminderMinutesBeforeStart);
  if (!IsInYears(alarm)) fields_.ReminderSet = false;
}

void Event::Apply(const AppointmentChanges& changes) {
  if (changes.clearRecurrence) ClearRecurrence();
  if (changes.Categories && *changes.Categories != fields_.Categories) {
    SetCategories(*changes.Categories);
  }
  if (changes.Subject && *changes.Subject != fields_.Subject) SetText("SUMMARY", *changes.Subject);
  if (changes.Location && *changes.Location != fields_.Location) {
    SetText("LOCATION", *changes.Location);
  }
  const AppointmentFields before = fields_;
  const DateValue start = changes.Start.value_or(before.Start);
  const DateValue end = changes.End.value_or(before.End);
  if (!SameTime(start, before.Start) || !SameTime(end, before.End)) SetTimes(start, end);
  const bool set = changes.ReminderSet.value_or(before.ReminderSet);
  const long long minutes =
      changes.ReminderMinutesBeforeStart.value_or(before.ReminderMinutesBeforeStart);
  if (set != fields_.ReminderSet || (set && minutes != fields_.ReminderMinutesBeforeStart)) {
    SetReminder(set, minutes, changes.playSound);
  }
}

void Event::Add(const std::vector<std::string>& texts) {
  lines_.Insert(lines_.blocks()[*event_].end, texts);
  Survey();
}

void Event::Erase(const std::vector<std::size_t>& lines) {
  lines_.Erase(lines);
  Survey();
}

void Event::SetText(const char* name, const Text& text) {
  const auto line = Find(name);
  if (!line) {
    Add({name + (":" + EscapeText(text))});
  } else if (text.empty() && FindAll(name).size() == 1) {
    Erase({*line});
  } else {
    lines_.SetValue(*line, EscapeText(text));
    Survey();
  }
}

// All categories go into the first of the lines.
void Event::SetCategories(const Text& categories) {
  std::vector<std::size_t> lines = FindAll("CATEGORIES");
  std::vector<std::string> values;
  for (const Text& category : Split(categories, u",")) {
    if (!TrimBlanks(category).empty()) values.push_back(EscapeText(TrimBlanks(category)));
  }
  const std::string value = JoinValue(values, ',');
  if (!lines.empty() && !values.empty()) {
    lines_.SetValue(lines[0], value);
    lines.erase(lines.begin());
  } else if (!values.empty()) {
    Add({"CATEGORIES:" + value});
  }
  Erase(lines);
}

// Whole days stay whole days; any other time is written in UTC, which needs no zone.
void Event::SetTimes(DateValue start, DateValue end) {
  const bool days = allDay_ && IsMidnight(start) && IsMidnight(end) && end > start;
  const auto write = [&](const char* name, DateValue value) {
    const auto line = Find(name);
    std::string text = name;
    if (line) {
      ContentLine bare = lines_.lines()[*line];
      for (const char* parameter : {"TZID", "VALUE"}) {
        bare.text = HeadWithout(bare, parameter) + ":";
        bare.colon = bare.text.size() - 1;
      }
      text = bare.head();
    }
    text += days ? ";VALUE=DATE:" + WriteDate(value) : ":" + WriteUtcTime(value);
    if (line) {
      lines_.SetText(*line, text);
    } else {
      lines_.Insert(lines_.blocks()[*event_].end, {text});
    }
  };
  // The first of the two leaves the object without sense, so it is surveyed after the second.
  if (const auto duration = Find("DURATION")) lines_.Erase({*duration});
  write("DTSTART", start);
  write("DTEND", end);
  Survey();
}

// Switched off is every alarm that could be taken for the reminder; moved are only those of its
// time.
void Event::SetReminder(bool set, long long minutes, bool playSound) {
  const std::string trigger = "TRIGGER:" + TriggerText(fields_.Start, minutes);
  if (!set) return EraseBlocks(alarms_);
  if (reminders_.empty()) return AddReminder(trigger, playSound);
  for (const std::size_t reminder : reminders_) {
    for (const std::size_t line : lines_.OwnLines(lines_.blocks()[reminder])) {
      if (lines_.lines()[line].name == "TRIGGER") lines_.SetText(line, trigger);
    }
  }
  Survey();
}

// A reminder is always seen; one that plays a sound is heard as well.
void Event::AddReminder(const std::string& trigger, bool playSound) {
  std::vector<std::string> texts = {"BEGIN:VALARM", "ACTION:DISPLAY", trigger,
                                    "DESCRIPTION:" + EscapeText(fields_.Subject), "END:VALARM"};
  if (playSound) {
    texts.insert(texts.end(), {"BEGIN:VALARM", "ACTION:AUDIO", trigger, "END:VALARM"});
  }
  Add(texts);
}

void Event::EraseBlocks(const std::vector<std::size_t>& blocks) {
  std::vector<std::size_t> gone;
  for (const std::size_t number : blocks) {
    const ContentBlock& block = lines_.blocks()[number];
    for (std::size_t line = block.begin; line <= block.end; ++line) gone.push_back(line);
  }
  Erase(gone);
}

void Event::ClearRecurrence() {
  std::vector<std::size_t> gone, occurrences;
  for (const char* name : {"RRULE", "RDATE", "EXDATE", "EXRULE", "RECURRENCE-ID"}) {
    const auto lines = FindAll(name);
    gone.insert(gone.end(), lines.begin(), lines.end());
  }
  Erase(gone);
  for (std::size_t i = 0; i < lines_.blocks().size(); ++i) {
    const ContentBlock& block = lines_.blocks()[i];
    if (block.name == "VEVENT" && block.depth == 1 && i != *event_) occurrences.push_back(i);
  }
  EraseBlocks(occurrences);
}

}  // namespace tessarin::outlook
