#pragma once

// The controls that step through numbers, dates and times.

#include "codecs/modDate.h"
#include "controls/Control.h"

namespace tessarin {

// Two arrows.
class UpDown : public Control {
 public:
  using Control::Control;
  Signal<int> stepped;  // the user pressed an arrow: 1 up, -1 down
};

// A date, "dd/mm/yyyy", with a month to choose from, or a time of day, "hh:mm".
class DateTimePicker : public Control {
 public:
  enum class Kind { Date, Time };

  DateTimePicker(Window& window, std::string name, Kind kind)
      : Control(window, std::move(name)), kind_(kind) {}

  Kind kind() const { return kind_; }
  // The whole days of a date, or the part of a day of a time, count.
  Property<DateValue> value{changed, 0.0};
  // As it is shown. Throws ConversionError for a value outside the calendar.
  Text text() const;

  Signal<> edited;  // the user changed `value`

 private:
  Kind kind_;
};

}  // namespace tessarin
