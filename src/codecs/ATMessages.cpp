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

bool HoldsOk(const Text& reply) { return reply.find(u"OK") != Text::npos; }

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
  const Text reply = line_.ReadATResponse();
  if (!HoldsOk(reply)) return false;
  const auto fields = FieldsOf(reply);
  used = LeadingNumber(fields[0]);
  total = fields.size() > 1 ? LeadingNumber(fields[1]) : std::int16_t{0};
  return true;
}

bool ReadMessageReply(TextView reply, SMSMessage& record) {
  if (!HoldsOk(Text(reply))) return false;
  const auto lines = Split(reply, u"\r\n");
  const auto status = std::find_if(lines.begin(), lines.end(), [](const Text& line) {
    return line.find(u"+CMGR:") != Text::npos;
  });
  if (lines.end() - status < 2) return false;
  const std::string pdu = ToUtf8(*std::next(status));
  const auto centre = static_cast<std::size_t>(modHexStr::HexToBytes(pdu.substr(0, 2))[0]);
  SMS::DecodePDU(LeadingNumber(FieldsOf(*status)[0]),
                 std::string_view(pdu).substr(std::min(pdu.size(), 2 * (centre + 1))), record);
  return true;
}

bool ATMessages::ReadAllMessages(std::int16_t used, std::int16_t total,
                                 std::vector<SMSMessage>& records) {
  records.clear();
  for (int location = 1;; ++location) {
    if (!line_.SendATCommand(Command(u"AT+CMGR=", location))) return false;
    SMSMessage record;
    record.location = static_cast<std::int16_t>(location);
    if (ReadMessageReply(line_.ReadATResponse(), record)) records.push_back(record);
    if (static_cast<int>(records.size()) >= used || location >= total) return true;
  }
}

bool ATMessages::DeleteMessage(TextView store, std::int16_t location) {
  if (!line_.SendATCommand(Text(u"AT+CPMS=").append(store))) return false;
  if (!HoldsOk(line_.ReadATResponse())) return false;
  if (!line_.SendATCommand(Command(u"AT+CMGD=", location))) return false;
  return HoldsOk(line_.ReadATResponse());
}

bool ATMessages::SendSMS(SMSSendRecord& send) {
  if (send.Coding != kGsm7Bit && send.Coding != kUcs2) return false;
  const std::string header = SMS::BuildPDUHeader(send);
  const bool isSingle = SMSPartCount(send.Coding, send.TextLength) == 1;
  return isSingle ? SendSingle(send, header) : SendInParts(send, header);
}

// The text goes without the blanks around it while its length counts them. In septets the missing
// ones are made up at the end; in UCS2 the digits are fewer than the lengths say.
bool ATMessages::SendSingle(const SMSSendRecord& send, const std::string& header) {
  const auto length = static_cast<std::size_t>(std::max(send.TextLength, 0));
  Text text = TrimBlanks(Piece(send, 0, length));
  if (send.Coding == kUcs2) {
    const int octets = 2 * static_cast<int>(length);
    return SendPart({header, octets, "", modHexStr::StrToHex4(text), 2 * length});
  }
  text.resize(length, u' ');
  const std::string data = Packed(text, 0);
  return SendPart({header, static_cast<int>(length), "", data, data.size() / 2});
}

// The user data header takes six octets: with one fill bit seven septets. A full part has 153
// septets, or 67 characters of two octets. A UCS2 part loses the blanks around it and is then
// shorter than its lengths say.
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
    const auto octets = isUcs2 ? 2 * static_cast<std::size_t>(count) : data.size() / 2;
    if (!SendPart({header, length, dataHeader, data, octets})) return false;
  }
  return send.TextLength % partLength != 0;
}

// The length that AT+CMGS announces leaves out the service centre's octet; the header's "00" for it
// stands in for the octet of the UDL.
bool ATMessages::SendPart(const Part& part) {
  const std::size_t length = part.header.size() / 2 + part.dataHeader.size() / 2 + part.octets;
  if (!line_.SendATCommand(Command(u"AT+CMGS=", static_cast<long long>(length)))) return false;
  if (line_.ReadATResponse().find(u'>') == Text::npos) return false;
  const std::string body = part.header + Octet(part.length) + part.dataHeader + part.data;
  if (!line_.SendATRaw(FromLatin1(body) + kEndOfMessage)) return false;
  return HoldsOk(line_.ReadATResponseWait());
}

}  // namespace tessarin
