#include "phonebook/frmCopyToSIM.h"

#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

}  // namespace

frmCopyToSIM::frmCopyToSIM(TessarinMenu& session, PhonebookLists& lists, PhoneMemories& memories)
    : Window(session.host(), "frmCopyToSIM"),
      session_(session),
      lists_(lists),
      memories_(memories) {
  Command1.clicked.Always([this] {
    if (List1.Selected() < 0) {
      session_.ShowError(text::error::kNoNumberSelected);
    } else {
      session_.commandState = job::kCopyToSim;
    }
  });
  Command2.clicked.Always([this] { Unload(); });
}

void frmCopyToSIM::FormLoad() {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  caption = word(words::kCopyToSimTitle);
  Label1.text = word(words::kCopyToSimChoose);
  List1.accessibleName = word(words::kNameContactNumbers);
  Command1.caption = word(words::kCopyToSimOk);
  Command2.caption = word(words::kCopyToSimCancel);
}

void frmCopyToSIM::SetContact(const Text& name, const std::vector<ContactLine>& numbers) {
  Label2.text = name;
  for (const auto& number : numbers) List1.Add(number.label + u":" + number.value);
}

bool frmCopyToSIM::Write(SIMPhoneBookRecord& record, Text& location) {
  const auto parts = Split(List1.SelectedText(), u":");
  if (parts.size() < 2) return false;
  record.Text = TrimBlanks(Label2.text());
  record.Number = TrimBlanks(parts[1]);
  if (!memories_.SelectSim()) return false;
  const int free = memories_.FindFreeSimLocation();
  location = ToText(free);
  return free != 0 && memories_.WriteSimEntry(location, record);
}

// The new contact keeps the blanks that fill the record's fields. So it does not compare equal to
// what the SIM gives back, and counts as changed until it was read.
void frmCopyToSIM::CopyContactToSIM() {
  SIMPhoneBookRecord record;
  Text location;
  if (!Write(record, location)) {
    session_.ShowError(text::error::kCopyToSim);
    return;
  }
  auto contact = NewContact(session_.clock());
  contact->LetData(u"s" + location, clsT610Contact::kMobileId);
  contact->LetData(record.Text.Value(), clsT610Contact::kName);
  contact->LetData(record.Number.Value(), clsT610Contact::kHome);
  lists_.phoneContacts->Add(std::move(contact));
  copied();
  host().MessageBox(session_.language().getTSPromptStr(text::prompt::kCopiedToSim));
  Unload();
}

}  // namespace tessarin
