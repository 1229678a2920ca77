#pragma once

#include "phonesim/SimBook.h"

namespace phonesim {

/// A hundred and twenty entries in the locations 1 to 250: the first twenty without a gap, the next
/// ten free, then some here and there, and the last location.
SimBook::Entries MakeSampleSim();

}  // namespace phonesim
