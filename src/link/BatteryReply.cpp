#include "link/BatteryReply.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "link/linkport.h"

namespace tessarin {

namespace {

// Upper and lower case are equal, as in every reply of the phone.
bool StartsWith(std::string_view line, std::string_view head) {
  return line.size() >= head.size() &&
         std::equal(head.begin(), head.end(), line.begin(),
                    [](char a, char b) { return a == (b >= 'a' && b <= 'z' ? b - 32 : b); });
}

bool Equals(std::string_view line, std::string_view word) {
  return line.size() == word.size() && StartsWith(line, word);
}

constexpr std::string_view kAnswer = "+CBC:";

bool IsRefusal(std::string_view line) {
  return Equals(line, "ERROR") || StartsWith(line, "+CME ERROR") || StartsWith(line, "+CMS ERROR");
}

// Takes a number, and the blanks around it, off the head of `text`.
std::optional<unsigned> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  unsigned number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return number;
}

std::uint16_t Level(std::string_view fields) {
  if (!TakeNumber(fields) || !fields.starts_with(',')) return linkport::kNoBatteryLevel;
  fields.remove_prefix(1);
  const auto level = TakeNumber(fields);
  if (!level || *level > 100 || !fields.empty()) return linkport::kNoBatteryLevel;
  return static_cast<std::uint16_t>(*level);
}

}  // namespace

BatteryReply ReadBatteryReply(std::string_view received) {
  BatteryReply reply{false, linkport::kNoBatteryLevel};
  received = received.substr(0, received.rfind('\n') + 1);
  while (!received.empty() && !reply.ended) {
    const auto line = received.substr(0, received.find_first_of("\r\n"));
    received.remove_prefix(line.size() + 1);
    if (StartsWith(line, kAnswer)) reply.level = Level(line.substr(kAnswer.size()));
    if (IsRefusal(line)) return {true, linkport::kNoBatteryLevel};
    reply.ended = Equals(line, "OK");
  }
  return reply;
}

}  // namespace tessarin
