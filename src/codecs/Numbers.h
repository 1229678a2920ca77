// Whole numbers as the system reads and rounds them.
#pragma once

#include "codecs/Text.h"

namespace tessarin {

// `text` as a whole number: blanks, an optional sign, digits, blanks. Throws ConversionError for
// anything else, and for what a 16-bit number with sign does not hold.
int ReadNumber(TextView text);

// The whole number nearest to `value`, half to even whatever the processor's rounding mode is.
double RoundHalfToEven(double value);

}  // namespace tessarin
