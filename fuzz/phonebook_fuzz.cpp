// Feeds any text to the readers of the phonebook: cards, SIM entries, information logs, list files.
// Whatever a phone or a file holds, the program goes on, and what it keeps is no more than came.
#include <filesystem>

#include "codecs/ATPhonebook.h"
#include "codecs/CodePage.h"
#include "codecs/Faults.h"
#include "codecs/modHexStr.h"
#include "codecs/vcard.h"
#include "fuzz/Pieces.h"
#include "link/IrMC.h"
#include "phonebook/ContactRecord.h"
#include "phonebook/clsT610ContactList.h"

namespace {

using namespace tessarin;

void CheckCards(std::string_view bytes) {
  std::vector<PhoneBookRecord> records;
  vcard::DecodeVCards(Decode(bytes, kUtf7), 65535, records);
  Require(records.size() <= bytes.size() / 4 + 1);
  for (const auto& record : records) {
    clsT610Contact contact;
    TakeReadRecord(record, contact);
    const std::string card = vcard::EncodeVCard(RecordOf(contact));
    Require(card.starts_with("424547494E3A56434152440D0A"));
    Require(card.ends_with("454E443A56434152440D0A"));
  }
}

void CheckEntries(std::string_view bytes) {
  const Text text = FromUtf8(bytes);
  std::vector<SIMPhoneBookRecord> records;
  try {
    const int count = ATPhonebook::CountEntries(text);
    ATPhonebook::ParseCPBRText(text, count, records);
    Require(records.size() == static_cast<std::size_t>(count));
  } catch (const ConversionError&) {
    // Entries that cannot be told apart, or a place that is no number.
  }
}

// The input as the contents of the log, and of the book that may follow.
void CheckLog(std::string_view bytes) {
  const std::string_view contents = bytes.substr(0, 400);
  const std::size_t body = contents.size() + 3, packet = body + 3;
  std::string reply = {'\xA0', static_cast<char>(packet >> 8), static_cast<char>(packet),
                       '\x49', static_cast<char>(body >> 8),   static_cast<char>(body)};
  reply += contents;
  ScriptedPort port;
  const PortMap noPorts("/nowhere", "/nowhere");
  modComLib com(port, noPorts);
  IrMC irmc(com);
  for (int answer = 0; answer < 6; ++answer) port.Answer({reply});
  int count = 0, room = 0;
  Text text;
  if (irmc.ReadPhonebookObject(count, text, room)) Require(count >= 0 && count <= 65535);
  if (irmc.ReadCalendarObject(count, text, room)) Require(room >= 0 && room <= 65535);
}

// What was read of a line is written as it stood, as far as it is well formed.
void CheckLine(std::string_view bytes) {
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  const auto fields = clsT610ContactList::DecodeContactStr(line);
  clsT610ContactList list;
  try {
    list.AssignContact(fields);
  } catch (const BoundsError&) {
    return;  // fewer groups than fields
  }
  const std::string written = clsT610ContactList::EncodeContactStr(list.item(1));
  clsT610ContactList again;
  again.AssignContact(clsT610ContactList::DecodeContactStr(written));
  Require(clsT610ContactList::EncodeContactStr(again.item(1)) == written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckCards(bytes);
  CheckEntries(bytes);
  CheckLog(bytes);
  CheckLine(bytes);
  return 0;
}
