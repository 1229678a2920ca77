#include "phonesim/AtCommands.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace phonesim {
namespace {

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return upper;
}

/// "ATE0", but not "AT+CGMI" or "AT*EOBEX", whose names go on behind the sign.
bool IsBasic(std::string_view line) {
  return line.size() >= 3 && std::isalpha(static_cast<unsigned char>(line[2])) != 0;
}

}  // namespace

AtCall ParseAtCall(std::string_view line) {
  using Form = AtCall::Form;
  if (IsBasic(line)) return {Upper(line.substr(0, 3)), Form::Set, std::string(line.substr(3))};
  const std::size_t end = std::min(line.find_first_of("=?"), line.size());
  AtCall call{Upper(line.substr(0, end)), Form::Run, {}};
  const std::string_view tail = line.substr(end);
  if (tail == "?") {
    call.form = Form::Read;
  } else if (tail == "=?") {
    call.form = Form::Test;
  } else if (!tail.empty()) {
    call.form = Form::Set;
    call.argument = tail.substr(1);
  }
  return call;
}

std::optional<int> AtNumber(std::string_view digits) {
  int number = 0;
  const char* end = digits.data() + digits.size();
  const auto [at, error] = std::from_chars(digits.data(), end, number);
  if (digits.empty() || error != std::errc() || at != end || number < 0) return std::nullopt;
  return number;
}

std::string FormatAtAnswer(const AtAnswer& answer) {
  std::string text = answer.lines.empty() ? "" : "\r\n";
  for (const std::string& line : answer.lines) text += line + "\r\n";
  switch (answer.result) {
    case AtAnswer::Result::Ok:
      return text + "\r\nOK\r\n";
    case AtAnswer::Result::Prompt:
      return "\r\n> ";
    case AtAnswer::Result::CmsError:
      return "\r\n+CMS ERROR: " + std::to_string(answer.code) + "\r\n";
    case AtAnswer::Result::Connect:
      return text + "\r\nCONNECT\r\n";
    default:
      return text + "\r\nERROR\r\n";
  }
}

AtAnswer AtCommands::Run(const AtCall& call) const {
  const auto row = table_.find(call.name);
  if (row == table_.end()) return {AtAnswer::Result::Unknown};
  return row->second(call);
}

}  // namespace phonesim
