#include "link/IrMC.h"

#include <algorithm>
#include <string_view>

#include "codecs/CodePage.h"
#include "codecs/modHexStr.h"
#include "link/modOBEX.h"

namespace tessarin {

using modOBEX::Header;
using modOBEX::Opcode;
using modOBEX::Reply;

// One of the two books of entries, and the lengths of its delete packet: the whole, and that of the
// name header with a LUID of 12 characters.
struct IrMC::Book {
  TextView folder;
  TextView extension;
  std::size_t deletePacket;
  std::size_t deleteName;
};

namespace {

constexpr IrMC::Book kPhonebook = {u"telecom/pb/luid/", u".vcf", 80, 69};
constexpr IrMC::Book kCalendar = {u"telecom/cal/luid/", u".vcs", 82, 71};

constexpr TextView kPhonebookLog = u"telecom/pb/info.log";
constexpr TextView kPhonebookCounter = u"telecom/pb/luid/cc.log";
constexpr TextView kPhonebookObject = u"telecom/pb.vcf";
constexpr TextView kCalendarLog = u"telecom/cal/luid/0.log";
constexpr TextView kCalendarObject = u"telecom/cal.vcs";

constexpr TextView kTotalRecords = u"Total-Records:";
constexpr TextView kMaximumRecords = u"Maximum-Records:";
constexpr int kPhonebookRoom = 100;
constexpr long kMostRecords = 0xFFFF;
constexpr std::size_t kLongestBook = 4 << 20;  // bytes: twenty times what these phones hold

// Application Parameters of a delete: tag 0x12, the hard delete, with a value of no bytes.
constexpr std::string_view kHardDelete = "4C00084C00051200";

// In the reply to a new entry the LUID stands behind response code and length (3 bytes), the
// Application Parameters header (3) and its tag and length (2).
constexpr std::size_t kLuidAt = 16;
constexpr std::size_t kLuidDigits = 24;

// The whole number that `text` begins with, blanks before it not counting, up to its line's end.
std::optional<long> LineNumber(TextView text) {
  const Text line = TrimBlanks(text.substr(0, text.find_first_of(u"\r\n")));
  if (line.empty() || line.size() > 9) return std::nullopt;
  long number = 0;
  for (const char16_t unit : line) {
    if (unit < u'0' || unit > u'9') return std::nullopt;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

// What an information log tells behind `key`.
bool ReadRecords(const Text& log, TextView key, int& records) {
  const std::size_t at = log.find(key);
  if (at == Text::npos) return false;
  const auto number = LineNumber(TextView(log).substr(at + key.size()));
  if (!number || *number > kMostRecords) return false;
  records = static_cast<int>(*number);
  return true;
}

}  // namespace

std::optional<std::string> IrMC::Get(TextView name, const Progress& progress) {
  constexpr int kLastStep = kProgressSteps - 1;
  const std::string continuation = modOBEX::Packet(Opcode::Get, "");
  std::string packet = modOBEX::Packet(Opcode::Get, modOBEX::NameHeader(name));
  std::string contents, reply;
  std::size_t received = 0;
  for (int step = 1;; step = std::min(step + 1, kLastStep)) {
    if (!com_.ExchangeOBEX(packet, reply)) return std::nullopt;
    const Reply code = modOBEX::ReplyCode(reply);
    const auto body = modOBEX::FindBody(reply);
    received += reply.size() / 2;
    if (code == Reply::Refused || !body || received > kLongestBook) return std::nullopt;
    contents += *body;
    if (code == Reply::Success) return contents;
    if (progress) progress(step);
    packet = continuation;
  }
}

std::optional<Text> IrMC::GetLog(TextView name) {
  const auto contents = Get(name);
  if (!contents) return std::nullopt;
  return modHexStr::Hex2ToStr(*contents);
}

bool IrMC::ReadObject(TextView name, Text& text, const Progress& progress) {
  const auto contents = Get(name, progress);
  if (!contents) return false;
  text = modHexStr::BytesToStr(modHexStr::HexToBytes(*contents), kUtf7);
  return true;
}

bool IrMC::ReadPhonebookObject(int& count, Text& text, int& maxRecords, const Progress& progress) {
  const auto log = GetLog(kPhonebookLog);
  if (!log || !ReadRecords(*log, kTotalRecords, count)) return false;
  maxRecords = kPhonebookRoom;
  text.clear();
  if (count == 0) return true;
  return ReadObject(kPhonebookObject, text, progress) && ReadPbChangeCounter();
}

bool IrMC::ReadCalendarObject(int& count, Text& text, int& maxRecords) {
  const auto log = GetLog(kCalendarLog);
  if (!log || !ReadRecords(*log, kTotalRecords, count) ||
      !ReadRecords(*log, kMaximumRecords, maxRecords)) {
    return false;
  }
  text.clear();
  return count == 0 || ReadObject(kCalendarObject, text, nullptr);
}

bool IrMC::ReadPbChangeCounter() {
  const auto log = GetLog(kPhonebookCounter);
  const auto number = log ? LineNumber(*log) : std::nullopt;
  if (number) pbChangeCounter_ = static_cast<std::int16_t>(*number & 0xFFFF);
  return number.has_value();
}

bool IrMC::AddPhonebookEntry(const std::string& hex, Text& luid) {
  return Add(kPhonebook, hex, luid);
}

bool IrMC::AddCalendarEntry(const std::string& hex, Text& luid) {
  return Add(kCalendar, hex, luid);
}

bool IrMC::ReplacePhonebookEntry(TextView luid, const std::string& hex) {
  return Replace(kPhonebook, luid, hex);
}

bool IrMC::ReplaceCalendarEntry(TextView luid, const std::string& hex) {
  return Replace(kCalendar, luid, hex);
}

bool IrMC::DeletePhonebookEntry(TextView luid) { return Delete(kPhonebook, luid); }

bool IrMC::DeleteCalendarEntry(TextView luid) { return Delete(kCalendar, luid); }

bool IrMC::Add(const Book& book, const std::string& hex, Text& luid) {
  std::string reply;
  if (!Put(Text(book.folder).append(book.extension), hex, reply)) return false;
  luid = modHexStr::Hex2ToStr(reply.substr(std::min(reply.size(), kLuidAt), kLuidDigits));
  return true;
}

bool IrMC::Replace(const Book& book, TextView luid, const std::string& hex) {
  std::string reply;
  return Put(Text(book.folder).append(luid).append(book.extension), hex, reply);
}

// 82, total length; 01, its length, name; C3, m in 32 bits; 49, m + 3, the m bytes of the entry.
bool IrMC::Put(TextView name, const std::string& hex, std::string& reply) {
  const std::string entry(hex, 0, hex.size() / 2 * 2);
  const std::string headers = modOBEX::NameHeader(name) + modOBEX::LengthHeader(entry.size() / 2) +
                              modOBEX::BytesHeader(Header::EndOfBody, entry);
  return Exchange(modOBEX::Packet(Opcode::PutFinal, headers), reply);
}

// 82, total length; 01, its length, name; then the parameters. There is no body.
bool IrMC::Delete(const Book& book, TextView luid) {
  const Text name = Text(book.folder).append(luid).append(book.extension);
  std::string packet = modOBEX::Number(static_cast<std::size_t>(Opcode::PutFinal), 2);
  packet += modOBEX::Number(book.deletePacket, 4);
  packet += modOBEX::Number(static_cast<std::size_t>(Header::Name), 2);
  packet += modOBEX::Number(book.deleteName, 4);
  packet += modHexStr::StrToHex4(name) + "0000";
  packet += kHardDelete;
  std::string reply;
  return Exchange(packet, reply);
}

bool IrMC::Exchange(const std::string& packet, std::string& reply) {
  return com_.SendOBEXPacket(packet) && com_.ReadOBEXResponse(reply) &&
         modOBEX::ReplyCode(reply) == Reply::Success;
}

}  // namespace tessarin
