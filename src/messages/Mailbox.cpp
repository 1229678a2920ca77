#include "messages/Mailbox.h"

#include <charconv>
#include <utility>

namespace tessarin {

namespace {

struct Store {
  std::string_view word;
  TextView quotedName;
  std::vector<SMSMessage> Mailbox::*records;
};

constexpr Store kStores[] = {{"SIM", u"\"SM\"", &Mailbox::simMessages},
                             {"MEM", u"\"ME\"", &Mailbox::memMessages}};

constexpr int kUnread = 0;

// What is seen of a field: the character of value 0, which no screen shows, is left out.
Text Seen(Text text) {
  std::erase(text, u'\0');
  return text;
}

// "@" of the GSM alphabet arrives as the value 0, and a packed text may end in it: the text ends
// there.
Text PartText(const SMSMessage& record) {
  const Text whole = record.text.Value();
  const auto end = whole.find(u'\0');
  return end == Text::npos ? record.text.Trimmed() : whole.substr(0, end);
}

std::string KeyOf(std::string_view word, std::size_t index) {
  return std::string(word) + std::to_string(index);
}

// The keys of the parts that follow the first, which says how many there are.
std::string FurtherParts(const SMSMessage& head, std::string_view word,
                         const std::vector<SMSMessage>& records) {
  std::string keys;
  int wanted = 2;
  for (std::size_t i = 0; i < records.size() && wanted <= head.partCount; ++i) {
    if (records[i].reference != head.reference || records[i].partNumber != wanted) continue;
    keys += KeyOf(word, i);
    ++wanted;
  }
  return keys;
}

ListRow RowOf(SMSMessage& record, std::string_view word, std::string key) {
  record.sender = record.sender.Trimmed();
  record.text = record.text.Trimmed();
  record.timestamp = record.timestamp.Trimmed();
  ListRow row;
  row.key = std::move(key);
  row.cells = {u"", FromLatin1(word), Seen(record.sender.Trimmed()), Seen(record.text.Trimmed()),
               record.timestamp.Trimmed()};
  row.bold = record.stat == kUnread;
  return row;
}

}  // namespace

void Mailbox::Clear() {
  simMessages.clear();
  memMessages.clear();
}

std::vector<ListRow> Mailbox::RowsOf(int stat) {
  std::vector<ListRow> rows;
  for (const Store& store : kStores) {
    auto& records = this->*store.records;
    for (std::size_t i = 0; i < records.size(); ++i) {
      SMSMessage& record = records[i];
      if (record.stat != stat) continue;
      const bool isPart = record.concatenated == 1;
      if (isPart && record.partNumber != 1) continue;
      std::string key = KeyOf(store.word, i);
      if (isPart) key += FurtherParts(record, store.word, records);
      rows.push_back(RowOf(record, store.word, std::move(key)));
    }
  }
  return rows;
}

ReadMessage Mailbox::Read(const std::string& key) const {
  const auto places = PlacesOf(key);
  if (places.empty()) return {};
  const SMSMessage& first = *places.front().record;
  ReadMessage message = {first.timestamp.Trimmed(), Seen(first.sender.Trimmed()), {}};
  for (const MessagePlace& place : places) message.text += PartText(*place.record);
  return message;
}

std::vector<MessagePlace> Mailbox::PlacesOf(const std::string& key) const {
  std::vector<MessagePlace> places;
  for (const Store& store : kStores) {
    if (!key.starts_with(store.word)) continue;
    const auto& records = this->*store.records;
    // The piece before the first word is empty.
    for (const Text& piece : Split(FromLatin1(key), FromLatin1(store.word))) {
      const std::string digits = ToUtf8(piece);
      std::size_t index = records.size();
      std::from_chars(digits.data(), digits.data() + digits.size(), index);
      if (index < records.size()) places.push_back({&records[index], store.quotedName});
    }
  }
  return places;
}

}  // namespace tessarin
