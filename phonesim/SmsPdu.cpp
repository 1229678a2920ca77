#include "phonesim/SmsPdu.h"

#include <algorithm>
#include <array>

#include "phonesim/Gsm.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr std::uint8_t kSubmit = 0x01;
constexpr std::uint8_t kHasHeader = 0x40;
constexpr std::uint8_t kInternational = 0x91;
constexpr std::uint8_t kUnknownType = 0x81;
constexpr std::uint8_t kAlphanumeric = 0xD0;
constexpr std::size_t kUserDataLimit = 140;
constexpr std::size_t kNumberLimit = 20;
constexpr std::string_view kNumberDigits = "0123456789*#abc";

/// Cuts a PDU from the front.
class Reader {
 public:
  explicit Reader(ByteView rest) : rest_(rest) {}

  std::uint8_t Octet(const char* what) { return Octets(1, what)[0]; }
  ByteView Octets(std::size_t count, const char* what) {
    if (rest_.size() < count) throw PduFault(std::string("PDU ends in ") + what);
    const ByteView part = rest_.first(count);
    rest_ = rest_.subspan(count);
    return part;
  }
  ByteView Rest() const { return rest_; }

 private:
  ByteView rest_;
};

std::string ReadNumber(Reader& pdu) {
  const std::size_t count = pdu.Octet("number length");
  const std::uint8_t type = pdu.Octet("number type");
  if (count == 0 || count > kNumberLimit) throw PduFault("number of 0 or more than 20 digits");
  if (type != kInternational && type != kUnknownType) throw PduFault("number type not 81 or 91");
  std::string number = type == kInternational ? "+" : "";
  const ByteView octets = pdu.Octets((count + 1) / 2, "number");
  for (std::size_t i = 0; i < octets.size() * 2; ++i) {
    const std::size_t digit = i % 2 == 0 ? octets[i / 2] & 0x0FU : octets[i / 2] >> 4U;
    if (i == count && digit != 0x0F) throw PduFault("odd number without filler F");
    if (i == count) break;
    if (digit >= kNumberDigits.size()) throw PduFault("filler within the number");
    number += kNumberDigits[digit];
  }
  return number;
}

SmsCoding ReadCoding(std::uint8_t dcs) {
  if (dcs == 0x00) return SmsCoding::Gsm;
  if (dcs == 0x08) return SmsCoding::Ucs2;
  if (dcs == 0x04) return SmsCoding::Data;
  throw PduFault("data coding that this phone does not send");
}

std::size_t ValiditySize(std::uint8_t first) {
  constexpr std::array<std::size_t, 4> sizes = {0, 7, 1, 7};
  return sizes[first >> 3 & 3];
}

/// The parts' element (00 03 reference total number) among those of a header; others are passed
/// over.
std::optional<SmsPart> ReadPart(ByteView header) {
  Reader elements(header);
  std::optional<SmsPart> part;
  while (!elements.Rest().empty()) {
    const std::uint8_t tag = elements.Octet("header element");
    const ByteView value = elements.Octets(elements.Octet("header element"), "header element");
    if (tag != 0) continue;
    if (value.size() != 3 || value[1] == 0 || value[2] == 0 || value[2] > value[1]) {
      throw PduFault("part number beyond the number of parts");
    }
    part = SmsPart{value[0], value[1], value[2]};
  }
  return part;
}

bool IsShortUcs2(const Submitted& message, std::size_t there, std::size_t length) {
  return message.coding == SmsCoding::Ucs2 && there < length && (length - there) % 2 == 0;
}

void ReadUserData(Reader& pdu, bool hasHeader, bool takesShortUcs2, Submitted& message) {
  const std::size_t length = pdu.Octet("user data length");
  const bool septets = message.coding == SmsCoding::Gsm;
  const std::size_t size = septets ? (length * 7 + 7) / 8 : length;
  if (size > kUserDataLimit) throw PduFault("more than 140 octets of user data");
  const bool isTaken = takesShortUcs2 && IsShortUcs2(message, pdu.Rest().size(), size);
  if (pdu.Rest().size() != size && !isTaken) {
    throw PduFault("user data are not as long as their length");
  }
  const ByteView data = pdu.Rest();
  Reader user(data);
  std::size_t head = 0;
  if (hasHeader) {
    head = user.Octet("header length") + std::size_t{1};
    message.part = ReadPart(user.Octets(head - 1, "header"));
  }
  if (!septets) {
    message.units.assign(user.Rest().begin(), user.Rest().end());
    return;
  }
  const std::size_t headSeptets = (head * 8 + 6) / 7;
  if (headSeptets > length) throw PduFault("header longer than the user data");
  message.units = UnpackSeptets(data, length - headSeptets, headSeptets * 7);
}

Bytes NumberOctets(const std::string& digits) {
  Bytes octets;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const auto value = [&](std::size_t at) {
      return at < digits.size() ? kNumberDigits.find(digits[at]) : std::size_t{0x0F};
    };
    octets.push_back(static_cast<std::uint8_t>(value(i + 1) << 4 | value(i)));
  }
  return octets;
}

/// Length in digits, type, digits; a name is packed, and its length counts half octets.
void AppendAddress(Bytes& pdu, const std::string& address) {
  const bool plus = address.starts_with('+');
  const std::string digits = address.substr(plus ? 1 : 0);
  if (digits.find_first_not_of(kNumberDigits) == std::string::npos) {
    pdu.push_back(static_cast<std::uint8_t>(digits.size()));
    pdu.push_back(plus ? kInternational : kUnknownType);
    return Append(pdu, NumberOctets(digits));
  }
  const Bytes septets = GsmSeptets(address);
  pdu.push_back(static_cast<std::uint8_t>((septets.size() * 7 + 3) / 4));
  pdu.push_back(kAlphanumeric);
  Append(pdu, PackSeptets(septets));
}

void AppendValidity(Bytes& pdu, SmsValidity validity) {
  switch (validity) {
    case SmsValidity::None:
      return;
    case SmsValidity::Relative:
      return pdu.push_back(0xA7);  // a day
    case SmsValidity::Absolute:
      return Append(pdu, Bytes{0x40, 0x60, 0x51, 0x90, 0x00, 0x00, 0x80});
    case SmsValidity::Enhanced:
      return Append(pdu, Bytes{0x01, 0x48, 0, 0, 0, 0, 0});
  }
}

std::uint8_t ValidityBits(SmsValidity validity) {
  constexpr std::array<std::uint8_t, 4> bits = {0x00, 0x10, 0x18, 0x08};
  return bits[static_cast<std::size_t>(validity)];
}

void AppendUserData(Bytes& pdu, const SmsDraft& draft) {
  Bytes header;
  if (draft.part) {
    header = {0x05,
              0x00,
              0x03,
              static_cast<std::uint8_t>(draft.part->reference),
              static_cast<std::uint8_t>(draft.part->total),
              static_cast<std::uint8_t>(draft.part->number)};
  }
  if (draft.coding == SmsCoding::Ucs2) {
    Append(header, Utf16FromUtf8(draft.text));
    pdu.push_back(static_cast<std::uint8_t>(header.size()));
    return Append(pdu, header);
  }
  const Bytes septets = GsmSeptets(draft.text);
  const std::size_t headSeptets = (header.size() * 8 + 6) / 7;
  Bytes data = PackSeptets(septets, headSeptets * 7);
  std::copy(header.begin(), header.end(), data.begin());
  pdu.push_back(static_cast<std::uint8_t>(headSeptets + septets.size()));
  Append(pdu, data);
}

}  // namespace

Submitted ReadSubmit(const std::string& digits, std::size_t announced, bool takesShortUcs2) {
  const auto octets = BytesOfHex(digits);
  if (!octets) throw PduFault("PDU is not made of pairs of digits");
  Reader pdu(*octets);
  pdu.Octets(pdu.Octet("service centre"), "service centre");
  if (pdu.Rest().size() != announced) throw PduFault("PDU is not as long as announced");

  const std::uint8_t first = pdu.Octet("first octet");
  if ((first & 0x03) != kSubmit) throw PduFault("PDU is no SMS-SUBMIT");
  pdu.Octet("reference");
  Submitted message;
  message.recipient = ReadNumber(pdu);
  pdu.Octet("protocol");
  message.coding = ReadCoding(pdu.Octet("data coding"));
  pdu.Octets(ValiditySize(first), "validity");
  ReadUserData(pdu, (first & kHasHeader) != 0, takesShortUcs2, message);
  return message;
}

std::string SmsText(SmsCoding coding, ByteView units) {
  if (coding == SmsCoding::Gsm) return TextOfSeptets(units);
  if (coding == SmsCoding::Data) return HexDigits(units);
  return Utf8FromUtf16(units).value_or("<" + HexDigits(units) + ">");
}

std::string WriteStored(const SmsDraft& draft) {
  Bytes pdu = {0x07, 0x91, 0x44, 0x77, 0x00, 0x09, 0x90, 0x99};
  std::uint8_t first = draft.part ? kHasHeader : 0;
  first |= draft.outgoing ? static_cast<std::uint8_t>(kSubmit | ValidityBits(draft.validity))
                          : std::uint8_t{0x04};
  pdu.push_back(first);
  if (draft.outgoing) pdu.push_back(0x00);
  AppendAddress(pdu, draft.address);
  pdu.push_back(0x00);
  pdu.push_back(draft.coding == SmsCoding::Ucs2 ? 0x08 : 0x00);
  if (draft.outgoing) {
    AppendValidity(pdu, draft.validity);
  } else {
    Append(pdu, *BytesOfHex(draft.time));
  }
  AppendUserData(pdu, draft);
  return HexDigits(pdu);
}

std::size_t TpduLength(const std::string& digits) {
  const auto octets = BytesOfHex(digits);
  if (!octets || octets->empty()) return 0;
  return octets->size() - std::min<std::size_t>(octets->size(), (*octets)[0] + std::size_t{1});
}

}  // namespace phonesim
