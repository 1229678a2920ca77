// The computer's clock of modDate.h.
#include <algorithm>
#include <ctime>

#include "codecs/modDate.h"

namespace tessarin {

namespace {

std::tm LocalTime(std::time_t moment) {
  tzset();  // localtime_r alone need not see a changed TZ
  std::tm local{};
  localtime_r(&moment, &local);
  return local;
}

}  // namespace

DateValue SystemClock::Now() const {
  const std::tm now = LocalTime(std::time(nullptr));
  return modDate::PackDate(now.tm_year + 1900, now.tm_mon + 1, now.tm_mday) +
         modDate::PackTime(now.tm_hour, now.tm_min, now.tm_sec);
}

// Summer time only ever puts a clock forward, so the least offset of a year from now is the one
// without it. The zone files' own mark of summer time does not serve: for Ireland they mark winter.
int SystemClock::StandardBiasMinutes() const {
  constexpr auto kHalfMonth = std::time_t{15} * 86400;
  const std::time_t now = std::time(nullptr);
  long least = LocalTime(now).tm_gmtoff;
  for (int i = 1; i <= 24; ++i) {
    least = std::min(least, LocalTime(now + i * kHalfMonth).tm_gmtoff);
  }
  return static_cast<int>(-least / 60);
}

}  // namespace tessarin
