#include "phonesim/PhonebookCommands.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "phonesim/CharacterSet.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

using Form = AtCall::Form;

constexpr int kNational = 129;
constexpr int kInternational = 145;

AtAnswer Line(std::string line) { return {AtAnswer::Result::Ok, {std::move(line)}}; }
AtAnswer Unknown() { return {AtAnswer::Result::Unknown}; }
AtAnswer Refused() { return {AtAnswer::Result::Error}; }

int TypeOf(const std::string& number) {
  return number.starts_with('+') ? kInternational : kNational;
}

std::string Range(const Sim& sim) {
  return "(" + std::to_string(sim.first) + "-" + std::to_string(sim.last) + ")";
}

bool Within(const Sim& sim, int location) { return location >= sim.first && location <= sim.last; }

/// What +CPBW writes: location, "number", type, "name".
struct Written {
  int location;
  std::string number;
  int type;
  std::string name;
};

/// Takes the text in front of `end` off `rest`, and `end` itself.
std::optional<std::string> CutBefore(std::string_view& rest, std::string_view end) {
  const std::size_t at = rest.find(end);
  if (at == std::string_view::npos) return std::nullopt;
  std::string text(rest.substr(0, at));
  rest.remove_prefix(at + end.size());
  return text;
}

std::optional<Written> ParseWritten(std::string_view rest) {
  const auto location = CutBefore(rest, ",\"");
  const auto number = location ? CutBefore(rest, "\",") : std::nullopt;
  const auto type = number ? CutBefore(rest, ",\"") : std::nullopt;
  const auto at = location ? AtNumber(*location) : std::nullopt;
  const auto kind = type ? AtNumber(*type) : std::nullopt;
  if (!at || !kind || !rest.ends_with('"')) return std::nullopt;
  rest.remove_suffix(1);
  return Written{*at, *number, *kind, std::string(rest)};
}

bool IsNumber(const std::string& number) {
  return number.find_first_not_of("0123456789*#+pP") == std::string::npos &&
         number.find('+', 1) == std::string::npos;
}

}  // namespace

void PhonebookCommands::AddTo(AtCommands& commands) {
  using std::placeholders::_1;
  commands.Add("AT+CPBS", std::bind(&PhonebookCommands::Select, this, _1));
  commands.Add("AT+CPBR", std::bind(&PhonebookCommands::Read, this, _1));
  commands.Add("AT+CPBW", std::bind(&PhonebookCommands::Write, this, _1));
}

AtAnswer PhonebookCommands::Select(const AtCall& call) {
  const Sim sim = settings_.With([](const Behaviour& b) { return b.sim; });
  if (call.form == Form::Test) return phonesim::Line("+CPBS: (\"SM\")");
  if (call.form == Form::Set && call.argument == "\"SM\"") {
    memory_.With([](Books& books) { books.Reread(); });
    return {};
  }
  if (call.form != Form::Read) return Unknown();
  const std::size_t used = memory_.With([](const Books& books) { return books.sim.All().size(); });
  return phonesim::Line("+CPBS: \"SM\"," + std::to_string(used) + "," +
                        std::to_string(sim.last - sim.first + 1));
}

/// +CPBR=first or +CPBR=first,last: a line for each location that is in use.
AtAnswer PhonebookCommands::Read(const AtCall& call) {
  const Sim sim = settings_.With([](const Behaviour& b) { return b.sim; });
  if (call.form == Form::Test) {
    return phonesim::Line("+CPBR: " + Range(sim) + "," + std::to_string(sim.numberLength) + "," +
                          std::to_string(sim.nameLength));
  }
  const std::size_t comma = std::min(call.argument.find(','), call.argument.size());
  const auto first = AtNumber(call.argument.substr(0, comma));
  const auto last =
      comma < call.argument.size() ? AtNumber(call.argument.substr(comma + 1)) : first;
  const bool fits = call.form == Form::Set && first && last && *first <= *last &&
                    Within(sim, *first) && Within(sim, *last);
  if (!fits) return Unknown();
  AtAnswer answer;
  memory_.With([&](const Books& books) {
    const auto& all = books.sim.All();
    for (auto at = all.lower_bound(*first); at != all.end() && at->first <= *last; ++at) {
      answer.lines.push_back(Line(at->first, at->second));
    }
  });
  return answer;
}

std::string PhonebookCommands::Line(int location, const SimBook::Entry& entry) const {
  return "+CPBR: " + std::to_string(location) + ",\"" + entry.number + "\"," +
         std::to_string(TypeOf(entry.number)) + ",\"" + EncodeText(entry.name, characterSet_) +
         "\"";
}

/// +CPBW=location deletes, +CPBW=location,"number",type,"name" writes. A name with a quotation mark
/// and one that is too long are refused, as on a SIM.
AtAnswer PhonebookCommands::Write(const AtCall& call) {
  const Sim sim = settings_.With([](const Behaviour& b) { return b.sim; });
  if (call.form == Form::Test) {
    return phonesim::Line("+CPBW: " + Range(sim) + "," + std::to_string(sim.numberLength) +
                          ",(129,145)," + std::to_string(sim.nameLength));
  }
  if (call.form != Form::Set) return Unknown();
  if (const auto location = AtNumber(call.argument)) {
    if (!Within(sim, *location)) return Unknown();
    memory_.With([&](Books& books) { books.sim.Remove(*location); });
    return {};
  }
  const auto written = ParseWritten(call.argument);
  const auto name = written ? DecodeText(written->name, characterSet_) : std::nullopt;
  const bool fits = name && Within(sim, written->location) && IsNumber(written->number) &&
                    written->type == TypeOf(written->number);
  if (!fits) return Unknown();
  const bool takes = CodePoints(*name).size() <= sim.nameLength &&
                     written->number.size() <= sim.numberLength &&
                     name->find('"') == std::string::npos;
  if (!takes) return Refused();
  memory_.With([&](Books& books) { books.sim.Set(written->location, {*name, written->number}); });
  return {};
}

}  // namespace phonesim
