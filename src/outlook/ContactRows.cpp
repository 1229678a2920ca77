#include "outlook/ContactRows.h"

#include <charconv>

#include "core/TextIndex.h"
#include "outlook/ContactMapping.h"
#include "phonebook/ContactRecord.h"

namespace tessarin {

namespace {

namespace words = text::interface_;
using P = outlook::ContactProperty;

constexpr int kNoPosition = 65535;
constexpr int kMemoryWidth = 67;  // pixels
constexpr int kNameWidth = 150;
constexpr int kWidth = 110;

// A column's heading (an interface text, a second one behind it, or a literal), and what it shows.
struct ColumnRow {
  int heading;
  int part;
  int field;
  P property;
};
constexpr int kNone = -1;

// Columns 1 to 21; the time of change follows them.
constexpr ColumnRow kColumns[] = {
    {words::kColumnName, kNone, 3, P::FullName},
    {words::kHome, kNone, 4, P::HomeTelephoneNumber},
    {words::kWork, kNone, 5, P::BusinessTelephoneNumber},
    {words::kMobile, kNone, 6, P::MobileTelephoneNumber},
    {words::kFax, kNone, 7, P::BusinessFaxNumber},
    {words::kOther, kNone, 8, P::OtherTelephoneNumber},
    {words::kEmail, kNone, 9, P::Email1Address},
    {words::kEmail, kNone, 11, P::Email2Address},
    {words::kEmail, kNone, 12, P::Email3Address},
    {kNone, kNone, 24, P::WebPage},
    {words::kHome, words::kStreet, 14, P::HomeAddressStreet},
    {words::kHome, words::kCity, 15, P::HomeAddressCity},
    {words::kHome, words::kState, 16, P::HomeAddressState},
    {words::kHome, words::kZip, 17, P::HomeAddressPostalCode},
    {words::kHome, words::kCountry, 18, P::HomeAddressCountry},
    {words::kWork, words::kStreet, 19, P::BusinessAddressStreet},
    {words::kWork, words::kCity, 20, P::BusinessAddressCity},
    {words::kWork, words::kState, 21, P::BusinessAddressState},
    {words::kWork, words::kZip, 22, P::BusinessAddressPostalCode},
    {words::kWork, words::kCountry, 23, P::BusinessAddressCountry},
    {words::kCompany, kNone, 10, P::CompanyName},
};

ListColumn Column(Text heading, int width) {
  ListColumn column;
  column.heading = std::move(heading);
  column.width = width;
  return column;
}

Text MemoryName(const Text& mobileId, const Language& language) {
  const Text first = mobileId.substr(0, 1);
  if (first == u"s") return language.getTSInterfaceStr(words::kSim);
  if (first == u"p") return language.getTSInterfaceStr(words::kPhoneMemory);
  return first;
}

std::string KeyPart(const std::string& key, int number) {
  std::size_t start = 0;
  for (int part = 0; part < number; ++part) {
    start = key.find('-', start);
    if (start == std::string::npos) return {};
    ++start;
  }
  return key.substr(start, key.find('-', start) - start);
}

Text Facts(const std::array<Text, 6>& values, const Text& modified, const Language& language) {
  constexpr int kLabels[] = {words::kHome, words::kWork, words::kMobile, words::kFax,
                             words::kOther};
  Text facts = values[0];
  for (std::size_t i = 0; i < std::size(kLabels); ++i) {
    facts += u"\r\n" + language.getTSInterfaceStr(kLabels[i]) + u": " + values[i + 1];
  }
  return facts + u"\r\n" + language.getTSInterfaceStr(words::kModified) + u": \r\n" + modified;
}

}  // namespace

std::vector<ListColumn> ContactColumns(const Language& language, bool isPhone, bool isOutlook) {
  const auto word = [&language](int index) { return language.getTSInterfaceStr(index); };
  std::vector<ListColumn> columns;
  columns.push_back(Column(isOutlook ? Text() : word(words::kColumnMemory), kMemoryWidth));
  columns[0].visible = isPhone;
  for (const ColumnRow& row : kColumns) {
    Text heading = row.heading == kNone ? Text(u"URL") : word(row.heading);
    if (row.part != kNone) heading += u" " + word(row.part);
    columns.push_back(Column(std::move(heading), row.field == 3 ? kNameWidth : kWidth));
  }
  columns.push_back(Column(word(words::kModified), kNameWidth));
  return columns;
}

std::vector<ListRow> ContactRows(const clsT610ContactList& list, const Language& language) {
  std::vector<ListRow> rows;
  for (int position = 1; position <= list.Count(); ++position) {
    const clsT610Contact& contact = list.item(position);
    const Text& mobileId = contact.GetData(clsT610Contact::kMobileId);
    ListRow row;
    row.key = "Item-" + std::to_string(position) + "-" + ToUtf8(mobileId);
    row.cells.push_back(MemoryName(mobileId, language));
    for (const ColumnRow& column : kColumns) {
      row.cells.push_back(OneLine(contact.GetData(column.field)));
    }
    row.cells.push_back(contact.GetData(clsT610Contact::kModified));
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<ListRow> OutlookRows(const clsOutContactList& list) {
  std::vector<ListRow> rows;
  for (const auto& contact : list.NewEnum()) {
    outlook::ContactItem& item = *contact->CItem;
    const Text modified = ModifiedText(item);
    ListRow row;
    row.key = ToUtf8(item.EntryID());
    row.cells.push_back(item.Get(P::FullName));
    for (const ColumnRow& column : kColumns) row.cells.push_back(item.Get(column.property));
    row.cells.push_back(modified);
    rows.push_back(std::move(row));
  }
  return rows;
}

int PositionInKey(const std::string& key) {
  const std::string digits = KeyPart(key, 1);
  int position = kNoPosition;
  std::from_chars(digits.data(), digits.data() + digits.size(), position);
  return position;
}

Text MobileIdInKey(const std::string& key) { return FromUtf8(KeyPart(key, 2)); }

Text FactsOf(const clsT610Contact& contact, const Language& language) {
  std::array<Text, 6> values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = OneLine(contact.GetData(clsT610Contact::kName + static_cast<int>(i)));
  }
  return Facts(values, contact.GetData(clsT610Contact::kModified), language);
}

Text FactsOf(const clsOutlookContact& contact, const Language& language) {
  outlook::ContactItem& item = *contact.CItem;
  const Text modified = ModifiedText(item);
  std::array<Text, 6> values;
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = item.Get(static_cast<P>(i));
  return Facts(values, modified, language);
}

}  // namespace tessarin
