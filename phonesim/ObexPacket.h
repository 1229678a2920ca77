#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "phonesim/Bytes.h"

/// IrOBEX packets: an opcode or response byte, the total length in two bytes, high byte first, the
/// fixed fields of that opcode, then headers.
namespace phonesim {

/// The longest packet in either direction.
inline constexpr std::size_t kObexPacketLimit = 512;

namespace obex {

enum Opcode : std::uint8_t {
  kConnect = 0x80,
  kDisconnect = 0x81,
  kPut = 0x02,
  kPutFinal = 0x82,
  kGetFinal = 0x83,
  kSetPath = 0x85,
  kAbort = 0xFF,
};

enum Code : std::uint8_t {
  kContinue = 0x90,
  kSuccess = 0xA0,
  kBadRequest = 0xC0,
  kForbidden = 0xC3,
  kNotFound = 0xC4,
  kEntityTooLarge = 0xCD,
  kUnsupportedType = 0xCF,
  kNotBuilt = 0xD1,
  kUnavailable = 0xD3,
  kDatabaseFull = 0xE0,
};

enum HeaderId : std::uint8_t {
  kName = 0x01,           ///< UTF-16, high byte first, terminated by 0000
  kType = 0x42,           ///< 8-bit text terminated by 00
  kTarget = 0x46,         ///< service identifier
  kBody = 0x48,           ///< data with more to follow
  kEndOfBody = 0x49,      ///< the last data
  kWho = 0x4A,            ///< service identifier
  kAppParameters = 0x4C,  ///< tag, length, value, and so on
  kLength = 0xC3,         ///< size of the object, 32 bits
  kConnectionId = 0xCB,   ///< 32 bits
};

}  // namespace obex

/// Why a request is turned down: the code to answer and, when the request broke the protocol, in
/// which way. Without words the refusal is an ordinary one and no report is made.
class ObexFault : public std::runtime_error {
 public:
  explicit ObexFault(std::uint8_t code, const std::string& breach = {})
      : std::runtime_error(breach), code_(code) {}
  std::uint8_t Code() const { return code_; }

 private:
  std::uint8_t code_;
};

/// A header without its identifier and length; texts keep their terminators.
struct ObexHeader {
  std::uint8_t id = 0;
  Bytes value;
};

using ObexHeaders = std::vector<ObexHeader>;

struct ObexPacket {
  std::uint8_t opcode = 0;
  Bytes fields;  ///< Connect: version, flags, maximum length (2); SetPath: flags, constants
  ObexHeaders headers;
};

bool IsObexOpcode(std::uint8_t byte);

/// Takes apart a packet whose length field is its size. Throws `ObexFault` when fields or headers
/// do not fill it exactly or a text is not terminated.
ObexPacket ParseObexPacket(ByteView packet);

/// Appends a header in its wire form: identifier, then for texts and byte runs a length that counts
/// these three bytes, then the value.
void AppendObexHeader(Bytes& out, std::uint8_t id, ByteView value);
void AppendObexNumber(Bytes& out, std::uint8_t id, std::uint32_t value);

/// Code, total length, then `rest` as it stands.
Bytes ObexResponse(std::uint8_t code, ByteView rest = {});

/// The text of a Name, without terminator, as UTF-8. An empty header and a lone terminator both
/// give an empty text. Throws `ObexFault` when it is no well-formed text.
std::string ObexName(const ObexHeader& header);

}  // namespace phonesim
