// The fields of PDUs to send: the second half of SMS.h.
#include <algorithm>
#include <array>

#include "codecs/SMS.h"
#include "codecs/modHexStr.h"

namespace tessarin {

namespace {

struct PartSizes {
  std::int32_t single;
  std::int32_t part;
};

PartSizes SizesOf(std::int32_t coding) {
  return coding == kUcs2 ? PartSizes{70, 67} : PartSizes{160, 153};
}

// Two digits, of the lowest byte.
std::string Octet(int value) {
  return modHexStr::BytesToHex({static_cast<std::uint8_t>(value & 0xFF)});
}

// The digits in pairs, the first of each pair behind the second; an odd last one goes with "F". A
// star is the digit A, a hash B.
std::string SwappedNumber(TextView number) {
  std::string digits = ToUtf8(Replace(Replace(number, u"*", u"A"), u"#", u"B"));
  if (digits.size() % 2 != 0) digits += 'F';
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) std::swap(digits[i], digits[i + 1]);
  return digits;
}

}  // namespace

int SMSPartCount(std::int32_t coding, std::int32_t textLength) {
  const PartSizes sizes = SizesOf(coding);
  return textLength <= sizes.single ? 1 : (textLength + sizes.part - 1) / sizes.part;
}

namespace SMS {

std::string BuildPDUHeader(SMSSendRecord& send) {
  Text number = send.Number.Trimmed();
  const bool isInternational = number.starts_with(u'+');
  if (isInternational) {
    number.erase(0, 1);
    send.Number = number;
    --send.NumberLength;
  }
  number.resize(std::min(number.size(), static_cast<std::size_t>(std::max(send.NumberLength, 0))));
  const bool isLong = SMSPartCount(send.Coding, send.TextLength) > 1;
  return std::string("00")         // the phone's own service centre
         + (isLong ? "51" : "11")  // SUBMIT, relative validity; with a user data header
         + "00"                    // message reference: the phone counts
         + Octet(static_cast<int>(number.size())) + (isInternational ? "91" : "81") +
         SwappedNumber(number) + "00"  // protocol identifier
         + Octet(send.Coding) + "FF";  // the longest validity
}

std::string BuildConcatHeader(int reference, int total, int part) {
  return "050003" + Octet(reference) + Octet(total) + Octet(part);
}

}  // namespace SMS
}  // namespace tessarin
