// The PDUs of text messages (3GPP TS 23.040) as hexadecimal text: reading those that the phone
// holds, and the fields of those that it is to send.
//
//   DELIVER: fo, originating address, PID, DCS, time stamp (7), UDL, user data
//   SUBMIT:  fo, reference, destination address, PID, DCS, validity (0, 1 or 7), UDL, user data
//
// An address is its length in digits, its type, and the digits, two an octet, the first in the
// lower half. Bit 6 of `fo` says that the user data begins with a header; bits 4 and 3 say which
// validity period a SUBMIT has.
//
// Characters and septets are passed as they stand. The GSM alphabet differs from Unicode in some
// places ("@" is septet 0, which arrives as U+0000), and there a character comes out changed.
#pragma once

#include <string>
#include <string_view>

#include "codecs/SMSMessage.h"

namespace tessarin::SMS {

// Fills `record` but for its location from a PDU without the service centre's address. `stat` says
// what the PDU is: 0 and 1 a DELIVER, 2 and 3 a stored SUBMIT. Never fails: what is missing reads
// as 0, what is too long for its field is cut.
void DecodePDU(int stat, std::string_view pdu, SMSMessage& record);

// A service centre's time stamp, seven octets of swapped digits (year, month, day, hour, minute,
// second, zone), as "dd/mm/yyyy hh:mm:ss". Years below 70 are in 2000 to 2069, the others in 1970
// to 1999. The zone is not looked at: the time is the service centre's own. Empty for fewer digits
// than date and time have.
Text FormatSCTS(std::string_view digits);

// A SUBMIT up to and with its validity period, behind an empty service centre address ("00": the
// phone's own). When the number begins with "+" the record's own `Number` and `NumberLength` lose
// it. A number of more digits than the field holds counts as so many.
std::string BuildPDUHeader(SMSSendRecord& send);

// The user data header of one part: 05 00 03, then reference, number of parts and part, from 1.
std::string BuildConcatHeader(int reference, int total, int part);

}  // namespace tessarin::SMS
