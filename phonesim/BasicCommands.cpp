#include "phonesim/BasicCommands.h"

#include <algorithm>
#include <array>
#include <functional>

namespace phonesim {
namespace {

using Form = AtCall::Form;

constexpr std::array kCharacterSets = {"GSM", "IRA", "8859-1", "UTF-8", "UCS2"};

AtAnswer Line(std::string line) { return {AtAnswer::Result::Ok, {std::move(line)}}; }
AtAnswer Unknown() { return {AtAnswer::Result::Unknown, {}}; }

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

void MoveLevel(Battery& battery) {
  if (battery.trend == Battery::Trend::Charging) battery.level = std::min(battery.level + 1, 100);
  if (battery.trend == Battery::Trend::Draining) battery.level = std::max(battery.level - 1, 0);
}

}  // namespace

void BasicCommands::AddTo(AtCommands& commands) {
  using std::placeholders::_1;
  commands.Add("AT",
               [](const AtCall& call) { return call.form == Form::Run ? AtAnswer() : Unknown(); });
  commands.Add("ATE", std::bind(&BasicCommands::SetEcho, this, _1));
  AddIdentity(commands, "AT+CGMI", &Identity::manufacturer);
  AddIdentity(commands, "AT+CGMM", &Identity::modelCode);
  AddIdentity(commands, "AT+GMM", &Identity::modelName);
  AddIdentity(commands, "AT+CGSN", &Identity::serial);
  AddIdentity(commands, "AT+CGMR", &Identity::firmware);
  commands.Add("AT+CSCS", std::bind(&BasicCommands::CharacterSet, this, _1));
  commands.Add("AT+CBC", std::bind(&BasicCommands::BatteryCharge, this, _1));
  commands.Add("AT*EOBEX", [](const AtCall& call) {
    return call.form == Form::Run ? AtAnswer{AtAnswer::Result::Connect, {}} : Unknown();
  });
}

void BasicCommands::AddIdentity(AtCommands& commands, const std::string& name,
                                std::string Identity::*field) {
  commands.Add(name, [this, field](const AtCall& call) {
    if (call.form == Form::Test) return AtAnswer();
    if (call.form != Form::Run) return Unknown();
    return Line(settings_.With([field](const Behaviour& b) { return b.identity.*field; }));
  });
}

AtAnswer BasicCommands::SetEcho(const AtCall& call) {
  if (!call.argument.empty() && call.argument != "0" && call.argument != "1") return Unknown();
  settings_.With([&call](Behaviour& b) { b.echo = call.argument == "1"; });
  return {};
}

AtAnswer BasicCommands::CharacterSet(const AtCall& call) {
  if (call.form == Form::Read) return Line("+CSCS: " + Quoted(characterSet_));
  std::string all;
  for (const std::string name : kCharacterSets) {
    if (call.form == Form::Set && call.argument == Quoted(name)) {
      characterSet_ = name;
      return {};
    }
    all += (all.empty() ? "" : ",") + Quoted(name);
  }
  return call.form == Form::Test ? Line("+CSCS: (" + all + ")") : Unknown();
}

AtAnswer BasicCommands::BatteryCharge(const AtCall& call) {
  if (call.form == Form::Test) return Line("+CBC: (0,1),(0-100)");
  if (call.form != Form::Run) return Unknown();
  return settings_.With([](Behaviour& b) {
    MoveLevel(b.battery);
    const bool onCharger = b.battery.trend == Battery::Trend::Charging;
    return Line("+CBC: " + std::to_string(onCharger ? 1 : 0) + "," +
                std::to_string(b.battery.level));
  });
}

}  // namespace phonesim
