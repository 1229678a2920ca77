#include "phonesim/SampleCalendar.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <string>

namespace phonesim {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::minutes;
using std::chrono::month;
using std::chrono::sys_days;
using Moment = std::chrono::sys_time<minutes>;

/// What comes round. `start` and `length` in minutes; `alarm` minutes before, below 0 none.
struct Habit {
  const char* summary;
  const char* location;
  const char* category;
  int start;
  int length;
  int alarm;
};

const std::array<Habit, 24> kHabits = {{
    {"Team meeting", "Room 4", "APPOINTMENT", 9 * 60, 60, 15},
    {"Zahnärztin", "Goethestraße 11", "APPOINTMENT", 8 * 60 + 30, 45, 60},
    {"Dinner with Grace", "Harbour Books Café", "DATE", 19 * 60, 150, 30},
    {"Zug nach Köln", "Hauptbahnhof, Gleis 7", "TRAVEL", 6 * 60 + 42, 255, 90},
    {"Midsommar på landet", "Sjövägen 18", "VACATION", 0, 3 * 24 * 60, -1},
    {"День рождения Ольги", "", "ANNIVERSARY", 0, 24 * 60, 12 * 60},
    {"Car: service", "Garage Sikora", "MISCELLANEOUS", 7 * 60 + 45, 30, -1},
    {"Bring to the cabin:\n- blankets\n- matches\n- coffee", "", "MISCELLANEOUS", 16 * 60, 30, 0},
    {"项目会议", "三号会议室", "APPOINTMENT", 10 * 60, 90, 10},
    {"Quarterly figures; with Paweł", "Room 2: upstairs", "APPOINTMENT", 14 * 60, 60, 5},
    {"Ciné: «Été» à 20 h", "Le Garçon", "DATE", 20 * 60, 130, -1},
    {"Flight SN042 to Athens", "Terminal B", "TRAVEL", 11 * 60 + 5, 205, 180},
    {"花見", "青葉台公園", "DATE", 12 * 60, 240, -1},
    {"Swimming", "City baths", "MISCELLANEOUS", 18 * 60, 60, -1},
    {"Επέτειος γάμου", "", "ANNIVERSARY", 0, 24 * 60, 24 * 60},
    {"Night shift", "Ward 3", "APPOINTMENT", 22 * 60, 8 * 60, 45},
    {"Agenda:\n1. Budget 2/2\n2. Räume\n3. Überraschung = Kuchen", "Großer Saal", "APPOINTMENT",
     13 * 60, 120, 20},
    {"회식", "세종대로 110", "DATE", 18 * 60 + 30, 180, 30},
    {"Cabin week", "Lake Åsnen", "VACATION", 0, 7 * 24 * 60, -1},
    {"Choir", "St. Mary's", "MISCELLANEOUS", 19 * 60 + 30, 90, 10},
    {"Ferry to Gdańsk", "Pier 5", "TRAVEL", 17 * 60 + 20, 19 * 60, 120},
    {"Reading group", "Library, 2nd floor", "DATE", 18 * 60, 90, -1},
    {"Parents' evening", "School", "APPOINTMENT", 19 * 60, 75, 30},
    {"Mum's birthday", "", "ANNIVERSARY", 0, 24 * 60, 9 * 60},
}};

const std::array<const char*, 8> kTasks = {"Renew passport",
                                           "Steuererklärung abgeben",
                                           "买礼物",
                                           "Water the plants",
                                           "Pay rent",
                                           "Записаться к врачу",
                                           "Réserver l'hôtel\net le train",
                                           "Change tyres"};

std::string Stamp(Moment moment, bool utc) {
  const auto date = std::chrono::floor<days>(moment);
  const std::chrono::year_month_day ymd(date);
  const auto minute = static_cast<int>((moment - date).count());
  char text[64];
  std::snprintf(text, sizeof text, "%04d%02u%02uT%02d%02d00%s", static_cast<int>(ymd.year()),
                static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()), minute / 60,
                minute % 60, utc ? "Z" : "");
  return text;
}

/// Whole days go without a zone, so that they are the same day everywhere.
Fields MakeEvent(const Habit& habit, sys_days date) {
  const Moment start = date + minutes(habit.start);
  const bool utc = habit.start != 0;
  Fields event = {{"kind", "EVENT"},
                  {"summary", habit.summary},
                  {"location", habit.location},
                  {"category", habit.category},
                  {"start", Stamp(start, utc)},
                  {"end", Stamp(start + minutes(habit.length), utc)}};
  if (habit.alarm >= 0) event["alarm"] = Stamp(start - minutes(habit.alarm), utc);
  return event;
}

Fields MakeTask(const char* summary, sys_days date, bool done) {
  return {{"kind", "TASK"},
          {"summary", summary},
          {"due", Stamp(date + minutes(17 * 60), true)},
          {"category", "MISCELLANEOUS"},
          {"status", done ? "COMPLETED" : "NEEDS ACTION"}};
}

/// A month of 31 days that begins on a Friday or later in the week, Sunday being its first day;
/// every year has one.
sys_days LongMonth(std::chrono::year year) {
  for (unsigned number = 1; number < 12; ++number) {
    const sys_days first = year / month(number) / 1;
    const sys_days last = year / month(number) / std::chrono::last;
    const unsigned offset = std::chrono::weekday(first).c_encoding();
    if (offset + static_cast<unsigned>((last - first).count()) + 1 > 35) return first;
  }
  return year / month(12) / 1;
}

}  // namespace

std::vector<Fields> MakeSampleCalendar(int number) {
  const std::chrono::year year(number);
  std::vector<Fields> entries;
  sys_days date = (year - std::chrono::years(1)) / month(1) / day(4);
  for (std::size_t i = 0; entries.size() < 150 - 3 - kTasks.size(); ++i) {
    entries.push_back(MakeEvent(kHabits[i * 7 % kHabits.size()], date));
    date += days(i % 5 == 0 ? 0 : i % 3 == 0 ? 12 : 8);
  }
  for (unsigned i = 0; i < kTasks.size(); ++i) {
    entries.push_back(MakeTask(kTasks[i], sys_days(year / month(1 + i) / day(10)), i % 3 == 0));
  }
  const sys_days first = LongMonth(year);
  const sys_days last = std::chrono::year_month_day(first).year() /
                        std::chrono::year_month_day(first).month() / std::chrono::last;
  entries.push_back(MakeEvent({"First of six weeks", "", "DATE", 12 * 60, 60, 0}, first));
  entries.push_back(MakeEvent({"Last of six weeks", "", "DATE", 12 * 60, 60, 0}, last));
  auto leap = year;
  while (!leap.is_leap()) --leap;
  entries.push_back(MakeEvent({"29 February", "", "ANNIVERSARY", 0, 24 * 60, -1},
                              sys_days(leap / month(2) / day(29))));
  return entries;
}

}  // namespace phonesim
