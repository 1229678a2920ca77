#include "outlook/LocalTime.h"

namespace tessarin::outlook {

std::optional<DateValue> ToLocalTime(std::time_t moment) {
  tzset();  // localtime_r alone need not see a changed TZ
  std::tm local{};
  if (localtime_r(&moment, &local) == nullptr) return std::nullopt;
  const int year = local.tm_year + 1900;
  if (year < 100 || year > 9999) return std::nullopt;
  return modDate::PackDate(year, local.tm_mon + 1, local.tm_mday) +
         modDate::PackTime(local.tm_hour, local.tm_min, local.tm_sec);
}

std::time_t ToMoment(DateValue value) {
  const DateParts parts = modDate::Unpack(value);
  std::tm local{};
  local.tm_year = parts.year - 1900;
  local.tm_mon = parts.month - 1;
  local.tm_mday = parts.day;
  local.tm_hour = parts.hour;
  local.tm_min = parts.minute;
  local.tm_sec = parts.second;
  local.tm_isdst = -1;
  return mktime(&local);
}

}  // namespace tessarin::outlook
