#include "controls/Toolbar.h"

#include <algorithm>
#include <utility>

namespace tessarin {

namespace {

template <class Buttons>
auto ByKey(Buttons& buttons, std::string_view key) {
  return std::find_if(buttons.begin(), buttons.end(),
                      [key](const ToolbarButton& button) { return button.key == key; });
}

}  // namespace

void Toolbar::Fill(std::vector<ToolbarButton> filled) {
  if (filled == buttons_) return;
  buttons_ = std::move(filled);
  changed();
}

void Toolbar::Add(ToolbarButton button) {
  const auto there = ByKey(buttons_, button.key);
  if (there == buttons_.end()) {
    buttons_.push_back(std::move(button));
  } else {
    *there = std::move(button);
  }
  changed();
}

void Toolbar::Enable(std::string_view key, bool enable) {
  const auto button = ByKey(buttons_, key);
  if (button == buttons_.end() || button->enabled == enable) return;
  button->enabled = enable;
  changed();
}

void Toolbar::EnableAll() {
  const bool some = std::any_of(buttons_.begin(), buttons_.end(),
                                [](const ToolbarButton& button) { return !button.enabled; });
  for (auto& button : buttons_) button.enabled = true;
  if (some) changed();
}

void Toolbar::Press(std::string_view key) {
  for (auto& button : buttons_) button.pressed = button.key == key;
  changed();
}

const ToolbarButton* Toolbar::Find(std::string_view key) const {
  const auto button = ByKey(buttons_, key);
  return button == buttons_.end() ? nullptr : &*button;
}

}  // namespace tessarin
