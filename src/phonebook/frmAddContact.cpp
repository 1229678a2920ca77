#include "phonebook/frmAddContact.h"

#include <algorithm>

#include "codecs/NumberFilter.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "phonebook/ContactRecord.h"
#include "phonebook/ContactTexts.h"

namespace tessarin {

namespace {

namespace words = text::interface_;
using Contact = clsT610Contact;

constexpr int kAddressWords[] = {words::kStreet, words::kCity, words::kState, words::kZip,
                                 words::kCountry};

}  // namespace

frmAddContact::frmAddContact(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories)
    : Window(session.host(), "frmAddContact"),
      session_(session),
      lists_(lists),
      memories_(memories) {
  session_.jobs().Set(job::kWriteContact, [this] { AddOrEditPhoneBook(); });
  Option1.clicked.Always([this] { ChooseMemory(true); });
  Option2.clicked.Always([this] { ChooseMemory(false); });
  Command1.clicked.Always([this] {
    if (editIndex_ != 0) {
      SaveRecord();
    } else if (session_.statusPhase != kPhonePresent) {
      Refuse(text::error::kWriteContact);
    } else {
      session_.commandState = job::kWriteContact;
    }
  });
  Command2.clicked.Always([this] { Unload(); });
}

std::vector<frmAddContact::Row> frmAddContact::Rows() {
  std::vector<Row> rows = {{Contact::kName, &Text1},    {Contact::kEmail1, &Text3},
                           {Contact::kCompany, &Text5}, {Contact::kEmail2, &Text6},
                           {Contact::kEmail3, &Text4},  {Contact::kUrl, &Text7}};
  for (int i = 0; i < 5; ++i) {
    const auto place = static_cast<std::size_t>(i);
    rows.emplace_back(Contact::kHome + i, &Text2[place]);
    rows.emplace_back(Contact::kHomeAddress + i, &HomeAddress[place]);
    rows.emplace_back(Contact::kWorkAddress + i, &WorkAddress[place]);
  }
  return rows;
}

// What a SIM entry has no room for: boxes and their labels.
std::vector<Control*> frmAddContact::PartsOfPhone() {
  std::vector<Control*> parts = {&Label8, &Label2, &Label9, &Label10, &Label11, &Frame1, &Frame2};
  for (const auto& [field, box] : Rows()) {
    if (box != &Text1 && box != &Text2[0]) parts.push_back(box);
  }
  for (std::size_t i = 0; i < 5; ++i) {
    if (i > 0) parts.push_back(&NumberLabels[i]);
    parts.push_back(&HomeLabels[i]);
    parts.push_back(&WorkLabels[i]);
  }
  return parts;
}

void frmAddContact::OpenNew(char16_t kind) {
  editID_.clear();
  isEdit_ = false;
  editIndex_ = 0;
  Prepare(words::kContactNewTitle, kind, true);
  Fill(nullptr);
  Show(Modality::Modal);
}

void frmAddContact::OpenEdit(const Contact& contact, char16_t kind) {
  editID_ = contact.Identifier();
  isEdit_ = true;
  editIndex_ = 0;
  opened_ = contact;
  openedSerial_ = session_.phoneSerial;
  isOtherConnection_ = false;
  Prepare(words::kContactEditTitle, kind, false);
  Fill(&contact);
  if (kind == PhoneMemories::kPhone) FillStreets();
  Show(Modality::Modal);
}

void frmAddContact::OpenRecord(int editIndex) {
  editID_.clear();
  editIndex_ = editIndex;
  Prepare(words::kMenuEdit, PhoneMemories::kPhone, false);
  LiftWidths();
  for (Control* control : std::initializer_list<Control*>{&lblSaveIn, &Option1, &Option2}) {
    control->visible = false;
  }
  Fill(&lists_.tscContacts->item(editIndex));
  Show(Modality::Modal);
}

void frmAddContact::Prepare(int captionIndex, char16_t kind, bool choice) {
  captionIndex_ = captionIndex;
  for (Control* control : std::initializer_list<Control*>{&lblSaveIn, &Option1, &Option2}) {
    control->visible = true;
    control->enabled = choice;
  }
  ChooseMemory(kind == PhoneMemories::kSim);
}

void frmAddContact::Fill(const Contact* contact) {
  for (const auto& [field, box] : Rows()) {
    const bool has = contact != nullptr && box->enabled;
    box->text = has ? OneLine(contact->GetData(field)) : Text();
  }
}

// After a contact was written the list has its work street in the home street's place, until the
// phone is read again. What went to the phone is what the next change starts from.
void frmAddContact::FillStreets() {
  const PhoneBookRecord* card = memories_.LastWritten(editID_);
  if (card == nullptr) return;
  HomeAddress[0].text = card->HomeStreet.Trimmed();
  WorkAddress[0].text = card->WorkStreet.Trimmed();
}

void frmAddContact::ChooseMemory(bool onSim) {
  Option1.checked = onSim;
  Option2.checked = !onSim;
  for (Control* part : PartsOfPhone()) part->enabled = !onSim;
  SetWidths(onSim);
}

// What is longer than its field is cut on the way to the phone, so no more can be typed.
void frmAddContact::SetWidths(bool onSim) {
  using Sim = SIMPhoneBookRecord;
  using Card = PhoneBookRecord;
  Text1.maximumLength =
      static_cast<int>(onSim ? decltype(Sim::Text)::size() : decltype(Card::Name)::size());
  for (TextBox& box : Text2) box.maximumLength = static_cast<int>(decltype(Card::TelHome)::size());
  if (onSim) Text2[0].maximumLength = static_cast<int>(decltype(Sim::Number)::size());
  for (TextBox* box : {&Text3, &Text6, &Text4}) {
    box->maximumLength = static_cast<int>(decltype(Card::Email2)::size());
  }
  Text5.maximumLength = static_cast<int>(decltype(Card::Org)::size());
  Text7.maximumLength = static_cast<int>(decltype(Card::Url)::size());
  for (auto* address : {&HomeAddress, &WorkAddress}) {
    for (TextBox& box : *address) {
      box.maximumLength = static_cast<int>(decltype(Card::HomeStreet)::size());
    }
  }
}

// The own book has no such fields, and Outlook's texts may be longer.
void frmAddContact::LiftWidths() {
  for (const auto& [field, box] : Rows()) box->maximumLength = 0;
}

void frmAddContact::FormLoad() { ApplyWords(); }

void frmAddContact::ApplyWords() {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  caption = (captionIndex_ == words::kMenuEdit ? Text(u"Tessarin ") : Text()) + word(captionIndex_);
  lblSaveIn.text = word(words::kSaveIn);
  Option1.caption = word(words::kContactOnSim);
  Option2.caption = word(words::kContactInPhone);
  lblNumbers.text = word(words::kPhoneNumbers);
  Command1.caption = word(words::kContactOk);
  Command2.caption = word(words::kContactCancel);
  Frame1.text = word(words::kHome);
  Frame2.text = word(words::kWork);
  std::vector<std::tuple<Label*, int, TextBox*>> labels = {
      {&Label1, words::kContactName, &Text1},     {&Label8, words::kContactEmail, &Text3},
      {&Label2, words::kContactEmail, &Text6},    {&Label9, words::kContactEmail, &Text4},
      {&Label10, words::kContactCompany, &Text5}, {&Label11, words::kUrl, &Text7}};
  for (std::size_t i = 0; i < 5; ++i) {
    labels.emplace_back(&NumberLabels[i], words::kContactNumbers + static_cast<int>(i), &Text2[i]);
    labels.emplace_back(&HomeLabels[i], kAddressWords[i], &HomeAddress[i]);
    labels.emplace_back(&WorkLabels[i], kAddressWords[i], &WorkAddress[i]);
  }
  for (const auto& [label, index, box] : labels) {
    label->text = word(index);
    box->accessibleName = label->text();
  }
  // The parts of both addresses have the same labels; a screen reader says whose they are.
  for (std::size_t i = 0; i < 5; ++i) {
    HomeAddress[i].accessibleName = Frame1.text() + u" " + HomeLabels[i].text();
    WorkAddress[i].accessibleName = Frame2.text() + u" " + WorkLabels[i].text();
  }
}

// The second and the third e-mail change places with every save: lists of earlier sessions count
// on finding them so.
void frmAddContact::SaveRecord() {
  Contact& record = lists_.tscContacts->item(editIndex_);
  for (const auto& [field, box] : Rows()) {
    // A box shows one line only; a text that nobody touched keeps all of its own.
    if (box->text() != OneLine(record.GetData(field))) record.LetData(box->text, field);
  }
  record.LetData(Text4.text, Contact::kEmail2);
  record.LetData(Text6.text, Contact::kEmail3);
  record.LetData(modDate::FormatDateText(session_.clock().Now()), Contact::kModified);
  Unload();
}

void frmAddContact::AddOrEditPhoneBook() {
  if (IsLoaded()) {
    const bool done = !CanBeWritten()   ? Refuse(text::error::kWriteContact)
                      : Option1.checked ? WriteToSim()
                                        : WriteToPhone();
    if (done) Unload();
  }
  session_.SetCommandIdle();
}

// An entry that the phone gave no name for would be added once more. On another phone that name
// stands for somebody else.
bool frmAddContact::CanBeWritten() const {
  return !isEdit_ || (!editID_.empty() && openedSerial_ == session_.phoneSerial);
}

// The SIM may have been changed while its phone was away.
bool frmAddContact::IsStillOnSim() {
  SIMPhoneBookRecord there;
  return memories_.ReadSimEntry(editID_, there) &&
         there.Text.Trimmed() == TrimBlanks(opened_.GetData(Contact::kName)) &&
         there.Number.Trimmed() == TrimBlanks(opened_.GetData(Contact::kHome));
}

bool frmAddContact::Refuse(int errorIndex) {
  session_.ShowError(errorIndex);
  return false;
}

bool frmAddContact::NumberIsRefused(const Text& number) {
  return HoldsForbidden(TrimBlanks(number), Dialling::kKeys);
}

bool frmAddContact::WriteToSim() {
  SIMPhoneBookRecord entry;
  entry.Text = TrimBlanks(Text1.text());
  entry.Number = TrimBlanks(Text2[0].text());
  if (entry.Text.Trimmed().empty()) return Refuse(text::error::kNameMissing);
  if (entry.Number.Trimmed().empty()) return Refuse(text::error::kNumberMissing);
  if (NumberIsRefused(Text2[0].text)) return Refuse(text::error::kPhoneNumber);
  if (!memories_.SelectSim()) return Refuse(text::error::kWriteContact);
  if (isEdit_ && isOtherConnection_ && !IsStillOnSim()) return Refuse(text::error::kWriteContact);
  Text location = editID_;
  if (location.empty()) {
    const int free = memories_.FindFreeSimLocation();
    if (free == 0) return Refuse(text::error::kWriteContact);
    location = ToText(free);
  }
  if (!memories_.WriteSimEntry(location, entry)) return Refuse(text::error::kWriteContact);
  const Text id = u"s" + location;
  // An entry that the list has no record of, on a SIM that was not read, stays without one.
  if (editID_.empty() || lists_.phoneContacts->FindExistingMobileID(id) != -1) {
    Contact& record = Record(editID_.empty() ? Text() : id, id);
    record.LetData(entry.Text.Trimmed(), Contact::kName);
    record.LetData(entry.Number.Trimmed(), Contact::kHome);
  }
  return Finish(id);
}

bool frmAddContact::WriteToPhone() {
  if (TrimBlanks(Text1.text()).empty()) return Refuse(text::error::kNameMissing);
  if (std::any_of(Text2.begin(), Text2.end(),
                  [this](const TextBox& box) { return NumberIsRefused(box.text); })) {
    return Refuse(text::error::kPhoneNumber);
  }
  Contact typed;
  for (const auto& [field, box] : Rows()) typed.LetData(TrimBlanks(box->text()), field);
  const PhoneBookRecord card = RecordOf(typed);
  Text luid = editID_;
  const auto outcome =
      editID_.empty() ? memories_.AddCard(card, luid) : memories_.ReplaceCard(luid, card);
  if (outcome != PhoneMemories::Outcome::Done) return Refuse(text::error::kWriteContact);
  TakeWrittenRecord(card, Record(editID_.empty() ? Text() : u"p" + editID_, u"p" + luid));
  return Finish(u"p" + luid);
}

clsT610Contact& frmAddContact::Record(const Text& oldId, const Text& newId) {
  auto& list = *lists_.phoneContacts;
  int index = oldId.empty() ? -1 : list.FindExistingMobileID(oldId);
  if (index == -1) {
    list.Add(NewContact(session_.clock()));
    index = list.Count();
  }
  Contact& record = list.item(index);
  record.LetData(newId, Contact::kMobileId);
  record.LetData(modDate::FormatDateText(session_.clock().Now()), Contact::kModified);
  return record;
}

bool frmAddContact::Finish(const Text& mobileId) {
  const int said = editID_.empty() ? text::prompt::kContactAdded : text::prompt::kContactChanged;
  written(mobileId);
  host().MessageBox(session_.language().getTSPromptStr(said));
  return true;
}

}  // namespace tessarin
