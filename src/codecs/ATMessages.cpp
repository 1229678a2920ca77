#include "codecs/ATMessages.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <memory>
#include <random>
#include <utility>

#include "codecs/SMS.h"
#include "codecs/modHexStr.h"
#include "codecs/septetkit.h"

namespace tessarin {

namespace {

constexpr char16_t kEndOfMessage = 26;  // Ctrl-Z
constexpr char16_t kEscape = 27;        // ends the phone's wait for a text
constexpr char16_t kTimedOut[] = u"ERROR";

bool Holds(const Text& reply, TextView piece) { return reply.find(piece) != Text::npos; }
bool HoldsOk(const Text& reply) { return Holds(reply, u"OK"); }
// A line of a command's own, as "+CBC: 0,85".
bool HoldsInformation(const Text& reply) { return Holds(reply, u"\r\n+"); }

// The digits at the front, blanks before them not counting; 0 when there are none.
std::int16_t LeadingNumber(TextView text) {
  constexpr int kLargest = 32767;
  int value = 0;
  for (const char16_t unit : TrimBlanks(text)) {
    if (unit < u'0' || unit > u'9') break;
    value = std::min(value * 10 + (unit - u'0'), kLargest);
  }
  return static_cast<std::int16_t>(value);
}

// What stands behind the last ":" of `line`, divided at its commas.
std::vector<Text> FieldsOf(TextView line) {
  const auto colon = line.rfind(u':');
  return Split(colon == TextView::npos ? line : line.substr(colon + 1), u",");
}

Text Command(TextView name, long long number) { return Text(name) + ToText(number); }

std::string Octet(int value) {
  return modHexStr::BytesToHex({static_cast<std::uint8_t>(value & 0xFF)});
}

// True when the reply is one to another command, or its echo says that another location was asked
// for.
bool IsOfAnother(const Text& reply, int location) {
  if (HoldsOk(reply) && !Holds(reply, u"+CMGR:") && HoldsInformation(reply)) return true;
  constexpr TextView kEcho = u"AT+CMGR=";
  const auto echo = reply.find(kEcho);
  return echo != Text::npos &&
         LeadingNumber(TextView(reply).substr(echo + kEcho.size())) != location;
}

// So many characters of the text from `at` on.
Text Piece(const SMSSendRecord& send, std::size_t at, std::size_t count) {
  Text piece = send.Text.Value();
  piece = piece.substr(std::min(at, piece.size()), count);
  piece.resize(count, u' ');
  return piece;
}

// Septets of `text`, behind `fill` bits.
std::string Packed(const Text& text, std::size_t fill) {
  Bytes packed;
  septetkit::char_7bit_pack(fill, modHexStr::HexToBytes(modHexStr::StrToHex2(text)), packed,
                            text.size());
  return modHexStr::BytesToHex(packed);
}

}  // namespace

ATMessages::ATMessages(ATLine& line, Random random) : line_(line), random_(std::move(random)) {}

ATMessages::Random ATMessages::SeededFromClock() {
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  auto source = std::make_shared<std::minstd_rand>(static_cast<unsigned>(now));
  return [source] { return std::uniform_real_distribution<double>()(*source); };
}

bool ATMessages::SelectMessageStore(TextView store, std::int16_t& used, std::int16_t& total) {
  if (!line_.SendATCommand(Text(u"AT+CPMS=").append(store))) return false;
  const Text reply = ReadReply(u"+CPMS:");
  if (!HoldsOk(reply)) return false;
  const auto fields = FieldsOf(reply);
  used = LeadingNumber(fields[0]);
  total = fields.size() > 1 ? LeadingNumber(fields[1]) : std::int16_t{0};
  return true;
}

// An OK with nothing else may be the whole answer, and is when nothing follows.
Text ATMessages::ReadReply(TextView sign) {
  const Text reply = line_.ReadATResponse();
  if (!HoldsOk(reply) || Holds(reply, sign)) return reply;
  const Text next = line_.ReadATResponse();
  return !HoldsInformation(reply) && next == kTimedOut ? reply : next;
}

bool ReadMessageReply(TextView reply, SMSMessage& record) {
  if (!HoldsOk(Text(reply))) return false;
  const auto lines = Split(reply, u"\r\n");
  const auto status = std::find_if(lines.begin(), lines.end(), [](const Text& line) {
    return line.find(u"+CMGR:") != Text::npos;
  });
  if (lines.end() - status < 2) return false;
  const std::string pdu = ToUtf8(*std::next(status));
  if (pdu.empty()) return false;
  const auto centre = static_cast<std::size_t>(modHexStr::HexToBytes(pdu.substr(0, 2))[0]);
  SMS::DecodePDU(LeadingNumber(FieldsOf(*status)[0]),
                 std::string_view(pdu).substr(std::min(pdu.size(), 2 * (centre + 1))), record);
  return true;
}

bool ATMessages::ReadAllMessages(std::int16_t used, std::int16_t total,
                                 std::vector<SMSMessage>& records) {
  records.clear();
  for (int location = 1;; ++location) {
    Text reply;
    if (!ReadMessage(location, reply)) return false;
    SMSMessage record;
    record.location = static_cast<std::int16_t>(location);
    if (ReadMessageReply(reply, record)) records.push_back(record);
    if (static_cast<int>(records.size()) >= used || location >= total) return true;
  }
}

// A reply that is late, or has the echo of another location, is waited out once: the next command
// must not meet the answer to this one.
bool ATMessages::ReadMessage(int location, Text& reply) {
  if (!line_.SendATCommand(Command(u"AT+CMGR=", location))) return false;
  for (int attempt = 0; attempt < 2; ++attempt) {
    reply = line_.ReadATResponse();
    if (!line_.IsReplyOwed() && !IsOfAnother(reply, location)) return true;
  }
  return false;
}

bool ATMessages::DeleteMessage(TextView store, std::int16_t location) {
  std::int16_t used = 0;
  std::int16_t total = 0;
  if (!SelectMessageStore(store, used, total)) return false;
  if (!line_.SendATCommand(Command(u"AT+CMGD=", location))) return false;
  return HoldsOk(line_.ReadATResponse());
}

bool ATMessages::SendSMS(SMSSendRecord& send) {
  if (send.Coding != kGsm7Bit && send.Coding != kUcs2) return false;
  const std::string header = SMS::BuildPDUHeader(send);
  const bool isSingle = SMSPartCount(send.Coding, send.TextLength) == 1;
  return isSingle ? SendSingle(send, header) : SendInParts(send, header);
}

// The text goes without the blanks around it while the UDL counts them. In septets the missing ones
// are made up at the end; in UCS2 the user data are shorter than the UDL says.
bool ATMessages::SendSingle(const SMSSendRecord& send, const std::string& header) {
  const auto length = static_cast<std::size_t>(std::max(send.TextLength, 0));
  Text text = TrimBlanks(Piece(send, 0, length));
  if (send.Coding == kUcs2) {
    return SendPart({header, 2 * static_cast<int>(length), "", modHexStr::StrToHex4(text)});
  }
  text.resize(length, u' ');
  return SendPart({header, static_cast<int>(length), "", Packed(text, 0)});
}

// The user data header takes six octets: with one fill bit seven septets. A full part has 153
// septets, or 67 characters of two octets. A UCS2 part loses the blanks around it and is then
// shorter than its UDL says.
bool ATMessages::SendInParts(const SMSSendRecord& send, const std::string& header) {
  constexpr double kReferences = 255;
  const bool isUcs2 = send.Coding == kUcs2;
  const int partLength = isUcs2 ? 67 : 153;
  const int total = SMSPartCount(send.Coding, send.TextLength);
  const int reference = static_cast<int>(random_() * kReferences);
  for (int part = 1, at = 0; part <= total; ++part, at += partLength) {
    const int count = std::min(partLength, send.TextLength - at);
    const Text piece = Piece(send, static_cast<std::size_t>(at), static_cast<std::size_t>(count));
    const std::string dataHeader = SMS::BuildConcatHeader(reference, total, part);
    const std::string data = isUcs2 ? modHexStr::StrToHex4(TrimBlanks(piece)) : Packed(piece, 1);
    const int length = isUcs2 ? 2 * count + 6 : count + 7;
    if (!SendPart({header, length, dataHeader, data})) return false;
  }
  return send.TextLength % partLength != 0;
}

// Behind a prompt that comes late a first ESC may have been lost.
void ATMessages::LeavePrompt() {
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (!line_.SendATRaw(Text(1, kEscape)) || !Holds(line_.ReadATResponse(), u">")) return;
  }
}

// The length that AT+CMGS announces is that of what follows, blanks that were taken off not
// counting; it leaves out the service centre's octet, whose "00" in the header stands in for the
// octet of the UDL.
bool ATMessages::SendPart(const Part& part) {
  const std::size_t length =
      part.header.size() / 2 + part.dataHeader.size() / 2 + part.data.size() / 2;
  if (!line_.SendATCommand(Command(u"AT+CMGS=", static_cast<long long>(length)))) return false;
  const Text reply = ReadReply(u">");
  if (!Holds(reply, u">")) {
    if (line_.IsReplyOwed() || HoldsOk(reply)) LeavePrompt();
    return false;
  }
  const std::string body = part.header + Octet(part.length) + part.dataHeader + part.data;
  if (!line_.SendATRaw(FromLatin1(body) + kEndOfMessage)) {
    LeavePrompt();
    return false;
  }
  return HoldsOk(line_.ReadATResponseWait());
}

}  // namespace tessarin
