#include "codecs/Numbers.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

}  // namespace

int ReadNumber(TextView text) {
  const Text trimmed = TrimBlanks(text);
  const bool isNegative = trimmed.starts_with(u'-');
  const std::size_t first = isNegative || trimmed.starts_with(u'+') ? 1 : 0;
  if (first == trimmed.size()) throw ConversionError();
  const int limit = std::numeric_limits<std::int16_t>::max() + (isNegative ? 1 : 0);
  int value = 0;
  for (const char16_t unit : TextView(trimmed).substr(first)) {
    if (!IsDigit(unit)) throw ConversionError();
    value = value * 10 + (unit - u'0');
    if (value > limit) throw ConversionError();
  }
  return isNegative ? -value : value;
}

double RoundHalfToEven(double value) { return value - std::remainder(value, 1.0); }

}  // namespace tessarin
