#include "phonebook/ContactTexts.h"

#include <algorithm>
#include <utility>

#include "core/TextIndex.h"
#include "phonebook/ContactRecord.h"
#include "phonebook/PhoneMemories.h"

namespace tessarin {

namespace {

namespace words = text::interface_;
using Contact = clsT610Contact;

struct Field {
  int number;
  int label;  // interface text
};

constexpr Field kSimFields[] = {{Contact::kName, words::kColumnName},
                                {Contact::kHome, words::kHome}};

constexpr Field kNumbers[] = {{Contact::kHome, words::kHome},
                              {Contact::kWork, words::kWork},
                              {Contact::kMobile, words::kMobile},
                              {Contact::kFax, words::kFax},
                              {Contact::kOther, words::kOther}};
constexpr std::size_t kNumbersInRow = 3;

constexpr Field kPhoneFields[] = {{Contact::kName, words::kColumnName},
                                  {Contact::kHome, words::kHome},
                                  {Contact::kWork, words::kWork},
                                  {Contact::kMobile, words::kMobile},
                                  {Contact::kFax, words::kFax},
                                  {Contact::kOther, words::kOther},
                                  {Contact::kEmail1, words::kEmail},
                                  {Contact::kCompany, words::kCompany},
                                  {Contact::kEmail2, words::kEmail},
                                  {Contact::kEmail3, words::kEmail},
                                  {Contact::kUrl, words::kUrl},
                                  {Contact::kHomeAddress, words::kStreet},
                                  {Contact::kHomeAddress + 1, words::kCity},
                                  {Contact::kHomeAddress + 3, words::kZip},
                                  {Contact::kWorkAddress, words::kStreet},
                                  {Contact::kWorkAddress + 1, words::kCity},
                                  {Contact::kWorkAddress + 3, words::kZip}};

// The label of an address's part has the address's own in front.
Text LabelOf(const Field& field, const Language& language) {
  const Text& label = language.getTSInterfaceStr(field.label);
  if (field.number < Contact::kHomeAddress || field.number == Contact::kUrl) return label;
  const bool isHome = field.number < Contact::kWorkAddress;
  return language.getTSInterfaceStr(isHome ? words::kHome : words::kWork) + u" " + label;
}

bool IsOnSim(const Contact& contact) { return contact.IsIn(PhoneMemories::kSim); }

template <std::size_t N>
std::vector<ContactLine> Lines(const Field (&fields)[N], const Contact& contact,
                               const Language& language, bool withEmpty) {
  std::vector<ContactLine> lines;
  for (const Field& field : fields) {
    const Text value = OneLine(contact.GetData(field.number));
    if (withEmpty || !value.empty()) lines.push_back({LabelOf(field, language), value});
  }
  return lines;
}

// Three blanks, label, colon and number, again and again.
Text NumbersInRow(const Contact& contact, const Language& language) {
  Text numbers;
  for (std::size_t i = 0; i < kNumbersInRow; ++i) {
    const Text number = OneLine(contact.GetData(kNumbers[i].number));
    if (number.empty()) continue;
    numbers += u"   " + language.getTSInterfaceStr(kNumbers[i].label) + u":" + number;
  }
  return numbers;
}

}  // namespace

ListRow ContactRow(const Contact& contact, int position, const Language& language) {
  constexpr std::size_t kDigits = 5;
  ListRow row;
  row.key = KeyOf(position);
  Text digits = ToText(position);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), u'0');
  const bool onSim = IsOnSim(contact);
  row.cells = {OneLine(contact.GetData(Contact::kName)),
               onSim ? OneLine(contact.GetData(Contact::kHome)) : NumbersInRow(contact, language),
               digits};
  row.image = onSim ? "sim" : "phone";
  return row;
}

std::vector<ListRow> ContactRows(const clsT610ContactList& list, char16_t kind,
                                 const Language& language) {
  std::vector<ListRow> rows;
  int position = 0;
  for (const auto& contact : list) {
    ++position;
    if (contact->IsIn(kind)) rows.push_back(ContactRow(*contact, position, language));
  }
  return rows;
}

void SortRows(std::vector<ListRow>& rows, int column, bool ascending) {
  const auto cell = static_cast<std::size_t>(column);
  std::vector<std::pair<Text, std::size_t>> order;
  order.reserve(rows.size());
  for (const ListRow& row : rows) order.emplace_back(ToLower(row.cells[cell]), order.size());
  std::stable_sort(order.begin(), order.end(), [ascending](const auto& a, const auto& b) {
    return ascending ? a.first < b.first : b.first < a.first;
  });
  std::vector<ListRow> sorted;
  sorted.reserve(rows.size());
  for (const auto& [key, place] : order) sorted.push_back(std::move(rows[place]));
  rows = std::move(sorted);
}

std::string KeyOf(int position) { return "Item" + std::to_string(position); }

int PositionOf(const ListRow& row) { return std::stoi(row.key.substr(row.key.find('m') + 1)); }

std::vector<ContactLine> ContactDetails(const Contact& contact, const Language& language) {
  return IsOnSim(contact) ? Lines(kSimFields, contact, language, true)
                          : Lines(kPhoneFields, contact, language, false);
}

std::vector<ContactLine> ContactNumbers(const Contact& contact, const Language& language) {
  return Lines(kNumbers, contact, language, false);
}

Text DetailsText(const std::vector<ContactLine>& details) {
  Text text;
  for (const auto& line : details) text += line.label + u":\t" + line.value + u"\r\n";
  return text;
}

void AppendDetails(const std::vector<ContactLine>& details, RichText& text) {
  RichText::Style plain;
  plain.size = 12;
  RichText::Style bold = plain;
  bold.bold = true;
  for (const auto& line : details) {
    text.Append(line.label + u":\t", bold);
    text.Append(line.value + u"\r\n", plain);
  }
  text.Append(u"\r\n", plain);
}

}  // namespace tessarin
