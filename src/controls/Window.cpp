#include "controls/Window.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "controls/WindowHost.h"

namespace tessarin {

Window::Window(WindowHost& host, std::string name) : host_(host), name_(std::move(name)) {}

Window::~Window() { assert(!loaded_); }

Control* Window::Find(std::string_view controlName) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->name() == controlName;
  });
  return found == controls_.end() ? nullptr : *found;
}

void Window::Show(Modality modality) { host_.Show(*this, modality); }
void Window::Unload() { host_.Unload(*this); }
void Window::Refresh() { host_.Repaint(*this); }

}  // namespace tessarin
