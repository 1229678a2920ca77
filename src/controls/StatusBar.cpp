#include "controls/StatusBar.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

template <class Value>
void StatusBar::Set(int number, Value StatusPanel::*member, Value value) {
  auto& panel = const_cast<StatusPanel&>(Panel(number));
  if (panel.*member == value) return;
  panel.*member = std::move(value);
  changed();
}

void StatusBar::SetText(int number, Text text) { Set(number, &StatusPanel::text, std::move(text)); }
void StatusBar::SetImage(int number, std::string image) {
  Set(number, &StatusPanel::image, std::move(image));
}
void StatusBar::SetVisible(int number, bool shown) { Set(number, &StatusPanel::visible, shown); }
void StatusBar::SetAccessibleName(int number, Text name) {
  Set(number, &StatusPanel::accessibleName, std::move(name));
}

const StatusPanel& StatusBar::Panel(int number) const {
  if (number < 1 || number > static_cast<int>(panels_.size())) throw BoundsError();
  return panels_[static_cast<std::size_t>(number - 1)];
}

}  // namespace tessarin
