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

DateValue DaysOf(long long seconds) { return static_cast<double>(seconds) / kSecondsADay; }

bool IsInYears(DateValue value) {
  try {
    modDate::Unpack(value);
    return true;
  } catch (const ConversionError&) {
    return false;
  }
}

std::string TriggerText(long long minutes) {
  return (minutes < 0 ? "PT" : "-PT") + std::to_string(std::abs(minutes)) + "M";
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

std::optional<std::size_t> Event::Find(std::string_view name) const {
  for (const std::size_t line : lines_.OwnLines(lines_.blocks()[*event_])) {
    if (lines_.lines()[line].name == name) return line;
  }
  return std::nullopt;
}

bool Event::Survey() {
  const auto& blocks = lines_.blocks();
  event_.reset();
  bool isException = true;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (blocks[i].name != "VEVENT" || blocks[i].depth != 1) continue;
    const auto before = event_;
    event_ = i;
    const auto uidLine = Find("UID");
    const Text uid = uidLine ? TrimBlanks(UnescapeText(lines_.lines()[*uidLine].value())) : Text();
    const bool exception = Find("RECURRENCE-ID").has_value();
    if (before && uid != uid_) return false;
    uid_ = uid;
    if (before && (!isException || exception)) {
      event_ = before;
    } else {
      isException = exception;
    }
  }
  if (!event_) return true;
  const auto text = [this](std::string_view name) {
    const auto line = Find(name);
    return line ? UnescapeText(lines_.lines()[*line].value()) : Text();
  };
  fields_ = {};
  fields_.Subject = text("SUMMARY");
  fields_.Location = text("LOCATION");
  for (const std::size_t line : lines_.OwnLines(blocks[*event_])) {
    if (lines_.lines()[line].name != "CATEGORIES") continue;
    for (const auto& category : SplitValue(lines_.lines()[line].value(), ',')) {
      if (!fields_.Categories.empty()) fields_.Categories += u", ";
      fields_.Categories += TrimBlanks(UnescapeText(category));
    }
  }
  if (!SurveyTimes()) return false;
  SurveyReminder();
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
    if (!duration) return false;
    fields_.End = start->value + DaysOf(*duration);
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

std::optional<long long> Event::TriggerOf(const ContentBlock& alarm) const {
  std::optional<long long> trigger;
  bool isSeen = false;
  for (const std::size_t own : lines_.OwnLines(alarm)) {
    const ContentLine& line = lines_.lines()[own];
    const std::string value = UpperAscii(line.value());
    if (line.name == "ACTION") isSeen = value == "AUDIO" || value == "DISPLAY";
    if (line.name != "TRIGGER") continue;
    trigger = ReadDuration(value);
    const auto days = [this](DateValue from) {
      return std::llround((from - fields_.Start) * kSecondsADay);
    };
    if (trigger && UpperAscii(ParameterText(line, "RELATED")) == "END") {
      *trigger += days(fields_.End);
    } else if (!trigger) {
      const auto moment = ReadEventTime(lines_, line);
      if (moment) trigger = days(moment->value);
    }
  }
  return isSeen ? trigger : std::nullopt;
}

void Event::SurveyReminder() {
  reminders_.clear();
  std::optional<long long> first;
  for (const ContentBlock* alarm : Alarms()) {
    const auto trigger = TriggerOf(*alarm);
    if (!trigger || (first && *trigger != *first)) continue;
    first = trigger;
    reminders_.push_back(static_cast<std::size_t>(alarm - lines_.blocks().data()));
  }
  fields_.ReminderSet = first.has_value();
  // An alarm is never told later than it is.
  fields_.ReminderMinutesBeforeStart =
      first ? static_cast<long long>(std::ceil(static_cast<double>(-*first) / 60)) : 0;
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
  } else if (text.empty()) {
    Erase({*line});
  } else {
    lines_.SetValue(*line, EscapeText(text));
    Survey();
  }
}

// All categories go into the first of the lines.
void Event::SetCategories(const Text& categories) {
  std::vector<std::size_t> lines;
  for (const std::size_t line : lines_.OwnLines(lines_.blocks()[*event_])) {
    if (lines_.lines()[line].name == "CATEGORIES") lines.push_back(line);
  }
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

void Event::SetReminder(bool set, long long minutes, bool playSound) {
  std::vector<std::size_t> gone, triggers;
  for (const std::size_t reminder : reminders_) {
    const ContentBlock& block = lines_.blocks()[reminder];
    for (std::size_t line = block.begin; line <= block.end; ++line) gone.push_back(line);
    for (const std::size_t line : lines_.OwnLines(block)) {
      if (lines_.lines()[line].name == "TRIGGER") triggers.push_back(line);
    }
  }
  const std::string trigger = "TRIGGER:" + TriggerText(minutes);
  if (!set) {
    Erase(gone);
  } else if (!triggers.empty()) {
    for (const std::size_t line : triggers) lines_.SetText(line, trigger);
    Survey();
  } else {
    // A reminder is always seen; one that plays a sound is heard as well.
    std::vector<std::string> texts = {"BEGIN:VALARM", "ACTION:DISPLAY", trigger,
                                      "DESCRIPTION:" + EscapeText(fields_.Subject), "END:VALARM"};
    if (playSound) {
      texts.insert(texts.end(), {"BEGIN:VALARM", "ACTION:AUDIO", trigger, "END:VALARM"});
    }
    Add(texts);
  }
}

void Event::ClearRecurrence() {
  std::vector<std::size_t> gone;
  for (const std::size_t line : lines_.OwnLines(lines_.blocks()[*event_])) {
    const std::string& name = lines_.lines()[line].name;
    if (name == "RRULE" || name == "RDATE" || name == "EXDATE" || name == "EXRULE") {
      gone.push_back(line);
    }
  }
  for (std::size_t i = 0; i < lines_.blocks().size(); ++i) {
    const ContentBlock& block = lines_.blocks()[i];
    if (block.name != "VEVENT" || block.depth != 1 || i == *event_) continue;
    for (std::size_t line = block.begin; line <= block.end; ++line) gone.push_back(line);
  }
  Erase(gone);
}

}  // namespace tessarin::outlook
