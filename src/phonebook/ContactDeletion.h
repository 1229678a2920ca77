#pragma once

// Deleting contacts from the phone and from the mobile list, one after the other.

#include <functional>
#include <vector>

#include "phonebook/PhoneMemories.h"
#include "phonebook/PhonebookLists.h"

namespace tessarin {

class ContactDeletion {
 public:
  // Told before each contact how many were dealt with.
  using Progress = std::function<void(int done)>;

  // Both must outlive this object.
  ContactDeletion(PhonebookLists& lists, PhoneMemories& memories)
      : lists_(lists), memories_(memories) {}

  // Deletes the contacts at these positions, of which none is that of a contact twice. The first
  // one that the phone refuses ends it. False when not all were deleted.
  [[nodiscard]] bool Delete(std::vector<int> positions, const Progress& progress);

 private:
  using Outcome = PhoneMemories::Outcome;

  Outcome DeleteOnPhone(const clsT610Contact& contact);
  Outcome DeleteOnSim(TextView location);

  PhonebookLists& lists_;
  PhoneMemories& memories_;
};

}  // namespace tessarin
