#pragma once

// A bar of buttons with keys: the page bar and the action bar.

#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct ToolbarButton {
  std::string key;
  Text caption;
  Text toolTip;
  std::string image;     // an icon's name
  std::string shortcut;  // in portable form, such as "F5", or empty
  bool enabled = true;
  bool pressed = false;  // the button of the page in front
  bool operator==(const ToolbarButton&) const = default;
};

class Toolbar : public Control {
 public:
  using Control::Control;

  void Clear() { Fill({}); }
  // Takes the place of all buttons in one step.
  void Fill(std::vector<ToolbarButton> buttons);
  // A key that is there already keeps its place and takes the new button's looks.
  void Add(ToolbarButton button);
  void Enable(std::string_view key, bool enabled);
  void EnableAll();
  // Presses one button and lets go of the others; an unknown key lets go of all.
  void Press(std::string_view key);
  const ToolbarButton* Find(std::string_view key) const;
  const std::vector<ToolbarButton>& buttons() const { return buttons_; }

  Signal<const std::string&> clicked;  // the key of the button

 private:
  std::vector<ToolbarButton> buttons_;
};

}  // namespace tessarin
