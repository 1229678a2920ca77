#include "link/modComLib.h"

#include <algorithm>
#include <utility>

#include "codecs/CodePage.h"
#include "codecs/modHexStr.h"
#include "link/ReplyReader.h"
#include "link/modOBEX.h"

namespace tessarin {

namespace {

// An AT reply is waited for in so many polls, each followed by a pause: about ten seconds. A plain
// final "ERROR" is no end of a reply, so a refused command costs all of them.
constexpr int kPolls = 100;
constexpr int kPauseMilliseconds = 100;

constexpr std::string_view kConnectEnd = "\r\nCONNECT\r\n";
constexpr std::string_view kOkEnd = "\r\nOK\r\n";
constexpr std::string_view kPromptEnd = "\r\n>";
constexpr std::string_view kMessageErrorEnd = "\r\n+CMS ERROR:";
// Long replies may have their result code right behind the last line.
constexpr std::string_view kBareOkEnd = "OK\r\n";

constexpr char16_t kCarriageReturn = u'\r';

// Reads until the reply has ended or the polls are used up. A poll that brought bytes counts as
// much as an empty one.
bool ReadWithinLimit(ReplyReader& reader, linkport& port) {
  for (int poll = 0; poll < kPolls; ++poll) {
    if (reader.Read()) return true;
    port.XSleep(kPauseMilliseconds);
  }
  return false;
}

std::string Hex(std::string_view bytes) {
  return modHexStr::BytesToHex(Bytes(bytes.begin(), bytes.end()));
}

// The byte at `index`, which is there.
std::size_t ByteAt(std::string_view bytes, std::size_t index) {
  return static_cast<std::uint8_t>(bytes[index]);
}

}  // namespace

modComLib::modComLib(linkport& port, const PortMap& map, PrinterPorts printers)
    : port_(port), map_(map), printers_(std::move(printers)) {}

bool modComLib::PortExists(int port) const { return map_.Exists(port); }

bool modComLib::OpenPhonePort(const std::string& portName) {
  if (port_.serial_open("\\\\.\\" + portName, baudRate_) == 0) return false;
  if (!SendATCommand(u"AT+CGMM")) return false;
  return ContainsIgnoringCase(ReadATResponse(), u"OK");
}

void modComLib::ClosePhonePort() { port_.serial_close(); }

bool modComLib::PortHasPrinter(const std::string& portName) const {
  if (!printers_) return false;
  const auto ports = printers_();
  return std::any_of(ports.begin(), ports.end(), [&](const std::string& port) {
    return port.substr(0, port.find(':')) == portName;
  });
}

bool modComLib::Write(const Bytes& bytes, std::size_t count) {
  return port_.serial_write(bytes.data(), count) != 0;
}

bool modComLib::SendATCommand(TextView command) {
  return SendATRaw(Text(command) + kCarriageReturn);
}

bool modComLib::SendATRaw(TextView text) {
  Bytes bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t unit) {
    return static_cast<std::uint8_t>(unit <= 0xFF ? unit : u'?');
  });
  return Write(bytes, bytes.size());
}

bool modComLib::SendATText(TextView command) {
  const Bytes bytes = modHexStr::StrToBytes(Text(command) + kCarriageReturn, kUtf8);
  return Write(bytes, bytes.size());
}

Text modComLib::ReadATResponse() {
  ReplyReader reader(port_, {kConnectEnd, kOkEnd, kPromptEnd, kMessageErrorEnd});
  const bool hasEnded = ReadWithinLimit(reader, port_);
  const Text reply = FromLatin1(reader.Reply());
  isReplyOwed_ = !hasEnded && !ContainsIgnoringCase(reply, u"ERROR");
  return hasEnded ? reply : u"ERROR";
}

Text modComLib::ReadATResponseWait() {
  ReplyReader reader(port_, {kOkEnd, kMessageErrorEnd});
  while (!reader.Read()) {
  }
  return FromLatin1(reader.Reply());
}

Text modComLib::ReadLongResponse() {
  ReplyReader reader(port_, {kMessageErrorEnd, kBareOkEnd});
  if (!ReadWithinLimit(reader, port_)) return u"ERROR";
  // HexToBytes gives one byte more than came, a zero, and readers of long replies count on the
  // U+0000 that it leaves at the end of the text.
  return modHexStr::BytesToStr(modHexStr::HexToBytes(Hex(reader.Reply())), kUtf8);
}

bool modComLib::SendOBEXPacket(const std::string& hex) {
  return Write(modHexStr::HexToBytes(hex), hex.size() / 2);
}

bool modComLib::ReadOBEXResponse(std::string& hex) {
  constexpr std::size_t kHead = 3;  // response code and length of the packet
  std::string packet;
  std::size_t length = 0;
  while (packet.size() < kHead || packet.size() != length) {
    ReadSome(port_, packet);
    if (packet.size() >= kHead) length = ByteAt(packet, 1) << 8 | ByteAt(packet, 2);
  }
  hex = Hex(packet);
  return true;
}

bool modComLib::ExchangeOBEX(const std::string& packet, std::string& reply) {
  return packet.size() <= 2 * modOBEX::kMaximumPacket && SendOBEXPacket(packet) &&
         ReadOBEXResponse(reply);
}

bool modComLib::ReadOBEXCloseResponse(Text& text) {
  constexpr std::size_t kSuccess = 0xA0;
  constexpr std::size_t kDisconnect = 0x81;
  std::string reply;
  while (reply.empty()) ReadSome(port_, reply);
  const std::size_t first = ByteAt(reply, 0);
  if (first != kSuccess && first != kDisconnect) return false;
  const std::size_t length = first == kSuccess ? 9 : 3;
  while (reply.size() < length) ReadSome(port_, reply);
  text = FromLatin1(first == kSuccess ? reply : Hex(reply));
  return true;
}

}  // namespace tessarin
