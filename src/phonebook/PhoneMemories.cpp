#include "phonebook/PhoneMemories.h"

#include "codecs/Faults.h"
#include "codecs/Numbers.h"
#include "codecs/vcard.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

constexpr TextView kFailed = u"-1";
constexpr int kNewEntry = 1;
constexpr std::size_t kLuidLength = 12;

}  // namespace

bool PhoneMemories::SelectSim() {
  link_.port.serial_flush();
  return book_.SelectPhonebookStorage(ATPhonebook::kSim);
}

// A reply that makes no sense is one more way for a phone to refuse.
int PhoneMemories::FindFreeSimLocation() {
  try {
    if (session_.simMaxIndex == 0 &&
        !book_.GetPhonebookRange(session_.simMinIndex, session_.simMaxIndex)) {
      return 0;
    }
    return book_.FindFreeSIMLocation(session_.simMinIndex, session_.simMaxIndex);
  } catch (const ConversionError&) {
    return 0;
  }
}

bool PhoneMemories::ReadSimEntry(TextView location, SIMPhoneBookRecord& record) {
  Text text;
  std::vector<SIMPhoneBookRecord> records;
  try {
    if (!book_.ReadPhonebookRange(text, ReadNumber(location), 0)) return false;
    ATPhonebook::ParseCPBRText(text, ATPhonebook::CountEntries(text), records);
  } catch (const ConversionError&) {
    return false;
  }
  if (records.empty()) return false;
  record = records.front();
  return true;
}

bool PhoneMemories::WriteSimEntry(TextView location, const SIMPhoneBookRecord& record) {
  return book_.WriteSIMEntry(location, record);
}

bool PhoneMemories::DeleteSimEntry(TextView location) { return book_.DeleteSIMEntry(location); }

bool PhoneMemories::OpenSession() {
  std::string unused;  // IrMC packets carry no connection identifier
  link_.port.serial_flush();
  link_.obex.EndOBEXSession();
  return link_.obex.ConnectIrmcSync(unused);
}

PhoneMemories::Outcome PhoneMemories::InSession(const std::function<bool()>& act) {
  Outcome outcome = Outcome::NoSession;
  if (OpenSession()) outcome = act() ? Outcome::Done : Outcome::Refused;
  link_.obex.EndOBEXSession();
  return outcome;
}

PhoneMemories::Outcome PhoneMemories::AddCard(const PhoneBookRecord& record, Text& luid) {
  const std::string card = vcard::EncodeVCard(record);
  const Outcome outcome = InSession([&] { return link_.irmc.AddPhonebookEntry(card, luid); });
  if (outcome == Outcome::Done) written_.insert_or_assign(luid, record);
  return outcome;
}

PhoneMemories::Outcome PhoneMemories::ReplaceCard(TextView luid, const PhoneBookRecord& record) {
  const std::string card = vcard::EncodeVCard(record);
  const Outcome outcome = InSession([&] { return link_.irmc.ReplacePhonebookEntry(luid, card); });
  if (outcome == Outcome::Done) written_.insert_or_assign(Text(luid), record);
  return outcome;
}

// The delete packet's lengths are those of twelve characters; with others the phone would wait for
// more than comes, and the program for the phone.
PhoneMemories::Outcome PhoneMemories::DeleteCard(TextView luid) {
  if (luid.size() != kLuidLength) return Outcome::Nameless;
  return InSession([&] { return link_.irmc.DeletePhonebookEntry(luid); });
}

const PhoneBookRecord* PhoneMemories::LastWritten(TextView luid) const {
  const auto found = written_.find(luid);
  return found == written_.end() ? nullptr : &found->second;
}

Text PhoneMemories::WriteContactToMobile(clsT610Contact& contact, char16_t kind, int mode,
                                         bool* written) {
  bool done = false;
  Text result;
  if (kind == kSim) result = WriteToSim(contact, mode, done);
  if (kind == kPhone) result = WriteToPhone(contact, mode, done);
  if (written != nullptr) *written = done;
  return result;
}

Text PhoneMemories::WriteToSim(clsT610Contact& contact, int mode, bool& written) {
  SIMPhoneBookRecord record;
  record.Text = OneLine(contact.GetData(clsT610Contact::kName));
  record.Number = OneLine(contact.GetData(clsT610Contact::kHome));
  if (!SelectSim()) return {};
  if (mode != kNewEntry) {
    written = WriteSimEntry(contact.Identifier(), record);
    return written ? Text() : Text(kFailed);
  }
  const int free = FindFreeSimLocation();
  const Text location = ToText(free);
  written = free != 0 && WriteSimEntry(location, record);
  if (!written) return Text(kFailed);
  contact.LetData(Text(1, kSim) + location, clsT610Contact::kMobileId);
  return location;
}

Text PhoneMemories::WriteToPhone(const clsT610Contact& contact, int mode, bool& written) {
  const PhoneBookRecord record = RecordOf(contact);
  Text result;
  const Outcome outcome =
      mode == kNewEntry ? AddCard(record, result) : ReplaceCard(contact.Identifier(), record);
  written = outcome == Outcome::Done;
  return outcome == Outcome::Refused ? Text(kFailed) : result;
}

}  // namespace tessarin
