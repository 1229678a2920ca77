#include "phonebook/PhoneMemories.h"

#include "codecs/Faults.h"
#include "codecs/vcard.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

constexpr TextView kSimStorage = u"\"SM\"";
constexpr TextView kFailed = u"-1";
constexpr int kNewEntry = 1;
constexpr std::size_t kLuidLength = 12;

// What the phone calls the entry: field 1 behind the letter of the memory.
Text IdentifierOf(const clsT610Contact& contact) {
  const Text& id = contact.GetData(clsT610Contact::kMobileId);
  return id.empty() ? Text() : id.substr(1);
}

}  // namespace

bool PhoneMemories::SelectSim() {
  link_.port.serial_flush();
  return book_.SelectPhonebookStorage(kSimStorage);
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

bool PhoneMemories::AddCard(const PhoneBookRecord& record, Text& luid) {
  const std::string card = vcard::EncodeVCard(record);
  const bool added = OpenSession() && link_.irmc.AddPhonebookEntry(card, luid);
  link_.obex.EndOBEXSession();
  return added;
}

bool PhoneMemories::ReplaceCard(TextView luid, const PhoneBookRecord& record) {
  const std::string card = vcard::EncodeVCard(record);
  const bool replaced = OpenSession() && link_.irmc.ReplacePhonebookEntry(luid, card);
  link_.obex.EndOBEXSession();
  return replaced;
}

// The delete packet's lengths are those of twelve characters; with others the phone would wait for
// more than comes, and the program for the phone.
PhoneMemories::Deleted PhoneMemories::DeleteCard(TextView luid) {
  if (luid.size() != kLuidLength) return Deleted::No;
  Deleted result = Deleted::NoSession;
  if (OpenSession()) {
    result = link_.irmc.DeletePhonebookEntry(luid) ? Deleted::Yes : Deleted::No;
  }
  link_.obex.EndOBEXSession();
  return result;
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
  record.Text = contact.GetData(clsT610Contact::kName);
  record.Number = contact.GetData(clsT610Contact::kHome);
  if (!SelectSim()) return {};
  if (mode != kNewEntry) {
    written = WriteSimEntry(IdentifierOf(contact), record);
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
  const std::string card = vcard::EncodeVCard(RecordOf(contact));
  Text result;
  if (OpenSession()) {
    written = mode == kNewEntry ? link_.irmc.AddPhonebookEntry(card, result)
                                : link_.irmc.ReplacePhonebookEntry(IdentifierOf(contact), card);
    if (!written) result = kFailed;
  }
  link_.obex.EndOBEXSession();
  return result;
}

}  // namespace tessarin
