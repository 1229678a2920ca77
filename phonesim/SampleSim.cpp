#include "phonesim/SampleSim.h"

#include "phonesim/SampleContacts.h"

namespace phonesim {
namespace {

constexpr int kFull = 20;  ///< locations from 1 on without a gap
constexpr int kNextUsed = 31;
constexpr int kLast = 250;
constexpr std::size_t kEntries = 120;

bool IsUsed(int location) {
  return location <= kFull || (location >= kNextUsed && (location % 2 == 1 || location % 10 == 8));
}

SimBook::Entry EntryOf(const Fields& contact) {
  const std::string& given = Field(contact, "given");
  const std::string& family = Field(contact, "family");
  const std::string blank = given.empty() || family.empty() ? "" : " ";
  const std::string& cell = Field(contact, "cell");
  return {given + blank + family, cell.empty() ? Field(contact, "work") : cell};
}

}  // namespace

SimBook::Entries MakeSampleSim() {
  SimBook::Entries entries = {{3, {"Reed, Ivy (work)", "+447700900777"}},
                              {7, {"Credit", "*100#"}},
                              {kLast, {"Last of all", "+447700900250"}}};
  const std::vector<Fields> contacts = MakeSampleContacts();
  for (int location = 1; entries.size() < kEntries; ++location) {
    if (!IsUsed(location)) continue;
    entries.try_emplace(location, EntryOf(contacts[static_cast<std::size_t>(location - 1)]));
  }
  return entries;
}

}  // namespace phonesim
