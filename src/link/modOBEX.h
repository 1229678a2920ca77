#pragma once

// OBEX packets (IrOBEX 1.3) as hexadecimal text: an opcode byte, a 16-bit big-endian length of the
// whole packet, then fields and headers. Here packets are built and replies are taken apart.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin::modOBEX {

inline constexpr std::size_t kMaximumPacket = 512;  // bytes, in both directions

// Opcodes, final bit included where the packet is a request of its own.
enum class Opcode : std::uint8_t {
  Connect = 0x80,
  Disconnect = 0x81,
  Put = 0x02,
  PutFinal = 0x82,
  Get = 0x83,
  SetPath = 0x85,
};

// Header identifiers. The two high bits tell the form: 00 UTF-16 text and 01 bytes carry a 16-bit
// length that counts the three header bytes; 10 is one byte, 11 four bytes.
enum class Header : std::uint8_t {
  Name = 0x01,
  Type = 0x42,
  Target = 0x46,
  Body = 0x48,
  EndOfBody = 0x49,
  Who = 0x4A,
  ApplicationParameters = 0x4C,
  Length = 0xC3,
  ConnectionId = 0xCB,
};

enum class Reply { Continue, Success, Refused };

// Pads `text` in place on the left with "0" to `width` and gives it back; longer text stays.
std::string& PadHex(std::string& text, std::size_t width);

// The first byte of a reply with bit 7 forced to 1: 0x90 goes on, 0xA0 is the end, the rest fails.
Reply ReplyCode(std::string_view hex);

// The number as upper-case hexadecimal digits of exactly `digits` places, or more if it needs them.
std::string Number(std::size_t value, std::size_t digits);

std::string NameHeader(TextView name);                          // UTF-16 big-endian, then 0x0000
std::string EmptyNameHeader();                                  // 01 0003: no name at all
std::string TypeHeader(std::string_view type);                  // 8-bit text, then 0x00
std::string BytesHeader(Header header, std::string_view hex);   // Target, Who, Body, End of Body
std::string LengthHeader(std::size_t bytes);                    // C3 and 32 bits
std::string ConnectionIdHeader(std::string_view connectionId);  // CB and 8 digits

// Opcode, total length, `fields` as they stand, then the headers.
std::string Packet(Opcode opcode, std::string_view headers, std::string_view fields = "");

// The contents, in digits, of the Body or End of Body header of a reply to GET, found by walking
// the headers behind the 3-byte response: so a phone that echoes the request's headers, and one
// that does not, give the same bytes. A reply without such a header has empty contents, as the last
// one of some phones; contents that are told to be longer than the reply end with it. None when a
// header before them tells a length that cannot be.
std::optional<std::string_view> FindBody(std::string_view hex);

}  // namespace tessarin::modOBEX
