#include "phonesim/Book.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace phonesim {
namespace {

constexpr const char* kLuid = "luid";
constexpr const char* kCounter = "change-counter";
constexpr const char* kLast = "last-number";

const Fields* FindIn(const std::vector<Book::Entry>& entries, const std::string& luid) {
  const auto found = std::find_if(entries.begin(), entries.end(),
                                  [&luid](const Book::Entry& e) { return e.luid == luid; });
  return found == entries.end() ? nullptr : &found->fields;
}

}  // namespace

Book::Book(const std::filesystem::path& file, std::string prefix)
    : file_(file), prefix_(std::move(prefix)) {
  entries_ = Load();
}

const Fields* Book::Find(const std::string& luid) const { return FindIn(entries_, luid); }

std::vector<Book::Entry>::iterator Book::Place(const std::string& luid) {
  return std::find_if(entries_.begin(), entries_.end(),
                      [&luid](const Entry& e) { return e.luid == luid; });
}

std::string Book::Add(Fields fields) {
  std::string luid = NextLuid();
  entries_.push_back({luid, std::move(fields)});
  Touch(luid, false);
  Save();
  return luid;
}

bool Book::Replace(const std::string& luid, Fields fields) {
  const auto place = Place(luid);
  if (place == entries_.end()) return false;
  place->fields = std::move(fields);
  Touch(luid, false);
  Save();
  return true;
}

bool Book::Remove(const std::string& luid) {
  const auto place = Place(luid);
  if (place == entries_.end()) return false;
  Touch(luid, true);
  entries_.erase(place);
  Save();
  return true;
}

void Book::Clear() {
  for (const Entry& entry : entries_) Touch(entry.luid, true);
  entries_.clear();
  Save();
}

void Book::SetChangeCounter(std::uint32_t counter) {
  counter_ = counter;
  changes_.clear();
  Save();
}

void Book::Reread() {
  if (!file_.Changed()) return;
  const std::vector<Entry> before = std::exchange(entries_, {});
  const std::uint32_t counter = counter_;
  entries_ = Load();
  counter_ = std::max(counter, counter_);
  for (const Entry& old : before) {
    if (Find(old.luid) == nullptr) Touch(old.luid, true);
  }
  for (const Entry& entry : entries_) {
    const Fields* old = FindIn(before, entry.luid);
    if (old == nullptr || *old != entry.fields) Touch(entry.luid, false);
  }
  Save();
}

void Book::Fill(const std::vector<Fields>& records) {
  entries_.clear();
  changes_.clear();
  lastNumber_ = 0;
  for (const Fields& fields : records) entries_.push_back({NextLuid(), fields});
  counter_ = static_cast<std::uint32_t>(entries_.size());
  Save();
}

std::string Book::NextLuid() {
  char number[9];
  std::snprintf(number, sizeof number, "%08X", ++lastNumber_);
  return prefix_ + number;
}

void Book::Touch(const std::string& luid, bool removed) {
  changes_.push_back({++counter_, luid, removed});
}

/// A record that was written by hand has no identifier yet.
std::vector<Book::Entry> Book::Load() {
  std::vector<Entry> entries;
  for (Fields& record : file_.Read()) {
    if (record.contains(kCounter)) {
      counter_ = static_cast<std::uint32_t>(FieldNumber(record, kCounter));
      lastNumber_ = std::max(lastNumber_, static_cast<std::uint32_t>(FieldNumber(record, kLast)));
      continue;
    }
    std::string luid = Field(record, kLuid);
    record.erase(kLuid);
    if (luid.empty()) luid = NextLuid();
    entries.push_back({std::move(luid), std::move(record)});
  }
  return entries;
}

void Book::Save() {
  std::vector<Fields> records;
  records.push_back({{kCounter, std::to_string(counter_)}, {kLast, std::to_string(lastNumber_)}});
  for (const Entry& entry : entries_) {
    records.push_back(entry.fields);
    records.back()[kLuid] = entry.luid;
  }
  file_.Write(records);
}

}  // namespace phonesim
