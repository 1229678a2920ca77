#include "phonesim/Phone.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "phonesim/FolderBrowsing.h"
#include "phonesim/IrmcSync.h"
#include "phonesim/MmsTarget.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr std::array<std::uint8_t, 3> kDisconnect = {0x81, 0x00, 0x03};
constexpr const char* kBody = "PDU";
constexpr std::string_view kBackInAtMode = "\r\nOK\r\n";

/// A whole packet of OBEX where a command line should begin; 81 is left to the line reader.
bool IsObexInAtMode(ByteView bytes) { return bytes[0] != kDisconnect[0] && IsObexOpcode(bytes[0]); }

bool LooksLikeAt(ByteView bytes) {
  return bytes.size() >= 2 && (bytes[0] & ~0x20) == 'A' && (bytes[1] & ~0x20) == 'T';
}

/// The body of a message: digits, and 1A behind them.
bool IsBody(ByteView bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](std::uint8_t byte) { return byte == 0x1A || std::isxdigit(byte) != 0; });
}

}  // namespace

Phone::Phone(const std::filesystem::path& content, Settings& settings, Reports& reports)
    : settings_(settings),
      reports_(reports),
      files_(content),
      mms_(content / kBooksFolder / kMmsFolder),
      memory_(content),
      basics_(settings),
      phonebook_(settings, memory_, basics_.CharacterSetName()),
      messages_(settings, memory_, reports),
      obex_(settings, reports) {
  basics_.AddTo(commands_);
  phonebook_.AddTo(commands_);
  messages_.AddTo(commands_);
  obex_.Add(FolderBrowsing::Row(files_, settings));
  obex_.Add(IrmcSync::Row(memory_, settings));
  obex_.Add(MmsTarget::Row(mms_));
}

void Phone::Receive(ByteView bytes) {
  while (!bytes.empty() && !Silent()) {
    if (obexMode_) {
      ReceiveObex(bytes);
      break;
    }
    bytes = ReceiveAt(bytes);
  }
  FlushEcho();
  ReportStray();
}

std::vector<Phone::Output> Phone::Take() { return std::exchange(outputs_, {}); }

bool Phone::Silent() {
  if (hungUp_) return true;
  const Silence silence = settings_.With([](const Behaviour& b) { return b.silence; });
  return silence == Silence::Everything || (silence == Silence::Obex && obexMode_);
}

/// Takes bytes up to the end of a command, and returns the others.
ByteView Phone::ReceiveAt(ByteView bytes) {
  if (!line_.Started() && IsObexInAtMode(bytes)) {
    reports_.Add("OBEX packet in AT mode", bytes);
    return {};
  }
  while (!bytes.empty()) {
    const AtLine::Event event = line_.Take(bytes[0]);
    bytes = bytes.subspan(1);
    if (event == AtLine::Event::None) continue;
    FlushEcho();
    ReportStray();
    TakeAt(event);
    return bytes;
  }
  return bytes;
}

void Phone::TakeAt(AtLine::Event event) {
  if (HangsUp()) return;
  switch (event) {
    case AtLine::Event::Line:
      return RunCommand(line_.TakeLine());
    case AtLine::Event::Body:
      return RunBody(line_.TakeLine());
    case AtLine::Event::BrokenOff:
      reports_.Add("message broken off", ToBytes(line_.TakeLine()));
      return CancelBody();
    case AtLine::Event::Cancelled:
      line_.TakeLine();
      return CancelBody();
    default:
      BeginAnswer(kDisconnect);
      Send(kDisconnect);
  }
}

void Phone::RunCommand(const std::string& line) {
  const AtCall call = ParseAtCall(line);
  bodyRefused_ = false;
  BeginAnswer(ToBytes(line));
  if (PassedOver(call.name)) return;
  const AtAnswer answer = Answer(call, line);
  SendAnswer(call.name, answer);
  if (answer.result == AtAnswer::Result::Connect) {
    obexMode_ = true;
    obex_.Open();
  } else if (answer.result == AtAnswer::Result::Prompt) {
    takeBody_ = answer.take;
    line_.AwaitBody();
  } else {
    bodyRefused_ = call.name == "AT+CMGS";
  }
}

void Phone::RunBody(const std::string& digits) {
  BeginAnswer(ToBytes(digits));
  if (PassedOver(kBody)) return;
  const auto failure = Failing(kBody);
  SendAnswer(kBody, failure ? *failure : takeBody_(digits));
}

void Phone::CancelBody() { Send(ToBytes(FormatAtAnswer({}))); }

void Phone::SendAnswer(const std::string& name, const AtAnswer& answer) {
  Send(ToBytes(FormatAtAnswer(answer)));
  // A client knows these by their beginning, and need not wait for the code or the blank.
  if (answer.result == AtAnswer::Result::CmsError || answer.result == AtAnswer::Result::Prompt) {
    answering_ = false;
  }
  settings_.With([&](const Behaviour& b) {
    const auto slow = b.slowCommands.find(name);
    if (slow != b.slowCommands.end()) outputs_.back().delay = slow->second;
  });
}

/// The answer of a command that is to fail this time.
std::optional<AtAnswer> Phone::Failing(const std::string& name) {
  return settings_.With([&name](Behaviour& b) -> std::optional<AtAnswer> {
    const auto row = b.failingCommands.find(name);
    if (row == b.failingCommands.end() || row->second.times == 0) return std::nullopt;
    if (row->second.skip > 0) {
      --row->second.skip;
      return std::nullopt;
    }
    --row->second.times;
    const int code = row->second.cmsCode;
    if (code == 0) return AtAnswer{AtAnswer::Result::Error};
    return AtAnswer{AtAnswer::Result::CmsError, {}, code};
  });
}

/// Counts a request, and is true for the one at which the phone is gone.
bool Phone::HangsUp() {
  hungUp_ = settings_.With([](Behaviour& b) {
    if (!b.dropAfterRequests) return false;
    if (*b.dropAfterRequests > 0) {
      --*b.dropAfterRequests;
      return false;
    }
    b.dropAfterRequests.reset();
    return true;
  });
  return hungUp_;
}

AtAnswer Phone::Answer(const AtCall& call, const std::string& line) {
  const bool refused = settings_.With([&](const Behaviour& b) {
    return b.refusedCommands.contains(call.name) || b.refusedCommands.contains(line);
  });
  if (refused) return {AtAnswer::Result::Error};
  if (const auto failure = Failing(call.name)) return *failure;
  AtAnswer answer{AtAnswer::Result::Unknown};
  if (IsPlainUtf8(line)) answer = commands_.Run(call);
  if (answer.result == AtAnswer::Result::Unknown) {
    reports_.Add("unknown AT command " + line, ToBytes(line));
  }
  return answer;
}

/// True while this command is one of those to be left without an answer.
bool Phone::PassedOver(const std::string& name) {
  return settings_.With([&name](Behaviour& b) {
    const auto left = b.unansweredCommands.find(name);
    if (left == b.unansweredCommands.end() || left->second == 0) return false;
    --left->second;
    return true;
  });
}

/// Takes all the bytes there are. What is no packet, or follows one whose answer the client has not
/// seen, is reported and thrown away, so that the next request finds the phone ready.
void Phone::ReceiveObex(ByteView bytes) {
  if (packet_.empty() && !IsObexOpcode(bytes[0])) {
    reports_.Add(LooksLikeAt(bytes) ? "AT text in OBEX mode" : "no OBEX packet", bytes);
    return;
  }
  const std::size_t headLeft = packet_.size() < 3 ? 3 - packet_.size() : 0;
  const ByteView head = bytes.first(std::min(headLeft, bytes.size()));
  Append(packet_, head);
  bytes = bytes.subspan(head.size());
  if (packet_.size() < 3) return;

  const std::size_t length = Read16(ByteView(packet_).subspan(1));
  if (length < 3 || length > kObexPacketLimit) {
    Append(packet_, bytes);
    BeginAnswer(packet_);
    reports_.Add(length < 3 ? "packet length below 3" : "packet of more than 512 bytes", packet_);
    Send(ObexResponse(obex::kBadRequest));
    packet_.clear();
    return;
  }
  const ByteView body = bytes.first(std::min(length - packet_.size(), bytes.size()));
  Append(packet_, body);
  if (packet_.size() < length) return;
  AnswerPacket();
  const ByteView behind = bytes.subspan(body.size());
  if (!behind.empty()) reports_.Add("bytes behind the end of a packet", behind);
}

void Phone::AnswerPacket() {
  const Bytes packet = std::exchange(packet_, {});
  if (HangsUp() || !ObexAnswersLeft()) return;
  BeginAnswer(packet);
  Bytes reply = obex_.Answer(packet);
  if (obex_.Closed()) {
    obexMode_ = false;
    Append(reply, kBackInAtMode);
  }
  Send(reply);
}

bool Phone::ObexAnswersLeft() {
  return settings_.With([](Behaviour& b) {
    if (!b.silentAfterObexPackets) return true;
    if (*b.silentAfterObexPackets == 0) {
      b.silence = Silence::Everything;
      return false;
    }
    --*b.silentAfterObexPackets;
    return true;
  });
}

void Phone::Stalled() {
  if (Silent()) return packet_.clear();
  reports_.Add("packet shorter than its length", packet_);
  packet_.clear();
  Send(ObexResponse(obex::kBadRequest));
}

void Phone::LineClosed() {
  if (!packet_.empty()) reports_.Add("packet cut off by closing the port", packet_);
  Reset();
}

void Phone::Reset() {
  packet_.clear();
  line_.Clear();
  outputs_.clear();
  answering_ = false;
  hungUp_ = false;
  bodyRefused_ = false;
  if (!settings_.With([](const Behaviour& b) { return b.keepObexOnClose; })) obexMode_ = false;
}

void Phone::FlushEcho() {
  const Bytes echo = line_.TakeEcho();
  if (echo.empty() || !settings_.With([](const Behaviour& b) { return b.echo; })) return;
  outputs_.push_back({false, echo, {}});
}

void Phone::ReportStray() {
  const Bytes stray = line_.TakeStray();
  if (stray.empty() || (bodyRefused_ && IsBody(stray))) return;
  reports_.Add("bytes that belong to no command", stray);
}

void Phone::BeginAnswer(ByteView request) {
  if (answering_) reports_.Add("request before the answer to the one before", request);
}

void Phone::Send(ByteView bytes) {
  answering_ = true;
  outputs_.push_back({true, Bytes(bytes.begin(), bytes.end()), {}});
}

}  // namespace phonesim
