#include "phonebook/PhonebookReader.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/vcard.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

void Move(bar& bars, ProgressBar& part, int value) {
  part.value = value;
  bars.Refresh();
}

}  // namespace

PhonebookReader::PhonebookReader(TessarinMenu& session, const PhoneLink& link,
                                 PhonebookLists& lists)
    : session_(session), link_(link), lists_(lists), book_(link.com) {}

bool PhonebookReader::ReadSim(bar& bars) {
  Text text;
  std::vector<SIMPhoneBookRecord> records;
  link_.obex.EndOBEXSession();
  try {
    if (!ReadSimText(text, bars)) return false;
    ATPhonebook::ParseCPBRText(text, ATPhonebook::CountEntries(text), records);
  } catch (const ConversionError&) {
    return false;
  }
  TakeSim(records);
  return true;
}

// The range is asked for before the storage is selected: these phones tell the SIM's.
bool PhonebookReader::ReadSimText(Text& text, bar& bars) {
  if (!book_.GetPhonebookRange(session_.simMinIndex, session_.simMaxIndex)) return false;
  if (!book_.SelectPhonebookStorage(ATPhonebook::kSim)) return false;
  const int last = session_.simMaxIndex;
  if (session_.simMinIndex < 0 || last < session_.simMinIndex) return false;
  for (int first = session_.simMinIndex; first <= last; first += ATPhonebook::kBatch) {
    const int end = std::min(first + ATPhonebook::kBatch - 1, last);
    Text batch;
    if (!book_.ReadPhonebookRange(batch, first, end)) return false;
    text += batch;
    Move(bars, bars.simBar, last == 0 ? bar::kSimLength : end * bar::kSimLength / last);
  }
  return true;
}

void PhonebookReader::TakeSim(const std::vector<SIMPhoneBookRecord>& records) {
  auto& list = *lists_.phoneContacts;
  list.ClearAllSIMRecord();
  for (const auto& record : records) {
    auto contact = NewContact(session_.clock());
    contact->LetData(u"s" + ToText(record.Index), clsT610Contact::kMobileId);
    contact->LetData(record.Text.Trimmed(), clsT610Contact::kName);
    contact->LetData(record.Number.Trimmed(), clsT610Contact::kHome);
    list.Add(std::move(contact));
  }
  session_.simRecordCount = static_cast<std::int32_t>(records.size());
  lists_.MemoryRead(u's');
}

bool PhonebookReader::ReadPhone(bar& bars) {
  int count = 0;
  Text text;
  const bool read = ReadObject(count, text, bars);
  if (read) {
    std::vector<PhoneBookRecord> records;
    vcard::DecodeVCards(text, count, records);
    TakePhone(records, count, bars);
  }
  link_.obex.EndOBEXSession();
  return read;
}

bool PhonebookReader::ReadObject(int& count, Text& text, bar& bars) {
  std::string unused;  // IrMC packets carry no connection identifier
  int maxRecords = 0;
  link_.obex.EndOBEXSession();
  const auto progress = [&bars](int step) {
    Move(bars, bars.phoneBar, bar::kPhoneLength * step / IrMC::kProgressSteps);
  };
  if (!link_.obex.ConnectIrmcSync(unused) ||
      !link_.irmc.ReadPhonebookObject(count, text, maxRecords, progress)) {
    return false;
  }
  session_.pbChangeCounter = link_.irmc.pbChangeCounter();
  return true;
}

void PhonebookReader::TakePhone(const std::vector<PhoneBookRecord>& records, int counted,
                                bar& bars) {
  auto& list = *lists_.phoneContacts;
  list.ClearAllPMRecord();
  const int count = static_cast<int>(records.size());
  for (int index = 0; index < count; ++index) {
    auto contact = NewContact(session_.clock());
    TakeReadRecord(records[static_cast<std::size_t>(index)], *contact);
    list.Add(std::move(contact));
    bars.phoneBar.value = bar::kPhoneLength * (index + 1) / count;
  }
  bars.Refresh();
  session_.phoneRecordCount = count;
  // An object that was cut short lacks cards, or its last card the identifier.
  phoneIsWhole_ = count >= counted &&
                  std::none_of(records.begin(), records.end(),
                               [](const auto& record) { return record.Luid.Trimmed().empty(); });
  lists_.MemoryRead(u'p', phoneIsWhole_);
}

}  // namespace tessarin
