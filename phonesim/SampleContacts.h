#pragma once

#include <vector>

#include "phonesim/Deck.h"

namespace phonesim {

/// Two hundred made-up contacts in a dozen languages and seven scripts; some bare, some with
/// everything a contact can have. Numbers are from ranges kept for films and books.
std::vector<Fields> MakeSampleContacts();

}  // namespace phonesim
