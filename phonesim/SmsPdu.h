#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "phonesim/Bytes.h"

/// Short messages as 3GPP TS 23.040 puts them into octets.
namespace phonesim {

enum class SmsCoding { Gsm, Data, Ucs2 };

/// Which part of a message this is; `reference` is one octet.
struct SmsPart {
  int reference = 0;
  int total = 1;
  int number = 1;
};

/// Why a PDU cannot be sent.
class PduFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What one SMS-SUBMIT says.
struct Submitted {
  std::string recipient;  ///< with its "+"
  SmsCoding coding = SmsCoding::Gsm;
  std::optional<SmsPart> part;
  Bytes units;  ///< septets one a byte, or octets
};

/// Takes apart the digits behind AT+CMGS=`announced`: service centre, then the octets that were
/// announced. Throws `PduFault` unless every length is that of what follows it; `takesShortUcs2`
/// lets whole characters of UCS2 be missing at the end.
///
///     service centre length, service centre | first octet, reference, number length in digits,
///     type, number | protocol, coding | validity (0, 1 or 7) | user data length, user data
Submitted ReadSubmit(const std::string& digits, std::size_t announced, bool takesShortUcs2 = false);

/// The text of one or more parts in UTF-8; data as hexadecimal digits.
std::string SmsText(SmsCoding coding, ByteView units);

enum class SmsValidity { None, Relative, Absolute, Enhanced };

/// A message to be kept in a store.
struct SmsDraft {
  bool outgoing = false;
  std::string address;  ///< a number, or a name if it has letters
  std::string text;     ///< UTF-8, short enough for one part
  SmsCoding coding = SmsCoding::Gsm;
  std::string time;  ///< of an incoming one: seven pairs of digits as they stand in a PDU
  SmsValidity validity = SmsValidity::None;  ///< of an outgoing one
  std::optional<SmsPart> part;
};

/// Its PDU in digits, with a service centre in front.
std::string WriteStored(const SmsDraft& draft);

/// How many octets of a PDU in digits stand behind its service centre.
std::size_t TpduLength(const std::string& digits);

}  // namespace phonesim
