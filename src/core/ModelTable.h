#pragma once

// From the product code that a phone answers to AT+CGMM to the name that people know it by.

#include "codecs/Text.h"

namespace tessarin {

inline constexpr char16_t kUnknownModel[] = u"Unknown";

// The name of the first row whose code stands anywhere in the identification, case ignored, or
// kUnknownModel. Newer phones are in no row: they tell their name themselves (AT+GMM).
Text ModelName(TextView modelIdentification);

}  // namespace tessarin
