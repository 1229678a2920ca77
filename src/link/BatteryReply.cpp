#include "link/BatteryReply.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "link/linkport.h"

namespace tessarin {

namespace {

constexpr std::string_view kAnswer = "+CBC:";

bool IsRefusal(std::string_view line) {
  return line == "ERROR" || line.starts_with("+CME ERROR") || line.starts_with("+CMS ERROR");
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
    if (line.starts_with(kAnswer)) reply.level = Level(line.substr(kAnswer.size()));
    if (IsRefusal(line)) return {true, linkport::kNoBatteryLevel};
    reply.ended = line == "OK";
  }
  return reply;
}

}  // namespace tessarin
