#include "phonesim/Options.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace phonesim {
namespace {

std::size_t Number(const std::string& text, int base = 10) {
  std::size_t number = 0;
  const char* end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, number, base);
  if (text.empty() || error != std::errc() || at != end) {
    throw UsageError("'" + text + "' is no number");
  }
  return number;
}

std::chrono::milliseconds Milliseconds(const std::string& text) {
  return std::chrono::milliseconds(Number(text));
}

bool OnOff(const std::string& text) {
  if (text != "on" && text != "off") throw UsageError("'" + text + "' is neither on nor off");
  return text == "on";
}

void SetBattery(Battery& battery, const std::string& text) {
  if (text == "charge" || text == "drain") {
    battery.trend = text == "charge" ? Battery::Trend::Charging : Battery::Trend::Draining;
    battery.level = text == "charge" ? 40 : 60;
    return;
  }
  const std::size_t level = Number(text);
  if (level > 100) throw UsageError("a battery holds 0 to 100 percent");
  battery = {static_cast<int>(level), Battery::Trend::Fixed};
}

/// "put", "put=C3", "put@2", "put:telecom/cal" or all of them, "put=C3@2:telecom/cal": operation,
/// hexadecimal code, packet, how the object's name begins.
void RefuseObex(Behaviour& behaviour, std::string text) {
  static const std::map<std::string, ObexOperation> kNames = {
      {"connect", ObexOperation::Connect}, {"setpath", ObexOperation::SetPath},
      {"listing", ObexOperation::Listing}, {"get", ObexOperation::Get},
      {"put", ObexOperation::Put},         {"delete", ObexOperation::Delete}};
  ObexRefusal refusal;
  const std::size_t objectAt = std::min(text.find(':'), text.size());
  if (objectAt < text.size()) refusal.object = text.substr(objectAt + 1);
  text.resize(objectAt);
  const std::size_t packetAt = std::min(text.find('@'), text.size());
  const std::size_t codeAt = std::min(text.find('='), packetAt);
  const auto name = kNames.find(text.substr(0, codeAt));
  if (name == kNames.end()) throw UsageError("no such operation in '" + text + "'");
  if (codeAt < packetAt) {
    refusal.code = static_cast<std::uint8_t>(
        0x80 | Number(text.substr(codeAt + 1, packetAt - codeAt - 1), 16));
  }
  if (packetAt < text.size()) refusal.packet = Number(text.substr(packetAt + 1));
  behaviour.refusedOperations[name->second] = refusal;
}

/// "AT+CBC" or "AT+CBC=2": command, how often.
void LeaveUnanswered(Behaviour& behaviour, const std::string& text) {
  const std::size_t end = std::min(text.rfind('='), text.size());
  behaviour.unansweredCommands[text.substr(0, end)] =
      end < text.size() ? Number(text.substr(end + 1)) : 1;
}

/// "1-7"
void SetSimRange(Sim& sim, const std::string& text) {
  const std::size_t hyphen = std::min(text.find('-'), text.size());
  sim.first = static_cast<int>(Number(text.substr(0, hyphen)));
  sim.last = static_cast<int>(Number(text.substr(std::min(hyphen + 1, text.size()))));
  if (sim.first > sim.last) throw UsageError("'" + text + "' is no range");
}

/// "AT+CMGD", "PDU=500", "PDU@2" or "PDU=500@2": command, code of +CMS ERROR, which time it begins
/// to fail.
void LetFail(Behaviour& behaviour, const std::string& text) {
  const std::size_t timeAt = std::min(text.find('@'), text.size());
  const std::size_t codeAt = std::min(text.find('='), timeAt);
  CommandFailure failure;
  if (codeAt < timeAt) {
    failure.cmsCode = static_cast<int>(Number(text.substr(codeAt + 1, timeAt - codeAt - 1)));
  }
  if (timeAt < text.size())
    failure.skip = std::max<std::size_t>(Number(text.substr(timeAt + 1)), 1) - 1;
  behaviour.failingCommands[text.substr(0, codeAt)] = failure;
}

/// "AT+CMGR=3000": command, milliseconds.
void MakeSlow(Behaviour& behaviour, const std::string& text) {
  const std::size_t end = std::min(text.rfind('='), text.size());
  if (end == text.size()) throw UsageError("no milliseconds in '" + text + "'");
  behaviour.slowCommands[text.substr(0, end)] = Milliseconds(text.substr(end + 1));
}

void SetEmptyLocation(Behaviour& behaviour, const std::string& text) {
  static const std::map<std::string, EmptyLocation> kNames = {
      {"ok", EmptyLocation::Ok}, {"cms", EmptyLocation::CmsError}, {"error", EmptyLocation::Error}};
  const auto name = kNames.find(text);
  if (name == kNames.end()) throw UsageError("'" + text + "' is neither ok, cms nor error");
  behaviour.messages.emptyLocation = name->second;
}

constexpr std::size_t kHelpColumn = 31;

struct Option {
  std::string name;
  std::string value;  ///< what the help calls its value; empty for none
  std::string help;
  std::function<void(Options&, const std::string&)> set;
};

using Rows = std::vector<Option>;
using O = Options;
using T = std::string;

Rows RunningOptions() {
  return {
      {"--link", "PATH", "where the phone's port is linked, such as ports/COM3",
       [](O& o, const T& v) { o.link = v; }},
      {"--content", "DIR", "the phone's files; filled with samples when empty or missing",
       [](O& o, const T& v) { o.content = v; }},
      {"--reports", "FILE", "write breaches of the protocol here as well",
       [](O& o, const T& v) { o.reports = v; }},
      {"--verbose", "", "print all that crosses the wire",
       [](O& o, const T&) { o.verbose = true; }},
      {"--help", "", "print this text", [](O& o, const T&) { o.help = true; }},
  };
}

/// How the line and the phone behind it misbehave.
Rows FaultOptions() {
  return {
      {"--echo", "on|off", "AT echo at the start (off)",
       [](O& o, const T& v) { o.behaviour.echo = OnOff(v); }},
      {"--echo-headers", "", "repeat the Name in the first reply to the Get of a file",
       [](O& o, const T&) { o.behaviour.echoRequestHeaders = true; }},
      {"--split", "N", "send answers in pieces of N bytes",
       [](O& o, const T& v) { o.behaviour.splitBytes = Number(v); }},
      {"--gap", "MS", "milliseconds between the pieces (0)",
       [](O& o, const T& v) { o.behaviour.splitGap = Milliseconds(v); }},
      {"--delay", "MS", "think this long before each answer",
       [](O& o, const T& v) { o.behaviour.answerDelay = Milliseconds(v); }},
      {"--drop-after", "N", "hang up and end after N bytes",
       [](O& o, const T& v) { o.behaviour.dropAfterBytes = Number(v); }},
      {"--drop-after-requests", "N", "answer N requests, hang up and end at the next",
       [](O& o, const T& v) { o.behaviour.dropAfterRequests = Number(v); }},
      {"--silent", "", "answer nothing",
       [](O& o, const T&) { o.behaviour.silence = Silence::Everything; }},
      {"--silent-obex", "", "answer nothing in OBEX mode",
       [](O& o, const T&) { o.behaviour.silence = Silence::Obex; }},
      {"--silent-after", "N", "fall silent after N OBEX packets",
       [](O& o, const T& v) { o.behaviour.silentAfterObexPackets = Number(v); }},
      {"--refuse", "CMD", "answer ERROR to this AT command; may be repeated",
       [](O& o, const T& v) { o.behaviour.refusedCommands.insert(v); }},
      {"--fail", "CMD[=CODE][@N]",
       "let an AT command, or PDU for a message's body, fail from its Nth time on, by ERROR or "
       "+CMS ERROR: CODE",
       [](O& o, const T& v) { LetFail(o.behaviour, v); }},
      {"--slow", "CMD=MS", "think longer before the answer to an AT command, or PDU",
       [](O& o, const T& v) { MakeSlow(o.behaviour, v); }},
      {"--refuse-obex", "OP[=CODE][@N][:OBJECT]",
       "refuse connect, setpath, listing, get, put or delete, at its packet N, with CODE (C3)",
       [](O& o, const T& v) { RefuseObex(o.behaviour, v); }},
      {"--unanswered", "CMD[=K]", "leave an AT command unanswered K times (1)",
       [](O& o, const T& v) { LeaveUnanswered(o.behaviour, v); }},
  };
}

Rows BookOptions() {
  return {
      {"--sim-range", "A-B", "the SIM's locations (1-250); 1-7 are full among the samples",
       [](O& o, const T& v) { SetSimRange(o.behaviour.sim, v); }},
      {"--sim-name", "N", "how long a name on the SIM may be (30)",
       [](O& o, const T& v) { o.behaviour.sim.nameLength = Number(v); }},
      {"--empty-location", "ok|cms|error", "how a location without a message is read (ok)",
       [](O& o, const T& v) { SetEmptyLocation(o.behaviour, v); }},
      {"--contact-maximum", "N", "how many contacts fit (510)",
       [](O& o, const T& v) { o.behaviour.irmc.contactMaximum = Number(v); }},
      {"--event-maximum", "N", "how many calendar entries fit (300)",
       [](O& o, const T& v) { o.behaviour.irmc.eventMaximum = Number(v); }},
      {"--length-headers", "", "a Length header before contacts, calendar and their logs",
       [](O& o, const T&) {
         o.behaviour.irmc.lengthBeforeLogs = o.behaviour.irmc.lengthBeforeObjects = true;
       }},
      {"--logs-in-two", "", "information logs with a Length header, in two packets",
       [](O& o, const T&) {
         o.behaviour.irmc.lengthBeforeLogs = o.behaviour.irmc.logsInTwoPackets = true;
       }},
      {"--plain-plus", "", "contacts and calendar are no UTF-7: + goes out as it is",
       [](O& o, const T&) { o.behaviour.irmc.plainPlus = true; }},
  };
}

Rows IdentityOptions() {
  return {
      {"--battery", "N|charge|drain", "the battery's percentage (85), or a moving one",
       [](O& o, const T& v) { SetBattery(o.behaviour.battery, v); }},
      {"--manufacturer", "T", "the answer to AT+CGMI",
       [](O& o, const T& v) { o.behaviour.identity.manufacturer = v; }},
      {"--model-code", "T", "the answer to AT+CGMM",
       [](O& o, const T& v) { o.behaviour.identity.modelCode = v; }},
      {"--model-name", "T", "the answer to AT+GMM",
       [](O& o, const T& v) { o.behaviour.identity.modelName = v; }},
  };
}

const Rows& Table() {
  static const Rows kTable = [] {
    Rows all;
    for (const auto& part : {RunningOptions(), FaultOptions(), BookOptions(), IdentityOptions()}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }();
  return kTable;
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    const std::string& name = arguments[at];
    const auto option = std::find_if(Table().begin(), Table().end(),
                                     [&name](const Option& o) { return o.name == name; });
    if (option == Table().end()) throw UsageError("unknown option " + name);
    const bool wantsValue = !option->value.empty();
    if (wantsValue && at + 1 == arguments.size()) throw UsageError(name + " needs a value");
    option->set(options, wantsValue ? arguments[++at] : std::string());
  }
  if (options.help) return options;
  if (options.link.empty()) throw UsageError("--link is missing");
  if (options.content.empty()) throw UsageError("--content is missing");
  return options;
}

std::string HelpText() {
  std::string text =
      "tessarin-phonesim --link PATH --content DIR [option ...]\n\n"
      "A simulated phone on a pseudo terminal. It runs until SIGTERM or SIGINT.\n\n";
  for (const Option& option : Table()) {
    std::string left = "  " + option.name + (option.value.empty() ? "" : " " + option.value);
    if (left.size() >= kHelpColumn) left += "\n" + std::string(kHelpColumn - 1, ' ');
    left.resize(std::max(left.size() + 1, kHelpColumn), ' ');
    text += left + option.help + "\n";
  }
  return text +
         "\nExit status: 0 well, 1 no port or folder, 2 wrong options, 3 the client broke the "
         "protocol.\n";
}

}  // namespace phonesim
