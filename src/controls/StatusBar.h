#pragma once

// A row of numbered panels at the foot of a window.

#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct StatusPanel {
  Text text;
  std::string image;  // an icon's name, or empty
  Text accessibleName;
  bool visible = true;
  bool operator==(const StatusPanel&) const = default;
};

class StatusBar : public Control {
 public:
  StatusBar(Window& window, std::string name, int panels)
      : Control(window, std::move(name)), panels_(static_cast<std::size_t>(panels)) {}

  // Panels are numbered from 1. Each raises BoundsError for a number that is not there.
  void SetText(int number, Text text);
  void SetImage(int number, std::string image);
  void SetVisible(int number, bool visible);
  void SetAccessibleName(int number, Text name);
  const StatusPanel& Panel(int number) const;
  const std::vector<StatusPanel>& panels() const { return panels_; }

 private:
  template <class Value>
  void Set(int number, Value StatusPanel::*member, Value value);

  std::vector<StatusPanel> panels_;
};

}  // namespace tessarin
