#include "controls/ItemList.h"

#include "codecs/Faults.h"

namespace tessarin {

void ItemList::Clear() {
  items_.clear();
  selected_ = -1;
  changed();
}

void ItemList::Add(Text item) {
  items_.push_back(std::move(item));
  changed();
}

const Text& ItemList::Item(int index) const {
  if (index < 0 || index >= Count()) throw BoundsError();
  return items_[static_cast<std::size_t>(index)];
}

void ItemList::Select(int index) {
  if (index < -1 || index >= Count()) throw BoundsError();
  if (index == selected_) return;
  selected_ = index;
  changed();
}

Text ItemList::SelectedText() const { return selected_ < 0 ? Text() : Item(selected_); }

}  // namespace tessarin
