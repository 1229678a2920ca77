#include "files/UserLocale.h"

#include <langinfo.h>

#include <array>

namespace tessarin {

UserLocale::UserLocale() : locale_(::newlocale(LC_ALL_MASK, "", nullptr)) {
  if (locale_ == nullptr) locale_ = ::newlocale(LC_ALL_MASK, "C", nullptr);
}

UserLocale::~UserLocale() { ::freelocale(locale_); }

Text UserLocale::DateAndTime(std::time_t time) const {
  std::tm local{};
  std::array<char, 128> text{};
  if (::localtime_r(&time, &local) == nullptr) return {};
  const std::size_t length = ::strftime_l(text.data(), text.size(), "%x %X", &local, locale_);
  return FromUtf8({text.data(), length});
}

Text UserLocale::Grouped(unsigned long long number) const {
  constexpr int kGroup = 3;
  const Text own = FromUtf8(::nl_langinfo_l(THOUSEP, locale_));
  const Text mark = own.empty() ? u"," : own;
  const Text digits = FromUtf8(std::to_string(number));
  Text grouped;
  for (std::size_t place = 0; place < digits.size(); ++place) {
    if (place > 0 && (digits.size() - place) % kGroup == 0) grouped += mark;
    grouped += digits[place];
  }
  return grouped;
}

Text UserLocale::Tenths(unsigned long long tenths) const {
  const Text point = FromUtf8(::nl_langinfo_l(RADIXCHAR, locale_));
  return Grouped(tenths / 10) + point + FromUtf8(std::to_string(tenths % 10));
}

}  // namespace tessarin
