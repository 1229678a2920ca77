// The system's date reader of modDate.h.
#include "codecs/Faults.h"
#include "codecs/Numbers.h"
#include "codecs/modDate.h"

namespace tessarin::modDate {

namespace {

constexpr TextView kShape = u"dd/mm/yyyy hh:mm:ss";
constexpr TextView kWithoutSeconds = kShape.substr(0, 16);
constexpr TextView kWithoutTime = kShape.substr(0, 10);

// A letter of the shape stands for a digit, all else for itself.
bool FitsAt(char16_t unit, char16_t shape) {
  const bool isLetter = shape >= u'a' && shape <= u'z';
  return isLetter ? unit >= u'0' && unit <= u'9' : unit == shape;
}

bool HasShape(TextView text) {
  if (text.size() != kShape.size() && text.size() != kWithoutSeconds.size() &&
      text.size() != kWithoutTime.size()) {
    return false;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!FitsAt(text[i], kShape[i])) return false;
  }
  return true;
}

// The two digits at a place; 0 behind the end.
int TwoDigits(TextView text, std::size_t at) {
  return at < text.size() ? ReadNumber(text.substr(at, 2)) : 0;
}

}  // namespace

DateValue ReadSystemDate(TextView text) {
  const Text date = TrimBlanks(text);
  if (!HasShape(date)) throw ConversionError();
  const DateParts parts = {ReadNumber(TextView(date).substr(6, 4)),
                           TwoDigits(date, 3),
                           TwoDigits(date, 0),
                           TwoDigits(date, 11),
                           TwoDigits(date, 14),
                           TwoDigits(date, 17)};
  const DateValue value = PackDate(parts.year, parts.month, parts.day) +
                          PackTime(parts.hour, parts.minute, parts.second);
  if (Unpack(value) != parts) throw ConversionError();  // something rolled over
  return value;
}

}  // namespace tessarin::modDate
