#pragma once

// The controls that are a few values each.

#include "controls/Control.h"

namespace tessarin {

class Label : public Control {
 public:
  using Control::Control;
  Property<Text> text{changed};
};

class TextBox : public Control {
 public:
  using Control::Control;
  Property<Text> text{changed};
  Property<int> maximumLength{changed, 0};  // UTF-16 units; 0 is no limit
  Signal<> edited;                          // the user changed `text`
};

class Button : public Control {
 public:
  using Control::Control;
  Property<Text> caption{changed};
  Property<std::string> image{changed};  // an icon's name, or empty
  Signal<> clicked;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  Property<Text> caption{changed};
  Property<bool> checked{changed, false};
  Signal<> clicked;  // the user changed `checked`
};

// A part of a window that is shown and hidden as a whole, such as a page.
class Panel : public Control {
 public:
  using Control::Control;
  Property<Text> caption{changed};
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<int> maximum{changed, 100};
  Property<int> value{changed, 0};  // 0 to `maximum`
};

class Picture : public Control {
 public:
  using Control::Control;
  Property<std::string> image{changed};  // an icon's name, or empty
  Property<Bytes> content{changed};      // a picture file, shown in place of the icon
  Property<Text> emptyText{changed};     // what stands where there is neither
};

// A moving picture. It gets the name of a film file ("\FindCOM.avi"), and the drawn film of that
// stem is shown.
class Animation : public Control {
 public:
  using Control::Control;
  Property<Text> file{changed};
  Property<bool> playing{changed, false};
};

// Ticks every `interval` milliseconds while enabled. A timer starts disabled; ticks that fall due
// while the thread is busy are not made up for.
class Timer : public Control {
 public:
  Timer(Window& window, std::string name, int milliseconds)
      : Control(window, std::move(name)), interval(changed, milliseconds) {
    enabled = false;
  }
  Property<int> interval;
  Signal<> tick;
};

}  // namespace tessarin
