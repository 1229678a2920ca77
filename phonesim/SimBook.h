#pragma once

#include <map>
#include <string>

#include "phonesim/Deck.h"

namespace phonesim {

/// The phonebook of the SIM: numbered locations, each with one name and one number. Kept in a file.
class SimBook {
 public:
  struct Entry {
    std::string name;  ///< UTF-8
    std::string number;
    bool operator==(const Entry&) const = default;
  };
  using Entries = std::map<int, Entry>;

  explicit SimBook(const std::filesystem::path& file) : file_(file) { Load(); }

  const Entries& All() const { return entries_; }
  void Set(int location, Entry entry);
  void Remove(int location);
  void Fill(Entries entries);

  /// Takes over what was changed in the file by hand.
  void Reread();

 private:
  void Load();
  void Save();

  DeckFile file_;
  Entries entries_;
};

}  // namespace phonesim
