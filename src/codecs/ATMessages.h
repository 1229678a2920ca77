// The message commands of 3GPP TS 27.005 in PDU mode: the phone's two stores, and sending.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "codecs/ATLine.h"
#include "codecs/SMSMessage.h"

namespace tessarin {

// Every operation answers false when a command could not be sent or was not answered as it should
// be. Nothing is tried twice.
class ATMessages {
 public:
  // A number from 0 up to, but not, 1.
  using Random = std::function<double()>;

  // `line` must outlive this. `random` gives the reference numbers of long messages.
  explicit ATMessages(ATLine& line, Random random = SeededFromClock());

  // AT+CPMS: chooses the store for the commands that follow. `store` comes with its quotes, as
  // "SM" or "ME" between them. How many messages the store holds and can hold goes into `used` and
  // `total`; a phone that answers no more than OK holds none.
  [[nodiscard]] bool SelectMessageStore(TextView store, std::int16_t& used, std::int16_t& total);

  // AT+CMGR from location 1 on, until `used` messages were found or location `total` was read, into
  // `records`, which holds just those that were found. A location without a message costs a round,
  // and ten seconds on a phone that answers it with a plain ERROR. False when the line fails, or
  // when a reply stays away so long that the next could be taken for it: deleting goes by location,
  // so each message must have its own. `records` then holds what had been read.
  [[nodiscard]] bool ReadAllMessages(std::int16_t used, std::int16_t total,
                                     std::vector<SMSMessage>& records);

  // AT+CPMS and AT+CMGD. `store` as in SelectMessageStore.
  bool DeleteMessage(TextView store, std::int16_t location);

  // AT+CMGS, once for each part of the text. False as soon as a part fails, those before it being
  // sent; false for a coding other than kGsm7Bit and kUcs2, without sending. False as well,
  // although every part was taken, for a text that fills its parts to the last character (306, 134
  // in UCS2): the last part counts as missing. The "+" of the number goes from the record into the
  // PDU.
  [[nodiscard]] bool SendSMS(SMSSendRecord& send);

 private:
  struct Part {
    std::string header;  // SUBMIT up to the validity period
    int length;          // the UDL
    std::string dataHeader;
    std::string data;
  };

  static Random SeededFromClock();

  // The reply to the command just sent, which has `sign` in it unless it is a refusal. A phone that
  // was busy may give the answer to an earlier command first; that one is passed over.
  Text ReadReply(TextView sign);
  bool ReadMessage(int location, Text& reply);
  // Takes the phone back to commands when it may be waiting for a text.
  void LeavePrompt();
  bool SendPart(const Part& part);
  bool SendSingle(const SMSSendRecord& send, const std::string& header);
  bool SendInParts(const SMSSendRecord& send, const std::string& header);

  ATLine& line_;
  Random random_;
};

// Puts the message of a reply to AT+CMGR into `record`, all but its location. False, and nothing
// changes, for a reply without a message: one without "OK", with nothing but that, or with an empty
// line for the PDU ("+CMGR: 0,,0"), as some phones answer for an empty location.
//
//   <lines>                         empty, the echo of the command, or the end of an error's line:
//                                   the reader of the reply before took that one at its first bytes
//   +CMGR: <stat>,[<alpha>],<length>
//   <PDU, the service centre's address in front>
//   <empty>
//   OK
[[nodiscard]] bool ReadMessageReply(TextView reply, SMSMessage& record);

}  // namespace tessarin
