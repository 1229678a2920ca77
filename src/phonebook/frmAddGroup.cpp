#include "phonebook/frmAddGroup.h"

#include <algorithm>
#include <utility>

#include "codecs/Numbers.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr std::string_view kClosedKey = "Item";
constexpr int kNameField = 3;
constexpr int kFirstNumberField = 4;
constexpr int kNumberFields = 5;
constexpr int kColumnWidth = 140;

// Takes the row out of the list; the one behind it becomes current.
ListRow TakeRow(ListView& list, int index) {
  auto rows = list.rows();
  ListRow taken = std::move(rows[static_cast<std::size_t>(index)]);
  rows.erase(rows.begin() + index);
  list.Fill(std::move(rows));
  list.SetCurrent(std::min(index, list.Count() - 1));
  taken.selected = false;
  return taken;
}

ListRow RowOf(std::string key, Text first, Text second) {
  ListRow row;
  row.key = std::move(key);
  row.cells = {std::move(first), std::move(second)};
  return row;
}

}  // namespace

frmAddGroup::frmAddGroup(WindowHost& host, const Language& language,
                         const clsT610ContactList& contacts, TextBox& recipients)
    : Window(host, "frmAddGroup"),
      language_(language),
      contacts_(contacts),
      recipients_(recipients) {
  ListView1.activated.Always([this] { ShowNumbers(); });
  for (ListView* list : {&ListView1, &ListView2, &ListView3}) {
    list->selectionChanged.Always([this] { EnableButtons(); });
  }
  Command1.clicked.Always([this] { Confirm(); });
  Command2.clicked.Always([this] { Unload(); });
  Command3.clicked.Always([this] { Add(); });
  Command4.clicked.Always([this] { Remove(); });
  Command5.clicked.Always([this] { ShowContacts(); });
}

void frmAddGroup::FormLoad() {
  ApplyTexts();
  FillContacts();
  ListView2.Clear();
  ShowContacts();
}

void frmAddGroup::ApplyTexts() {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  caption = word(words::kGroupTitle);
  const std::pair<Property<Text>*, int> texts[] = {
      {&Command1.caption, words::kGroupOk},
      {&Command2.caption, words::kGroupCancel},
      {&Command3.caption, words::kGroupAdd},
      {&Command4.caption, words::kGroupRemove},
      {&Command5.caption, words::kBack},
      {&ListView1.emptyText, words::kNoContacts},
      {&ListView1.accessibleName, words::kNameGroupContacts},
      {&ListView2.accessibleName, words::kNameGroupChosen},
      {&ListView3.accessibleName, words::kNameContactNumbers}};
  for (const auto& [shown, index] : texts) *shown = word(index);
  const ListColumn number = {word(words::kGroupNumber), kColumnWidth};
  const std::vector<ListColumn> names = {{word(words::kGroupName), kColumnWidth}, number};
  ListView1.columns = names;
  ListView2.columns = names;
  ListView3.columns = {{word(words::kType), kColumnWidth}, number};
}

void frmAddGroup::FillContacts() {
  const Text& hint = language_.getTSInterfaceStr(words::kGroupDetailsHint);
  std::vector<ListRow> rows;
  for (int position = 1; position <= contacts_.Count(); ++position) {
    const clsT610Contact& contact = contacts_.item(position);
    const Text& name = contact.GetData(kNameField);
    if (contact.GetData(clsT610Contact::kMobileId).starts_with(u's')) {
      rows.push_back(RowOf("", name, contact.GetData(kFirstNumberField)));
    } else {
      rows.push_back(RowOf(std::string(kClosedKey) + std::to_string(position), name, hint));
    }
  }
  ListView1.Fill(std::move(rows));
}

bool frmAddGroup::IsClosed(const ListRow& row) const {
  return row.key.starts_with(kClosedKey) &&
         row.cells[1] == language_.getTSInterfaceStr(words::kGroupDetailsHint);
}

bool frmAddGroup::IsChosen(const Text& label, const Text& number) const {
  const std::vector<Text> cells = {contactShown_ + u"(" + label + u")", number};
  return std::any_of(ListView2.rows().begin(), ListView2.rows().end(), [&](const ListRow& row) {
    return row.key == contactShownKey_ && row.cells == cells;
  });
}

void frmAddGroup::ShowNumbers() {
  const int index = ListView1.Current();
  if (index < 0 || !IsClosed(ListView1.Row(index))) return;
  contactShownKey_ = ListView1.Row(index).key;
  const Text position = FromLatin1(contactShownKey_.substr(kClosedKey.size()));
  const clsT610Contact& contact = contacts_.item(ReadNumber(position));
  contactShown_ = contact.GetData(kNameField);
  std::vector<ListRow> rows;
  for (int i = 0; i < kNumberFields; ++i) {
    const Text& number = contact.GetData(kFirstNumberField + i);
    const Text& label = language_.getTSInterfaceStr(words::kHome + i);
    if (number.empty() || IsChosen(label, number)) continue;
    rows.push_back(RowOf(contactShownKey_, label, number));
  }
  ListView3.Fill(std::move(rows));
  ListView1.visible = false;
  ListView3.visible = true;
  Command5.visible = true;
  EnableButtons();
}

void frmAddGroup::ShowContacts() {
  ListView3.visible = false;
  ListView1.visible = true;
  Command5.visible = false;
  EnableButtons();
}

void frmAddGroup::Add() {
  ListView& source = ListView3.visible ? ListView3 : ListView1;
  if (source.Current() < 0) return;
  ListRow row = TakeRow(source, source.Current());
  if (&source == &ListView3) row.cells[0] = contactShown_ + u"(" + row.cells[0] + u")";
  ListView2.Add(std::move(row));
  EnableButtons();
}

// A text that ends in ")" is one of a contact's numbers. While that contact is not showing the row
// just goes: it is there again when the contact is opened.
void frmAddGroup::Remove() {
  if (ListView2.Current() < 0) return;
  ListRow row = TakeRow(ListView2, ListView2.Current());
  const Text& text = row.cells[0];
  if (!text.ends_with(u')')) {
    ListView1.Add(std::move(row));
  } else if (const auto open = text.rfind(u'(');
             ListView3.visible && open != Text::npos && row.key == contactShownKey_) {
    ListView3.Add(RowOf(row.key, text.substr(open + 1, text.size() - open - 2), row.cells[1]));
  }
  EnableButtons();
}

void frmAddGroup::Confirm() {
  Text group = recipients_.text;
  if (!group.empty()) group += u';';
  for (const ListRow& row : ListView2.rows()) {
    group += row.cells[0] + u"<" + row.cells[1] + u">;";
  }
  if (ListView2.Count() > 0) recipients_.text = group.substr(0, group.size() - 1);
  Unload();
}

// A contact that has to be opened first has no number to add yet.
void frmAddGroup::EnableButtons() {
  const ListView& source = ListView3.visible ? ListView3 : ListView1;
  Command3.enabled = source.Current() >= 0 && !IsClosed(source.Row(source.Current()));
  Command4.enabled = ListView2.Current() >= 0;
}

}  // namespace tessarin
