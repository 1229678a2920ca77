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
  // So many tenths, with one decimal: "1.5" for 15.
  Text Tenths(unsigned long long tenths) const;

 private:
  locale_t locale_;
};

}  // namespace tessarin
