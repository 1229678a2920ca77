#include "phonebook/ContactRecord.h"

#include "codecs/ATPhonebook.h"
#include "codecs/vcard.h"
#include "phonebook/clsT610ContactList.h"

namespace tessarin {

namespace {

// Calls `act` with each field's number and its place in the record. The first e-mail goes out as
// the preferred one and comes in as the first.
template <typename Record, typename Act>
void ForEachField(Record& r, const Act& act) {
  act(clsT610Contact::kName, r.Name);
  act(clsT610Contact::kHome, r.TelHome);
  act(clsT610Contact::kWork, r.TelWork);
  act(clsT610Contact::kMobile, r.TelCell);
  act(clsT610Contact::kFax, r.TelFax);
  act(clsT610Contact::kOther, r.TelOther);
  act(clsT610Contact::kEmail1, r.EmailPref);
  act(clsT610Contact::kCompany, r.Org);
  act(clsT610Contact::kEmail2, r.Email2);
  act(clsT610Contact::kEmail3, r.Email3);
  act(clsT610Contact::kUrl, r.Url);
  int home = clsT610Contact::kHomeAddress, work = clsT610Contact::kWorkAddress;
  for (auto* part : {&r.HomeStreet, &r.HomeCity, &r.HomeState, &r.HomeZip, &r.HomeCountry}) {
    act(home++, *part);
  }
  for (auto* part : {&r.WorkStreet, &r.WorkCity, &r.WorkState, &r.WorkZip, &r.WorkCountry}) {
    act(work++, *part);
  }
}

void TakeFields(const PhoneBookRecord& record, clsT610Contact& contact) {
  ForEachField(record, [&contact](int field, const auto& value) {
    contact.LetData(value.Trimmed(), field);
  });
}

}  // namespace

std::shared_ptr<clsT610Contact> NewContact(const Clock& clock) {
  auto contact = std::make_shared<clsT610Contact>();
  contact->LetData(Text(clsT610ContactList::GetTEMPID()), clsT610Contact::kGuid);
  contact->LetData(modDate::FormatDateText(clock.Now()), clsT610Contact::kModified);
  return contact;
}

Text OneLine(TextView text) {
  Text line;
  bool broken = false;
  for (const char16_t unit : text) {
    const bool isControl = unit < u' ' || (unit >= 0x7F && unit < 0xA0);
    if (unit == u'\r' || unit == u'\n' || unit == u'\t') {
      if (!broken) line += u' ';
      broken = true;
    } else if (!isControl) {
      line += unit;
      broken = false;
    }
  }
  return line;
}

PhoneBookRecord RecordOf(const clsT610Contact& contact) {
  PhoneBookRecord record;
  ForEachField(record,
               [&contact](int field, auto& value) { value = OneLine(contact.GetData(field)); });
  return record;
}

void CutToPhone(clsT610Contact& contact, char16_t kind) {
  if (kind == u's') {
    SIMPhoneBookRecord record;
    record.Text = OneLine(contact.GetData(clsT610Contact::kName));
    record.Number = OneLine(contact.GetData(clsT610Contact::kHome));
    contact.LetData(record.Text.Trimmed(), clsT610Contact::kName);
    contact.LetData(record.Number.Trimmed(), clsT610Contact::kHome);
    return;
  }
  const PhoneBookRecord record = RecordOf(contact);
  TakeFields(record, contact);
  if (vcard::HasWorkLine(record)) return;
  for (int part = 0; part < 5; ++part) contact.LetData(u"", clsT610Contact::kWorkAddress + part);
}

void TakeReadRecord(const PhoneBookRecord& record, clsT610Contact& contact) {
  TakeFields(record, contact);
  contact.LetData(u"p" + record.Luid.Trimmed(), clsT610Contact::kMobileId);
  contact.LetData(record.Email1.Trimmed(), clsT610Contact::kEmail1);
}

void TakeWrittenRecord(const PhoneBookRecord& record, clsT610Contact& contact) {
  const Text workStreet = contact.GetData(clsT610Contact::kWorkAddress);
  TakeFields(record, contact);
  contact.LetData(record.WorkStreet.Trimmed(), clsT610Contact::kHomeAddress);
  contact.LetData(workStreet, clsT610Contact::kWorkAddress);
}

}  // namespace tessarin
