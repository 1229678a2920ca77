#include "phonesim/ObexPacket.h"

#include <algorithm>
#include <array>

#include "phonesim/Utf.h"

namespace phonesim {
namespace {

using namespace obex;

constexpr std::array<std::uint8_t, 9> kOpcodes = {kConnect, kDisconnect, kPut, kPutFinal, kGetFinal,
                                                  kSetPath, kAbort,      0x03, 0x05};

std::size_t FieldSize(std::uint8_t opcode) {
  if (opcode == kConnect) return 4;
  return opcode == kSetPath ? 2 : 0;
}

ObexFault Malformed(const std::string& what) { return ObexFault(kBadRequest, what); }

/// Takes the first `count` bytes off `rest`.
ByteView Cut(ByteView& rest, std::size_t count, const char* what) {
  if (rest.size() < count) throw Malformed(what);
  const ByteView part = rest.first(count);
  rest = rest.subspan(count);
  return part;
}

void CheckText(const ObexHeader& header) {
  const Bytes& value = header.value;
  if (header.id >> 6 == 0 && !value.empty()) {
    if (value.size() % 2 != 0) throw Malformed("text header of an odd size");
    if (Read16(ByteView(value).last(2)) != 0) throw Malformed("text header not terminated");
  }
  if (header.id == kType) {
    const auto end = std::find(value.begin(), value.end(), 0);
    if (end == value.end()) throw Malformed("Type header not terminated");
    if (end + 1 != value.end()) throw Malformed("Type header goes on behind its end");
  }
}

/// The two high bits of an identifier tell the shape: text, bytes, one byte, four bytes.
ObexHeader CutHeader(ByteView& rest) {
  ObexHeader header{Cut(rest, 1, "no header")[0], {}};
  std::size_t size = header.id >> 6 == 2 ? 1 : 4;
  if (header.id >> 6 < 2) {
    const std::size_t length = Read16(Cut(rest, 2, "header cut off"));
    if (length < 3) throw Malformed("header length below 3");
    size = length - 3;
  }
  const ByteView value = Cut(rest, size, "header length beyond the packet");
  header.value.assign(value.begin(), value.end());
  CheckText(header);
  return header;
}

}  // namespace

bool IsObexOpcode(std::uint8_t byte) {
  return std::find(kOpcodes.begin(), kOpcodes.end(), byte) != kOpcodes.end();
}

ObexPacket ParseObexPacket(ByteView packet) {
  ByteView rest = packet;
  ObexPacket parsed;
  parsed.opcode = Cut(rest, 3, "packet below 3 bytes")[0];
  const ByteView fields = Cut(rest, FieldSize(parsed.opcode), "packet without its fixed fields");
  parsed.fields.assign(fields.begin(), fields.end());
  while (!rest.empty()) parsed.headers.push_back(CutHeader(rest));
  return parsed;
}

void AppendObexHeader(Bytes& out, std::uint8_t id, ByteView value) {
  out.push_back(id);
  if (id >> 6 < 2) Append16(out, value.size() + 3);
  Append(out, value);
}

void AppendObexNumber(Bytes& out, std::uint8_t id, std::uint32_t value) {
  out.push_back(id);
  Append32(out, value);
}

Bytes ObexResponse(std::uint8_t code, ByteView rest) {
  Bytes packet{code};
  Append16(packet, rest.size() + 3);
  Append(packet, rest);
  return packet;
}

std::string ObexName(const ObexHeader& header) {
  ByteView text(header.value);
  if (!text.empty()) text = text.first(text.size() - 2);
  const auto name = Utf8FromUtf16(text);
  if (!name) throw Malformed("Name is no well-formed text");
  return *name;
}

}  // namespace phonesim
