#include "phonesim/Vcalendar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>

#include "phonesim/ContentLine.h"
#include "phonesim/ObexPacket.h"

namespace phonesim {
namespace {

struct Property {
  const char* name;
  const char* field;
  bool stamp;
};

constexpr std::array<Property, 8> kProperties = {{{"DTSTART", "start", true},
                                                  {"DTEND", "end", true},
                                                  {"DUE", "due", true},
                                                  {"SUMMARY", "summary", false},
                                                  {"LOCATION", "location", false},
                                                  {"AALARM", "alarm", true},
                                                  {"CATEGORIES", "category", false},
                                                  {"STATUS", "status", false}}};

constexpr std::array kCategories = {"APPOINTMENT", "DATE",        "TRAVEL",
                                    "VACATION",    "ANNIVERSARY", "MISCELLANEOUS"};

ObexFault Breach(const std::string& what) { return ObexFault(obex::kBadRequest, what); }

/// The digits of `text` from `at` on as a number; -1 when others stand among them.
int Digits(const std::string& text, std::size_t at, std::size_t count) {
  int number = 0;
  for (const char c : text.substr(at, count)) {
    if (std::isdigit(static_cast<unsigned char>(c)) == 0) return -1;
    number = number * 10 + (c - '0');
  }
  return number;
}

std::string KnownCategory(const std::string& category) {
  const bool known =
      std::find(kCategories.begin(), kCategories.end(), category) != kCategories.end();
  return known ? category : kCategories.back();
}

void TakeLine(Fields& fields, const ContentLine& line) {
  const auto property = std::find_if(kProperties.begin(), kProperties.end(),
                                     [&line](const Property& p) { return p.name == line.name; });
  if (property == kProperties.end()) throw Breach("unknown property " + line.name);
  if (fields.contains(property->field)) throw Breach("a second " + line.name);
  const std::string text = line.Text();
  if (property->stamp && !IsStamp(text)) throw Breach(line.name + " is no time stamp");
  fields[property->field] = text;
}

}  // namespace

bool IsStamp(const std::string& text) {
  const bool form = (text.size() == 15 || (text.size() == 16 && text[15] == 'Z')) && text[8] == 'T';
  if (!form) return false;
  const int year = Digits(text, 0, 4);
  const int month = Digits(text, 4, 2);
  const int day = Digits(text, 6, 2);
  if (year < 0 || month < 1 || day < 1) return false;
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  const auto within = [&text](std::size_t at, int limit) {
    const int number = Digits(text, at, 2);
    return number >= 0 && number < limit;
  };
  return date.ok() && within(9, 24) && within(11, 60) && within(13, 60);
}

std::string WriteVcalendar(const Book::Entry& entry, bool quoteAll) {
  const std::string kind = Field(entry.fields, "kind") == "TASK" ? "VTODO" : "VEVENT";
  std::string object = "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:" + kind + "\r\n";
  for (const Property& property : kProperties) {
    object += WriteContentLine(property.name, {Field(entry.fields, property.field)}, {quoteAll});
  }
  return object + "X-IRMC-LUID:" + entry.luid + "\r\nEND:" + kind + "\r\nEND:VCALENDAR\r\n";
}

Fields ReadVcalendar(const std::string& object) {
  std::vector<ContentLine> lines = SplitContentLines(object);
  TakeFrame(lines, {"BEGIN:VCALENDAR", "VERSION:1.0", "BEGIN:VEVENT"},
            {"END:VEVENT", "END:VCALENDAR"});
  Fields fields;
  for (const ContentLine& line : lines) TakeLine(fields, line);
  if (!fields.contains("start")) throw Breach("event without DTSTART");
  fields["kind"] = "EVENT";
  fields["category"] = KnownCategory(Field(fields, "category"));
  std::erase_if(fields, [](const auto& field) { return field.second.empty(); });
  return fields;
}

}  // namespace phonesim
