#include "phonebook/ContactDeletion.h"

#include <algorithm>

namespace tessarin {

namespace {

// A memory that cannot be had so often in a row will not be had for the other contacts either, and
// a lost phone takes ten seconds to say so.
constexpr int kMostSkips = 2;

}  // namespace

// From the highest position down, so that removing one never moves another that is still to go.
bool ContactDeletion::Delete(std::vector<int> positions, const Progress& progress) {
  std::sort(positions.rbegin(), positions.rend());
  auto& list = *lists_.phoneContacts;
  int deleted = 0, done = 0, skips = 0;
  for (const int position : positions) {
    progress(done++);
    const Outcome outcome = DeleteOnPhone(list.item(position));
    skips = outcome == Outcome::NoSession ? skips + 1 : 0;
    if (outcome == Outcome::Refused || skips == kMostSkips) break;
    if (outcome != Outcome::Done) continue;
    list.Remove(position);
    ++deleted;
  }
  return deleted == static_cast<int>(positions.size());
}

ContactDeletion::Outcome ContactDeletion::DeleteOnPhone(const clsT610Contact& contact) {
  const Text id = contact.Identifier();
  return contact.IsIn(PhoneMemories::kSim) ? DeleteOnSim(id) : memories_.DeleteCard(id);
}

ContactDeletion::Outcome ContactDeletion::DeleteOnSim(TextView location) {
  if (!memories_.SelectSim()) return Outcome::NoSession;
  return memories_.DeleteSimEntry(location) ? Outcome::Done : Outcome::Refused;
}

}  // namespace tessarin
