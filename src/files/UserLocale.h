#pragma once

// Dates and numbers as the user's own settings write them (LC_TIME, LC_NUMERIC of the environment),
// whatever language the program speaks.

#include <clocale>
#include <ctime>

#include "codecs/Text.h"

namespace tessarin {

class UserLocale {
 public:
  // A locale that is not installed counts as "C".
  UserLocale();
  ~UserLocale();
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;

  // The local date, a blank, the local time.
  Text DateAndTime(std::time_t time) const;
  // With a mark between the thousands, a comma where the locale has none.
  Text Grouped(unsigned long long number) const;
  // In bytes, or to one decimal in KB or MB, for the eye: "512 B", "1.5 KB".
  Text Amount(unsigned long long bytes) const;

 private:
  locale_t locale_;
};

}  // namespace tessarin
