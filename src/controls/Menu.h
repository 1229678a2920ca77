#pragma once

// A menu bar and its context menus: a tree of entries with keys.

#include <vector>

#include "controls/Control.h"

namespace tessarin {

struct MenuEntry {
  std::string key;
  Text caption;
  std::string shortcut;  // in portable form, such as "Ctrl+N", or empty
  std::string image;     // an icon's name, or empty
  bool enabled = true;
  bool visible = true;
  bool checkable = false;
  bool checked = false;
  bool separatorBefore = false;
  std::vector<MenuEntry> entries;  // a submenu when not empty
};

class Menu : public Control {
 public:
  using Control::Control;

  // Top entries are the menus of the bar; one that is not visible is a context menu.
  void Define(std::vector<MenuEntry> entries);
  const std::vector<MenuEntry>& entries() const { return entries_; }

  // Each raises BoundsError for an unknown key.
  const MenuEntry& Entry(std::string_view key) const;
  void SetCaption(std::string_view key, Text caption);
  void Enable(std::string_view key, bool enabled);
  void Check(std::string_view key, bool checked);

  // Shows the menu of that key at the pointer.
  void PopUp(const std::string& key) { popUpRequested(key); }

  Signal<const std::string&> clicked;  // the key of the entry
  // One entry looks different; `changed` tells of the menu as a whole.
  Signal<const MenuEntry&> entryChanged;
  // The menu of that key is about to be shown, and was closed again.
  Signal<const std::string&> opening;
  Signal<const std::string&> closed;
  Signal<const std::string&> popUpRequested;  // for the toolkit

 private:
  template <class Value>
  void Set(std::string_view key, Value MenuEntry::*member, Value value);

  std::vector<MenuEntry> entries_;
};

}  // namespace tessarin
