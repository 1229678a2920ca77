#include "phonesim/MessageCommands.h"

#include <functional>

namespace phonesim {
namespace {

using Form = AtCall::Form;
using Result = AtAnswer::Result;

enum CmsError { kInvalidParameter = 304, kInvalidIndex = 321 };

AtAnswer Line(std::string line) { return {Result::Ok, {std::move(line)}}; }
AtAnswer Unknown() { return {Result::Unknown}; }
AtAnswer Failure(int code) { return {Result::CmsError, {}, code}; }

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// The argument of the first store, which is the one to read and delete from.
std::string FirstOf(const std::string& argument) { return argument.substr(0, argument.find(',')); }

}  // namespace

void MessageCommands::AddTo(AtCommands& commands) {
  using std::placeholders::_1;
  commands.Add("AT+CPMS", std::bind(&MessageCommands::Select, this, _1));
  commands.Add("AT+CMGF", std::bind(&MessageCommands::Format, this, _1));
  commands.Add("AT+CMGR", std::bind(&MessageCommands::Read, this, _1));
  commands.Add("AT+CMGD", std::bind(&MessageCommands::Delete, this, _1));
  commands.Add("AT+CMGS", std::bind(&MessageCommands::Send, this, _1));
}

/// The used and total locations of the store, the same three times: for reading, for writing and
/// for what comes in.
AtAnswer MessageCommands::Select(const AtCall& call) {
  if (call.form == Form::Test) {
    const std::string stores = "(\"ME\",\"SM\")";
    return Line("+CPMS: " + stores + "," + stores + "," + stores);
  }
  if (call.form == Form::Read) {
    const std::string one = Quoted(store_) + "," + Counts();
    return Line("+CPMS: " + one + "," + one + "," + one);
  }
  const std::string store = FirstOf(call.argument);
  if (call.form != Form::Set || (store != "\"SM\"" && store != "\"ME\"")) return Unknown();
  store_ = store.substr(1, 2);
  memory_.With([](Books& books) { books.Reread(); });
  const std::string counts = Counts();
  return Line("+CPMS: " + counts + "," + counts + "," + counts);
}

std::string MessageCommands::Counts() const {
  const std::size_t used =
      memory_.With([this](const Books& books) { return books.messages.Of(store_).size(); });
  return std::to_string(used) + "," + std::to_string(Total());
}

int MessageCommands::Total() const {
  return settings_.With([this](const Behaviour& b) {
    return store_ == "SM" ? b.messages.simTotal : b.messages.phoneTotal;
  });
}

AtAnswer MessageCommands::Format(const AtCall& call) {
  if (call.form == Form::Test) return Line("+CMGF: (0)");
  if (call.form == Form::Read) return Line("+CMGF: 0");
  return call.form == Form::Set && call.argument == "0" ? AtAnswer() : Unknown();
}

/// "+CMGR: status,,octets" and a line with the PDU. Who reads a new message makes it a read one.
AtAnswer MessageCommands::Read(const AtCall& call) {
  const auto location = AtNumber(call.argument);
  if (call.form != Form::Set || !location) return Unknown();
  if (*location < 1 || *location > Total()) return Failure(kInvalidIndex);
  const bool marks = settings_.With([](const Behaviour& b) { return b.messages.readingMarks; });
  return memory_.With([&](Books& books) {
    const auto& store = books.messages.Of(store_);
    const auto found = store.find(*location);
    if (found == store.end()) return Empty();
    const StoredMessage message = found->second;
    if (marks && message.status == 0) books.messages.Set(store_, *location, {1, message.pdu});
    return AtAnswer{Result::Ok,
                    {"+CMGR: " + std::to_string(message.status) + ",," +
                         std::to_string(TpduLength(message.pdu)),
                     message.pdu}};
  });
}

AtAnswer MessageCommands::Empty() const {
  switch (settings_.With([](const Behaviour& b) { return b.messages.emptyLocation; })) {
    case EmptyLocation::CmsError:
      return Failure(kInvalidIndex);
    case EmptyLocation::Error:
      return {Result::Error};
    default:
      return {};
  }
}

AtAnswer MessageCommands::Delete(const AtCall& call) {
  const auto location = AtNumber(call.argument);
  if (call.form != Form::Set || !location) return Unknown();
  const bool gone =
      memory_.With([&](Books& books) { return books.messages.Remove(store_, *location); });
  return gone ? AtAnswer() : Failure(kInvalidIndex);
}

/// +CMGS=octets, then behind the prompt the PDU and 1A.
AtAnswer MessageCommands::Send(const AtCall& call) {
  const auto octets = AtNumber(call.argument);
  if (call.form != Form::Set || !octets || *octets < 1) return Unknown();
  const auto announced = static_cast<std::size_t>(*octets);
  return {Result::Prompt, {}, 0, [this, announced](const std::string& digits) {
            return Submit(digits, announced);
          }};
}

AtAnswer MessageCommands::Submit(const std::string& digits, std::size_t announced) {
  const bool takesShort =
      settings_.With([](const Behaviour& b) { return b.messages.takesShortUcs2; });
  try {
    const Submitted message = ReadSubmit(digits, announced, takesShort);
    memory_.With([&message](Books& books) { books.sent.Take(message); });
  } catch (const PduFault& fault) {
    reports_.Add(fault.what(), ToBytes(digits));
    return Failure(kInvalidParameter);
  }
  reference_ = (reference_ + 1) % 256;
  return Line("+CMGS: " + std::to_string(reference_));
}

}  // namespace phonesim
