// Reading PDUs: the first half of SMS.h.
#include <algorithm>

#include "codecs/SMS.h"
#include "codecs/modDate.h"
#include "codecs/modHexStr.h"
#include "codecs/septetkit.h"

namespace tessarin::SMS {

namespace {

constexpr std::size_t kStampDigits = 14;

// Walks a PDU. Digits behind its end are none, octets there 0.
class Reader {
 public:
  explicit Reader(std::string_view pdu) : pdu_(pdu) {}

  int Octet() {
    const Text octet = modHexStr::Hex2ToStr(Digits(2));
    return octet.empty() ? 0 : octet[0];
  }
  std::string_view Digits(std::size_t count) {
    const auto digits = pdu_.substr(0, count);
    pdu_.remove_prefix(digits.size());
    return digits;
  }
  std::string_view Rest() const { return pdu_; }

 private:
  std::string_view pdu_;
};

bool IsSubmit(int stat) { return stat == 2 || stat == 3; }
bool IsDeliver(int stat) { return stat == 0 || stat == 1; }

std::string SwapPairs(std::string_view digits) {
  std::string swapped(digits);
  for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
  return swapped;
}

Text UnpackText(std::size_t shift, std::size_t septets, std::string_view hex) {
  Bytes unpacked;
  septetkit::char_7bit_unpack(shift, septets, modHexStr::HexToBytes(hex), unpacked);
  return modHexStr::Hex2ToStr(modHexStr::BytesToHex(unpacked));
}

// The digits of an international number come without a sign, like those of any other. Digit A is a
// star, B a hash.
Text ReadAddress(Reader& reader) {
  auto count = static_cast<std::size_t>(reader.Octet());
  const int type = reader.Octet();
  const std::size_t even = count + count % 2;
  const auto digits = reader.Digits(even);
  if ((type & 0xF0) == 0xD0) return UnpackText(0, even / 2 + 1, digits);
  std::string number = SwapPairs(digits).substr(0, count);  // the last of an odd one is a filler
  std::replace(number.begin(), number.end(), 'A', '*');
  std::replace(number.begin(), number.end(), 'B', '#');
  return FromLatin1(number);
}

// Passes over the validity period of a SUBMIT.
void SkipValidity(int firstOctet, Reader& reader) {
  const int format = firstOctet & 24;
  if (format == 16) reader.Octet();
  if (format == 8 || format == 24) reader.Digits(kStampDigits);
}

// Each element is a tag, a length and a value. Tag 0 tells of the parts of a long message (its
// wider twin, tag 8, is not used by these phones); all others, ports (5) among them, mean nothing
// to a mailbox.
void ReadUserDataHeader(Reader header, SMSMessage& record) {
  while (!header.Rest().empty()) {
    const int tag = header.Octet();
    Reader value(header.Digits(2 * static_cast<std::size_t>(header.Octet())));
    if (tag != 0) continue;
    record.concatenated = 1;
    record.reference = static_cast<std::int16_t>(value.Octet());
    record.partCount = static_cast<std::int16_t>(value.Octet());
    record.partNumber = static_cast<std::int16_t>(value.Octet());
  }
}

// `length` counts septets, those that the header and its fill bits take among them.
Text ReadSeptets(std::string_view rest, int length, int headerOctets) {
  const int fill = (7 - headerOctets % 7) % 7;
  const int septets = length - (headerOctets * 8 + fill) / 7;
  return UnpackText(static_cast<std::size_t>(fill), static_cast<std::size_t>(std::max(septets, 0)),
                    rest);
}

Text ReadUserData(std::string_view rest, int coding, int length, int headerOctets) {
  if ((coding & 8) != 0) return modHexStr::Hex4ToStr(rest);
  if ((coding & 4) != 0) return FromLatin1(rest);  // 8-bit data is shown as its digits
  return ReadSeptets(rest, length, headerOctets);
}

// The decimal digits at a place, as far as they are some.
int Decimal(std::string_view digits, std::size_t at) {
  int value = 0;
  for (const char digit : digits.substr(at, 2)) {
    if (digit < '0' || digit > '9') break;
    value = value * 10 + (digit - '0');
  }
  return value;
}

}  // namespace

void DecodePDU(int stat, std::string_view pdu, SMSMessage& record) {
  const std::int16_t location = record.location;
  record = SMSMessage();
  record.location = location;
  record.stat = static_cast<std::int16_t>(stat);
  Reader reader(pdu);
  const int firstOctet = reader.Octet();
  if (IsSubmit(stat)) reader.Octet();  // the message reference
  record.sender = ReadAddress(reader);
  reader.Octet();  // the protocol identifier
  const int coding = reader.Octet();
  if (IsDeliver(stat)) {
    record.timestamp = FormatSCTS(reader.Digits(kStampDigits));
  } else {
    record.timestamp = u"";
    SkipValidity(firstOctet, reader);
  }
  const int length = reader.Octet();
  if (length == 0) return;
  int headerOctets = 0;
  if ((firstOctet & 64) != 0) {
    const int headerLength = reader.Octet();
    headerOctets = headerLength + 1;
    ReadUserDataHeader(Reader(reader.Digits(2 * static_cast<std::size_t>(headerLength))), record);
  }
  record.text = ReadUserData(reader.Rest(), coding, length, headerOctets);
}

Text FormatSCTS(std::string_view digits) {
  constexpr std::size_t kDateAndTime = 12;
  if (digits.size() < kDateAndTime) return {};
  const std::string pairs = SwapPairs(digits);
  const int year = Decimal(pairs, 0);
  return modDate::FormatDateText(
      modDate::PackDate(year < 70 ? 2000 + year : 1900 + year, Decimal(pairs, 2),
                        Decimal(pairs, 4)) +
      modDate::PackTime(Decimal(pairs, 6), Decimal(pairs, 8), Decimal(pairs, 10)));
}

}  // namespace tessarin::SMS
