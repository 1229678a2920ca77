#pragma once

// What every control has: a name, a place in its window, and a signal of change.

#include <string>

#include "codecs/Text.h"
#include "controls/Property.h"

namespace tessarin {

class Window;

// State plus a `changed` signal. Logic sets the state; what the user does comes in as further
// signals of the single controls. A control belongs to its window for its whole life and is not
// copied or moved.
class Control {
 public:
  // `name` is the control's own name and becomes the widget's object name.
  Control(Window& window, std::string name);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }

  Signal<> changed;
  Property<bool> enabled{changed, true};
  Property<bool> visible{changed, true};
  Property<Text> toolTip{changed};
  // What a screen reader says for a control that shows no words of its own.
  Property<Text> accessibleName{changed};

  Signal<> contextMenuRequested;  // the user asked for the control's menu

  // Gives the control the keyboard's focus, if it can be seen and is enabled.
  void SetFocus() { focusWanted(); }
  Signal<> focusWanted;  // for the toolkit

 private:
  std::string name_;
};

}  // namespace tessarin
