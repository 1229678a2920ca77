#include "controls/Steppers.h"

namespace tessarin {

Text DateTimePicker::text() const {
  const Text whole = modDate::FormatDateText(value);  // "dd/mm/yyyy hh:mm:ss"
  return kind_ == Kind::Date ? whole.substr(0, 10) : whole.substr(11, 5);
}

}  // namespace tessarin
