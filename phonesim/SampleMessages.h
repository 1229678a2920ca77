#pragma once

#include <map>
#include <string>

#include "phonesim/Messages.h"

namespace phonesim {

/// Sixty messages in both stores, dated from July of the year before `year` on: of every status, in
/// both alphabets, from numbers and names, with every kind of validity; long ones whose parts lie
/// in order, out of order, or have one missing, and two that share a reference. Locations have
/// gaps.
std::map<std::string, MessageStores::Store> MakeSampleMessages(int year);

}  // namespace phonesim
