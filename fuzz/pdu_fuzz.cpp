// Any bytes as a PDU of every status, as a reply to AT+CMGR, and as the text of a message. Nothing
// may crash, and a text that is sent must come back from its own PDUs.
#include "codecs/ATMessages.h"
#include "codecs/SMS.h"
#include "fuzz/Pieces.h"
#include "tests/support/ScriptedLine.h"

namespace {

using namespace tessarin;

void CheckPdus(std::string_view bytes) {
  SMSMessage record;
  for (int stat = 0; stat < 4; ++stat) {
    SMS::DecodePDU(stat, bytes, record);
    Require(record.stat == stat && record.concatenated >= 0 && record.concatenated <= 1);
  }
  const Text stamp = SMS::FormatSCTS(bytes);
  Require(stamp.empty() || stamp.size() == 19);
}

void CheckReplies(TextView reply) {
  SMSMessage record;
  static_cast<void>(ReadMessageReply(reply, record));
  ScriptedLine line;
  line.answer = [reply](const Text&) { return Text(reply); };
  ATMessages messages(line);
  std::int16_t used = 0;
  std::int16_t total = 0;
  static_cast<void>(messages.SelectMessageStore(u"\"SM\"", used, total));
  Require(used >= 0 && total >= 0);
  std::vector<SMSMessage> records;
  // A reply of another command ends the reading; what was read keeps its place.
  static_cast<void>(messages.ReadAllMessages(used, 20, records));
  Require(records.size() <= 20);
  for (std::size_t i = 0; i < records.size(); ++i) {
    Require(records[i].location >= static_cast<int>(i) + 1 && records[i].location <= 20);
  }
}

// The parts as the phone would store them once they were sent.
Text ReadBack(const std::vector<Text>& sent) {
  Text text;
  for (const Text& line : sent) {
    if (!line.starts_with(u"raw:")) continue;
    const std::string pdu = ToUtf8(line.substr(6, line.size() - 7));  // between "00" and Ctrl-Z
    SMSMessage part;
    SMS::DecodePDU(3, pdu, part);
    text += part.text.Trimmed();
  }
  return text;
}

void CheckSending(TextView text) {
  ScriptedLine line;
  line.answer = [](const Text& sent) {
    return sent.starts_with(u"raw:") ? u"\r\nOK\r\n" : u"\r\n> ";
  };
  for (const std::int32_t coding : {kGsm7Bit, kUcs2}) {
    SMSSendRecord send;
    send.Coding = coding;
    send.Number = u"1234";
    send.NumberLength = 4;
    send.Text = text;
    send.TextLength = static_cast<std::int32_t>(text.size());
    line.sent.clear();
    static_cast<void>(ATMessages(line, [] { return 0.5; }).SendSMS(send));
    const auto parts = static_cast<std::size_t>(SMSPartCount(coding, send.TextLength));
    Require(line.sent.size() == 2 * parts);
    // Blanks may be lost at the ends of the parts.
    Require(text.find(u' ') != TextView::npos || ReadBack(line.sent) == text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data),
                               std::min<std::size_t>(size, 2048));
  CheckPdus(bytes);
  const Text text = FromLatin1(bytes);
  CheckReplies(text);
  CheckReplies(u"\r\n+CMGR: 1,,9\r\n" + text + u"\r\n\r\nOK\r\n");
  Text narrow = text.substr(0, 804);
  for (char16_t& unit : narrow) unit &= 0x7F;
  CheckSending(narrow);
  return 0;
}
