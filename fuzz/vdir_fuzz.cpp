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

void TryCard(const std::string& bytes, unsigned choice, const Text& text) {
  auto card = Card::Read(bytes);
  if (!card) return;
  Require(card->Bytes() == bytes);
  card->Apply({});
  Require(card->Bytes() == bytes);
  card->Apply({{static_cast<ContactProperty>(choice % kContactProperties), text}});
  const std::set<std::string> owned = {"FN", "N", "TEL", "EMAIL", "ORG", "URL", "ADR"};
  Require(Rest(card->Bytes(), owned) == Rest(bytes, owned));
  const auto again = Card::Read(card->Bytes());
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
  Require(Rest(event->Bytes(), owned) == Rest(bytes, owned));
  changes.ReminderSet = (choice & 8) != 0;
  changes.ReminderMinutesBeforeStart = choice;
  changes.clearRecurrence = true;
  event->Apply(changes);
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
