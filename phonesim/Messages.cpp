#include "phonesim/Messages.h"

#include <utility>

namespace phonesim {

const MessageStores::Store& MessageStores::Of(const std::string& name) const {
  static const Store kEmpty;
  const auto found = stores_.find(name);
  return found == stores_.end() ? kEmpty : found->second;
}

void MessageStores::Set(const std::string& name, int location, StoredMessage message) {
  stores_[name][location] = std::move(message);
  Save();
}

int MessageStores::Add(const std::string& name, StoredMessage message) {
  int location = 1;
  while (stores_[name].contains(location)) ++location;
  Set(name, location, std::move(message));
  return location;
}

bool MessageStores::Remove(const std::string& name, int location) {
  if (stores_[name].erase(location) == 0) return false;
  Save();
  return true;
}

void MessageStores::Fill(std::map<std::string, Store> stores) {
  stores_ = std::move(stores);
  Save();
}

void MessageStores::Reread() {
  if (file_.Changed()) Load();
}

void MessageStores::Load() {
  stores_.clear();
  for (const Fields& record : file_.Read()) {
    stores_[Field(record, "store")][FieldNumber(record, "location")] = {
        FieldNumber(record, "status"), Field(record, "pdu")};
  }
}

void MessageStores::Save() {
  std::vector<Fields> records;
  for (const auto& [name, store] : stores_) {
    for (const auto& [location, message] : store) {
      records.push_back({{"store", name},
                         {"location", std::to_string(location)},
                         {"status", std::to_string(message.status)},
                         {"pdu", message.pdu}});
    }
  }
  file_.Write(records);
}

/// A part that comes a second time belongs to a new message: the one before was given up.
void SentMessages::Take(const Submitted& part) {
  if (!part.part) {
    return Finish({part.recipient, SmsText(part.coding, part.units), part.coding, 1});
  }
  const Key key{part.recipient, part.part->reference, part.part->total};
  auto& parts = waiting_[key];
  if (parts.contains(part.part->number)) parts.clear();
  parts[part.part->number] = part;
  if (parts.size() < static_cast<std::size_t>(part.part->total)) return;
  Bytes units;
  for (const auto& [number, one] : parts) Append(units, one.units);
  Finish({part.recipient, SmsText(part.coding, units), part.coding, parts.size()});
  waiting_.erase(key);
}

std::size_t SentMessages::Waiting() const {
  std::size_t count = 0;
  for (const auto& [key, parts] : waiting_) count += parts.size();
  return count;
}

void SentMessages::Clear() {
  whole_.clear();
  waiting_.clear();
}

void SentMessages::Finish(SentMessage message) {
  whole_.push_back(std::move(message));
  if (listener_) listener_(whole_.back());
}

}  // namespace phonesim
