#include "phonebook/PhonebookPage.h"

#include <algorithm>
#include <set>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "phonebook/ContactDeletion.h"
#include "phonebook/ContactTexts.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kSimNode[] = u"SM";
constexpr char16_t kPhoneNode[] = u"ME";
constexpr int kNameColumn = 0;

struct Selection {
  std::set<std::string> keys;
  std::string current;
};

Selection SelectionOf(const ListView& list) {
  Selection selection;
  for (const ListRow& row : list.rows()) {
    if (row.selected) selection.keys.insert(row.key);
  }
  if (list.Current() >= 0) selection.current = list.Row(list.Current()).key;
  return selection;
}

void Select(ListView& list, const Selection& selection) {
  std::vector<int> selected;
  int current = -1;
  for (int row = 0; row < list.Count(); ++row) {
    const std::string& key = list.Row(row).key;
    if (selection.keys.count(key) != 0) selected.push_back(row);
    if (selection.current == key) current = row;
  }
  list.SelectByUser(selected, current);
  list.changed();
}

}  // namespace

PhonebookPage::PhonebookPage(TessarinMenu& session, const PhoneLink& link,
                             frmSplashTransmission& busyWindow, PhonebookLists& lists)
    : session_(session),
      busyWindow_(busyWindow),
      lists_(lists),
      reader_(session, link, lists),
      memories_(session, link),
      editor_(session, lists, memories_),
      copyDialogs_(session, lists, memories_),
      bars_(session.host(), session.language()) {
  session_.jobs().Set(job::kLoadPhonebook, [this] { RefreshPhonebook(); });
  session_.jobs().Set(job::kDeleteContacts, [this] { DeleteSelectedContacts(); });
  session_.jobs().Set(job::kCopyToSim, [this] { CopyToSim(); });
  auto& workers = busyWindow_.workers();
  workers.Set(worker::kSIMPhonebookLoading, [this] { SIMPhonebookLoading(); });
  workers.Set(worker::kPMPhonebookLoading, [this] { PMPhonebookLoading(); });
  workers.Set(worker::kDeleteContacts, [this] { DeleteContacts(); });
  workers.Set(worker::kCopyPhoneToSIM, [this] { copyDialogs_.CopyPhoneToSIM(); });
  auto& list = session_.lvwPhonePhonebook;
  list.multipleSelection = true;
  session_.tvwPCPhonebook.visible = false;  // contacts are saved through a dialog
  list.selectionChanged.Always([this] { SelectionChanged(); });
  list.activated.Always([this] {
    if (CanDo("Edit")) EditSelectedContact();
  });
  list.columnClicked.Always([this](int column) { ColumnClicked(column); });
  list.contextMenuRequested.Always([this] {
    const bool onSim = Kind() == PhoneMemories::kSim;
    session_.MainMenu.PopUp(onSim ? "mnuClickPhonebook" : "mnuClickPMPhonebook");
  });
  session_.tvwPhonePhonebook.nodeClicked.Always([this] { NodeClicked(); });
  editor_.written.Always([this](const Text& id) { ShowWritten(id); });
  copyDialogs_.copied.Always([this] { ShowAgain(); });
}

char16_t PhonebookPage::Kind() const {
  const Text& key = session_.tvwPhonePhonebook.SelectedKey();
  if (key == kSimNode) return PhoneMemories::kSim;
  return key == kPhoneNode ? PhoneMemories::kPhone : u'\0';
}

bool PhonebookPage::IsLoaded(char16_t kind) const {
  return kind == PhoneMemories::kSim ? SIMLoaded_ : kind == PhoneMemories::kPhone && PMLoaded_;
}

void PhonebookPage::AddNodes() {
  auto& tree = session_.tvwPhonePhonebook;
  const Text selected = tree.SelectedKey();
  tree.Clear();
  tree.Add(u"", kSimNode, session_.language().getTSInterfaceStr(words::kSim), "sim", "sim");
  tree.Add(u"", kPhoneNode, session_.language().getTSInterfaceStr(words::kPhoneMemory), "phone",
           "phone");
  tree.Select(selected);
}

void PhonebookPage::PhoneFound() {
  session_.simMinIndex = session_.simMaxIndex = 0;  // another phone may have another SIM
  memories_.ForgetWritten();
  editor_.PhoneFound();
  SIMLoaded_ = PMLoaded_ = false;
  AddNodes();
  ShowAgain();
}

void PhonebookPage::PhoneLost() {
  SIMLoaded_ = PMLoaded_ = false;
  session_.tvwPhonePhonebook.Clear();
  ShowAgain();
}

void PhonebookPage::ApplyTexts() {
  auto& tree = session_.tvwPhonePhonebook;
  if (tree.Count() > 0) AddNodes();
  ShowAgain();
}

void PhonebookPage::Show() { ShowAgain(); }

void PhonebookPage::ShowAgain() {
  auto& list = session_.lvwPhonePhonebook;
  const bool hasPhone = session_.tvwPhonePhonebook.Count() > 0;
  list.emptyText = session_.language().getTSInterfaceStr(!hasPhone          ? words::kPageNeedsPhone
                                                         : IsLoaded(Kind()) ? words::kNoContacts
                                                                            : words::kChooseMemory);
  if (IsLoaded(Kind())) {
    ShowPhonebookList(Kind());
  } else {
    list.Clear();
    SelectionChanged();
  }
}

bool PhonebookPage::LoadWhileConnecting(bar& bars) {
  if (!Read(PhoneMemories::kSim, bars) || !Read(PhoneMemories::kPhone, bars)) return false;
  session_.tvwPhonePhonebook.Select(kPhoneNode);
  ShowAgain();
  return true;
}

// A memory that was read in this connection is shown at once; Refresh reads it anew.
void PhonebookPage::NodeClicked() {
  ShowAgain();  // the rows of the other memory must not be worked as if they were of this one
  if (!IsLoaded(Kind()) && session_.statusPhase == kPhonePresent) {
    session_.commandState = job::kLoadPhonebook;
  }
}

bool PhonebookPage::CanDo(std::string_view action) const {
  if (session_.statusPhase != kPhonePresent || loading_) return false;
  const auto& list = session_.lvwPhonePhonebook;
  const bool selected = std::any_of(list.rows().begin(), list.rows().end(),
                                    [](const ListRow& row) { return row.selected; });
  if (action == "New") return true;
  if (action == "Refresh") return Kind() != 0;
  if (action == "Save") return list.Count() > 0;
  if (action == "Edit" || action == "Delete") return selected;
  if (action == "CopyToSim") return selected && Kind() == PhoneMemories::kPhone;
  return action == "Sync" && sync_ != nullptr;
}

void PhonebookPage::Do(std::string_view action) {
  if (action == "New") editor_.OpenNew(Kind());
  if (action == "Refresh") session_.commandState = job::kLoadPhonebook;
  if (action == "Save") SaveContacts();
  if (action == "Edit") EditSelectedContact();
  if (action == "Delete") session_.commandState = job::kDeleteContacts;
  if (action == "CopyToSim") OpenCopyDialogs();
  if (action == "Sync") sync_();
}

void PhonebookPage::RefreshPhonebook() {
  const char16_t kind = Kind();
  if (kind != 0) {
    const bool onSim = kind == PhoneMemories::kSim;
    const Text& what =
        session_.language().getTSInterfaceStr(onSim ? words::kWorkSim : words::kWorkPhoneMemory);
    EmptyList(what);
    busyWindow_.PhoneToPc(onSim ? worker::kSIMPhonebookLoading : worker::kPMPhonebookLoading, what);
    busyWindow_.Work();
  }
  session_.SetCommandIdle();
}

void PhonebookPage::EmptyList(const Text& meanwhile) {
  session_.lvwPhonePhonebook.emptyText = meanwhile;
  session_.lvwPhonePhonebook.Clear();
  ShowContactDetails();
  session_.UpdateActions();
}

void PhonebookPage::SetLoading(bool loading) {
  loading_ = loading;
  session_.tvwPhonePhonebook.enabled = !loading;
  session_.UpdateActions();
}

void PhonebookPage::Load(char16_t kind) {
  // The page is of use again however the reading ends.
  struct Loading {
    PhonebookPage& page;
    explicit Loading(PhonebookPage& p) : page(p) { page.SetLoading(true); }
    ~Loading() { page.SetLoading(false); }
  };
  bool read = false;
  {
    const Loading loading(*this);
    bars_.Show(Modality::Modeless);
    bars_.Refresh();
    read = Read(kind, bars_);
    bars_.Unload();
  }
  if (!read) session_.ShowError(text::error::kReadPhonebook);
  ShowAgain();
}

bool PhonebookPage::Read(char16_t kind, bar& bars) {
  const bool onSim = kind == PhoneMemories::kSim;
  const bool read = onSim ? reader_.ReadSim(bars) : reader_.ReadPhone(bars);
  bool& loaded = onSim ? SIMLoaded_ : PMLoaded_;
  if (read && !onSim) memories_.ForgetWritten();
  loaded = loaded || read;
  return read;
}

// What is selected stays so, as long as its memory is shown.
void PhonebookPage::ShowPhonebookList(char16_t kind) {
  auto& list = session_.lvwPhonePhonebook;
  const auto selection = SelectionOf(list);
  auto rows = ContactRows(*lists_.phoneContacts, kind, session_.language());
  list.sortColumn = kNameColumn;
  list.sortAscending = true;
  SortRows(rows, kNameColumn, true);
  list.Fill(std::move(rows));
  Select(list, selection);
}

void PhonebookPage::ShowWritten(const Text& mobileId) {
  ShowAgain();
  const int position = lists_.phoneContacts->FindExistingMobileID(mobileId);
  const std::string key = KeyOf(position);
  const auto& rows = session_.lvwPhonePhonebook.rows();
  if (std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.key == key; })) {
    Select(session_.lvwPhonePhonebook, {{key}, key});
  }
}

// A click on the head of the sorted column turns the order round. What was selected stays so.
void PhonebookPage::ColumnClicked(int column) {
  auto& list = session_.lvwPhonePhonebook;
  const auto selection = SelectionOf(list);
  list.sortAscending = list.sortColumn() != column || !list.sortAscending();
  list.sortColumn = column;
  auto rows = list.rows();
  SortRows(rows, column, list.sortAscending);
  list.Fill(std::move(rows));
  Select(list, selection);
}

void PhonebookPage::SelectionChanged() {
  ShowContactDetails();
  UpdateStatus();
  session_.UpdateActions();
}

void PhonebookPage::ShowContactDetails() {
  const auto& list = session_.lvwPhonePhonebook;
  const int current = list.Current();
  if (current >= 0 && list.Row(current).selected) {
    const auto& contact = lists_.phoneContacts->item(PositionOf(list.Row(current)));
    session_.rtbPhonebook.text = DetailsText(ContactDetails(contact, session_.language()));
  } else {
    session_.rtbPhonebook.text =
        list.Count() == 0 ? Text() : session_.language().getTSInterfaceStr(words::kSelectContact);
  }
}

void PhonebookPage::UpdateStatus() {
  if (session_.panelInFront() != kPhonebookPanel) return;
  const auto& list = session_.lvwPhonePhonebook;
  const auto selected = SelectedPositions().size();
  Text status;
  if (IsLoaded(Kind())) {
    status = session_.language().Filled(words::kStatusContacts, {ToText(list.Count())});
  }
  if (selected > 1) {
    status += u"   " + session_.language().Filled(words::kStatusSelected,
                                                  {ToText(static_cast<long long>(selected))});
  }
  session_.StatusBar1.SetText(panel::kCount, status);
}

std::vector<int> PhonebookPage::SelectedPositions() const {
  std::vector<int> positions;
  for (const ListRow& row : session_.lvwPhonePhonebook.rows()) {
    if (row.selected) positions.push_back(PositionOf(row));
  }
  return positions;
}

void PhonebookPage::EditSelectedContact() {
  const auto& list = session_.lvwPhonePhonebook;
  const int current = list.Current();
  const bool hasCurrent = current >= 0 && list.Row(current).selected;
  const int position = hasCurrent ? PositionOf(list.Row(current)) : SelectedPositions().front();
  editor_.OpenEdit(lists_.phoneContacts->item(position), Kind());
}

void PhonebookPage::DeleteSelectedContacts() {
  auto& list = session_.lvwPhonePhonebook;
  const Text& what = session_.language().getTSInterfaceStr(words::kWorkDeleteContacts);
  const auto first = std::find_if(list.rows().begin(), list.rows().end(),
                                  [](const ListRow& row) { return row.selected; });
  const auto place = static_cast<int>(first - list.rows().begin());
  toDelete_ = SelectedPositions();
  EmptyList(what);  // its rows name positions that are about to move
  allDeleted_ = false;
  busyWindow_.PhoneToPc(worker::kDeleteContacts, what);
  busyWindow_.Work();
  ShowAgain();
  // What follows the first of them stays in view.
  list.SelectByUser({}, std::min(place, list.Count() - 1));
  list.changed();
  if (!allDeleted_) session_.ShowError(text::error::kDeleteContact);
  session_.host().MessageBox(session_.language().getTSPromptStr(text::prompt::kContactsDeleted));
  session_.SetCommandIdle();
}

void PhonebookPage::DeleteContacts() {
  const int total = static_cast<int>(toDelete_.size());
  allDeleted_ = ContactDeletion(lists_, memories_).Delete(toDelete_, [this, total](int done) {
    busyWindow_.Counted(done, total);
  });
}

void PhonebookPage::SaveContacts() {
  auto& host = session_.host();
  const auto& language = session_.language();
  const auto& rows = session_.lvwPhonePhonebook.rows();
  const bool all =
      std::none_of(rows.begin(), rows.end(), [](const auto& row) { return row.selected; });
  rtbPhonebookBuffer_.Clear();
  for (const ListRow& row : rows) {
    if (!all && !row.selected) continue;
    AppendDetails(ContactDetails(lists_.phoneContacts->item(PositionOf(row)), language),
                  rtbPhonebookBuffer_);
  }
  const auto path =
      host.AskSaveFile({language.getTSInterfaceStr(words::kSaveTitle),
                        language.getTSInterfaceStr(words::kFilterRichText), "rtf",
                        session_.phonebookFolder, language.getTSInterfaceStr(words::kPhonebook)});
  if (!path) return;
  const Text name = FromUtf8(path->string());
  try {
    modFile::WriteWholeFile(*path, rtbPhonebookBuffer_.Document());
  } catch (const FileError& fault) {
    host.MessageBox(FillPlaceholders(language.getTSErrStr(text::error::kSaveFile),
                                     {name, FromUtf8(fault.Reason().message())}),
                    MessageKind::Error);
    return;
  }
  host.MessageBox(FillPlaceholders(language.getTSPromptStr(text::prompt::kSavedAs), {name}));
}

// One dialog for each selected contact, from the last row to the first.
void PhonebookPage::OpenCopyDialogs() {
  const auto rows = session_.lvwPhonePhonebook.rows();
  for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
    if (!row->selected) continue;
    const auto& contact = lists_.phoneContacts->item(PositionOf(*row));
    copyDialogs_.Open(row->cells.front(), ContactNumbers(contact, session_.language()));
  }
}

void PhonebookPage::CopyToSim() {
  busyWindow_.PhoneToPc(worker::kCopyPhoneToSIM,
                        session_.language().getTSInterfaceStr(words::kWorkCopyToSim));
  busyWindow_.Work();
  session_.SetCommandIdle();
}

}  // namespace tessarin
