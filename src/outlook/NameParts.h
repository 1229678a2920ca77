#pragma once

// The components of a vCard's N, and what becomes of them when the full name changes.

#include <array>

#include "codecs/Text.h"

namespace tessarin::outlook {

// Places of the components.
enum NamePart { kFamily, kGiven, kAdditional, kPrefix, kSuffix };
using NameParts = std::array<Text, 5>;

// The components for `fullName`, made of those that were there: one whose words still stand at
// their place stays, so that "Dr." stays a prefix and "van der Berg" a family name. Where none
// stands, the last word is the family name.
NameParts PartsOf(const Text& fullName, const NameParts& before);

}  // namespace tessarin::outlook
