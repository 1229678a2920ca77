#include "phonesim/SimBook.h"

#include <utility>

namespace phonesim {

void SimBook::Set(int location, Entry entry) {
  entries_[location] = std::move(entry);
  Save();
}

void SimBook::Remove(int location) {
  if (entries_.erase(location) > 0) Save();
}

void SimBook::Fill(Entries entries) {
  entries_ = std::move(entries);
  Save();
}

void SimBook::Reread() {
  if (file_.Changed()) Load();
}

void SimBook::Load() {
  entries_.clear();
  for (const Fields& record : file_.Read()) {
    entries_[FieldNumber(record, "location")] = {Field(record, "name"), Field(record, "number")};
  }
}

void SimBook::Save() {
  std::vector<Fields> records;
  for (const auto& [location, entry] : entries_) {
    records.push_back(
        {{"location", std::to_string(location)}, {"name", entry.name}, {"number", entry.number}});
  }
  file_.Write(records);
}

}  // namespace phonesim
