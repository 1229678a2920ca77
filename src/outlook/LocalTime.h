#pragma once

// Moments and the local time of the computer's zone, summer time included.

#include <ctime>
#include <optional>

#include "codecs/modDate.h"

namespace tessarin::outlook {

// None outside the years 100 to 9999.
std::optional<DateValue> ToLocalTime(std::time_t moment);
// A local time that the clock leaves out when summer time begins is taken as the hour after.
std::time_t ToMoment(DateValue local);

}  // namespace tessarin::outlook
