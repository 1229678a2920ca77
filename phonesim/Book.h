#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "phonesim/Deck.h"

namespace phonesim {

/// The contacts or the calendar of the phone: records, each with a local identifier of twelve
/// characters that no later one gets again, and a counter that grows with every change, be it the
/// client's or somebody's at the phone. Kept in a file, whose first record holds the counters.
class Book {
 public:
  struct Entry {
    std::string luid;
    Fields fields;
  };
  struct Change {
    std::uint32_t counter = 0;
    std::string luid;
    bool removed = false;
  };

  /// `prefix` is the first four characters of every identifier.
  Book(const std::filesystem::path& file, std::string prefix);

  const std::vector<Entry>& Entries() const { return entries_; }

  /// Null when there is no such entry; valid until the next change.
  const Fields* Find(const std::string& luid) const;

  /// The new entry's identifier.
  std::string Add(Fields fields);

  /// False when there is no such entry.
  bool Replace(const std::string& luid, Fields fields);
  bool Remove(const std::string& luid);

  /// Takes all entries out.
  void Clear();

  std::uint32_t ChangeCounter() const { return counter_; }
  void SetChangeCounter(std::uint32_t counter);

  /// The changes since this object was made, oldest first.
  const std::vector<Change>& Changes() const { return changes_; }

  /// Takes over what was changed in the file by hand; every difference counts as a change.
  void Reread();

  /// Replaces everything, as on a new phone.
  void Fill(const std::vector<Fields>& records);

 private:
  std::vector<Entry>::iterator Place(const std::string& luid);
  std::string NextLuid();
  void Touch(const std::string& luid, bool removed);
  std::vector<Entry> Load();
  void Save();

  DeckFile file_;
  std::string prefix_;
  std::vector<Entry> entries_;
  std::vector<Change> changes_;
  std::uint32_t counter_ = 0;
  std::uint32_t lastNumber_ = 0;
};

}  // namespace phonesim
