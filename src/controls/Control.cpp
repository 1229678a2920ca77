#include "controls/Control.h"

#include <utility>

#include "controls/Window.h"

namespace tessarin {

Control::Control(Window& window, std::string name) : name_(std::move(name)) {
  window.controls_.push_back(this);
}

}  // namespace tessarin
