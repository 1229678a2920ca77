// The readers of .vcf and .ics files, and the edits that keep every byte they do not own.

#include <algorithm>
#include <set>

#include "fuzz/Pieces.h"
#include "outlook/Card.h"
#include "outlook/Event.h"

namespace {

using namespace tessarin;
using namespace tessarin::outlook;

// The lines of all names but these, byte for byte.
std::string Rest(const std::string& bytes, const std::set<std::string>& names) {
  const auto lines = ContentLines::Read(bytes);
  Require(lines.has_value());
  std::string rest;
  for (const ContentLine& line : lines->lines()) {
    if (names.count(line.name) == 0) rest += line.raw;
  }
  return rest;
}

// How many of the lines are not there any more, whatever their order. Labels go with what they
// label.
std::size_t Missing(const std::string& before, const std::string& after) {
  const auto old = ContentLines::Read(before), now = ContentLines::Read(after);
  Require(old && now);
  std::multiset<std::string> left;
  for (const ContentLine& line : now->lines()) left.insert(line.raw);
  std::size_t missing = 0;
  for (const ContentLine& line : old->lines()) {
    const auto found = left.find(line.raw);
    if (found != left.end()) {
      left.erase(found);
    } else if (!line.name.starts_with("X-AB")) {
      ++missing;
    }
  }
  return missing;
}

// As a phone does it that changes one field: the whole record is written, again and again.
void TryCard(const std::string& bytes, unsigned choice, const Text& text) {
  auto card = Card::Read(bytes);
  if (!card) return;
  Require(card->Bytes() == bytes);
  card->Apply({});
  Require(card->Bytes() == bytes);
  const auto property = static_cast<ContactProperty>(choice % kContactProperties);
  ContactChanges record;
  for (std::size_t i = 0; i < kContactProperties; ++i) {
    record[static_cast<ContactProperty>(i)] = card->texts()[i];
  }
  record[property] = text;
  card->Apply(record);
  const std::string once = card->Bytes();
  // The name has two lines, all else has one.
  Require(Missing(bytes, once) <= (property == ContactProperty::FullName ? 2 : 1));
  if (text.empty() && property != ContactProperty::Email1Address &&
      property != ContactProperty::Email2Address) {
    Require(card->texts()[static_cast<std::size_t>(property)].empty());
  }
  card->Apply(record);
  Require(card->Bytes() == once);
  const auto again = Card::Read(once);
  Require(again && again->texts() == card->texts() && again->uid() == card->uid());
}

void TryEvent(const std::string& bytes, unsigned choice, const Text& text) {
  auto event = Event::Read(bytes);
  if (!event || !event->IsItem()) return;
  Require(event->Bytes() == bytes);
  AppointmentChanges changes;
  changes.Subject = text;
  changes.Categories = text;
  if (choice & 1) changes.Start = modDate::PackDate(2004, 6, static_cast<int>(choice % 30));
  if (choice & 2) changes.Location = text;
  if (choice & 4) changes.End = modDate::PackDate(2004, 7, 1) + modDate::PackTime(1, 0, 0);
  event->Apply(changes);
  const std::set<std::string> owned = {"SUMMARY", "LOCATION", "CATEGORIES", "DTSTART",
                                       "DTEND",   "DURATION", "TRIGGER"};
  const std::string once = event->Bytes();
  Require(Rest(once, owned) == Rest(bytes, owned));
  event->Apply(changes);
  Require(event->Bytes() == once);
  changes.ReminderSet = (choice & 8) != 0;
  changes.ReminderMinutesBeforeStart = choice;
  changes.clearRecurrence = true;
  event->Apply(changes);
  Require(changes.ReminderSet == event->fields().ReminderSet);
  const auto again = Event::Read(event->Bytes());
  Require(again && again->IsItem() && again->uid() == event->uid());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  setenv("TZ", "Europe/Berlin", 1);
  if (size < 2) return 0;
  const std::string input(reinterpret_cast<const char*>(data), size);
  const auto choice = static_cast<unsigned>(data[0]);
  const std::size_t length = std::min<std::size_t>(data[1] % 32, size - 2);
  const Text text = FromUtf8(input.substr(2, length));
  const std::string bytes = input.substr(2 + length);
  TryCard(bytes, choice, text);
  TryEvent(bytes, choice, text);
  return 0;
}
