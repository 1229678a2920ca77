#pragma once

// A list of texts of which at most one is selected, shown open (a list box) or folded away (a
// combo box).

#include <vector>

#include "controls/Control.h"

namespace tessarin {

class ItemList : public Control {
 public:
  using Control::Control;

  void Clear();
  void Add(Text item);
  int Count() const { return static_cast<int>(items_.size()); }
  // Raises BoundsError outside 0 to Count() - 1.
  const Text& Item(int index) const;

  int Selected() const { return selected_; }  // -1 when nothing is
  void Select(int index);                     // BoundsError outside -1 to Count() - 1
  Text SelectedText() const;                  // empty when nothing is

  Signal<> clicked;  // the user selected an item

 private:
  std::vector<Text> items_;
  int selected_ = -1;
};

class ComboBox : public ItemList {
 public:
  using ItemList::ItemList;
};

class ListBox : public ItemList {
 public:
  using ItemList::ItemList;
};

}  // namespace tessarin
