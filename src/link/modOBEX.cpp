#include "link/modOBEX.h"

#include <algorithm>

#include "codecs/modHexStr.h"

namespace tessarin::modOBEX {

namespace {

constexpr std::size_t kHeadDigits = 6;    // response code and packet length
constexpr std::size_t kHeaderDigits = 6;  // header identifier and 16-bit length
constexpr std::size_t kIdDigits = 8;      // a connection identifier

// The number in the upper-case `digits` digits at `at`, as far as they are there.
std::size_t Value(std::string_view hex, std::size_t at, std::size_t digits) {
  std::size_t value = 0;
  for (const char digit : hex.substr(at, digits)) {
    value = value << 4 | static_cast<std::size_t>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
  }
  return value;
}

// The digits of the header that begins `hex`; 0 when it is malformed.
std::size_t HeaderSize(std::string_view hex) {
  switch (Value(hex, 0, 2) >> 6) {
    case 2:
      return 4;
    case 3:
      return 10;
    default:
      if (hex.size() < kHeaderDigits) return 0;
      const std::size_t size = 2 * Value(hex, 2, 4);
      return size < kHeaderDigits ? 0 : size;
  }
}

bool IsBody(std::string_view hex) { return hex.starts_with("48") || hex.starts_with("49"); }

std::string Head(std::size_t code, std::size_t length) {
  return Number(code, 2) + Number(length, 4);
}

}  // namespace

std::string& PadHex(std::string& text, std::size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

Reply ReplyCode(std::string_view hex) {
  switch (Value(hex, 0, 2) | 0x80) {
    case 0x90:
      return Reply::Continue;
    case 0xA0:
      return Reply::Success;
    default:
      return Reply::Refused;
  }
}

std::string Number(std::size_t value, std::size_t digits) {
  std::string text;
  for (; value != 0; value >>= 4) text += "0123456789ABCDEF"[value & 15];
  std::reverse(text.begin(), text.end());
  return PadHex(text, digits);
}

std::string NameHeader(TextView name) {
  return BytesHeader(Header::Name, modHexStr::StrToHex4(name) + "0000");
}

std::string EmptyNameHeader() { return BytesHeader(Header::Name, ""); }

std::string TypeHeader(std::string_view type) {
  return BytesHeader(Header::Type, modHexStr::BytesToHex(Bytes(type.begin(), type.end())) + "00");
}

std::string BytesHeader(Header header, std::string_view hex) {
  return Head(static_cast<std::size_t>(header), hex.size() / 2 + 3).append(hex);
}

std::string LengthHeader(std::size_t bytes) {
  return Number(static_cast<std::size_t>(Header::Length), 2) + Number(bytes, 8);
}

std::string ConnectionIdHeader(std::string_view connectionId) {
  std::string id(connectionId);
  return Number(static_cast<std::size_t>(Header::ConnectionId), 2) + PadHex(id, kIdDigits);
}

std::string Packet(Opcode opcode, std::string_view headers, std::string_view fields) {
  const std::size_t length = (fields.size() + headers.size()) / 2 + 3;
  return Head(static_cast<std::size_t>(opcode), length).append(fields).append(headers);
}

std::optional<std::string_view> FindBody(std::string_view hex) {
  hex.remove_prefix(std::min(hex.size(), kHeadDigits));
  std::optional<std::string_view> body;
  while (!hex.empty()) {
    const std::size_t size = HeaderSize(hex);
    // Behind the body only whole headers may stand: anything else is data that the body's own
    // length left out.
    if (size == 0 || (body && size > hex.size())) return std::nullopt;
    const auto header = hex.substr(0, size);
    if (!body && IsBody(header)) body = header.substr(kHeaderDigits);
    hex.remove_prefix(header.size());
  }
  return body.value_or(hex);
}

}  // namespace tessarin::modOBEX
