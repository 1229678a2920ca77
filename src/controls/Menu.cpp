#include "controls/Menu.h"

#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

const MenuEntry* Find(const std::vector<MenuEntry>& entries, std::string_view key) {
  for (const auto& entry : entries) {
    if (entry.key == key) return &entry;
    if (const MenuEntry* below = Find(entry.entries, key)) return below;
  }
  return nullptr;
}

}  // namespace

void Menu::Define(std::vector<MenuEntry> defined) {
  entries_ = std::move(defined);
  changed();
}

const MenuEntry& Menu::Entry(std::string_view key) const {
  const MenuEntry* entry = Find(entries_, key);
  if (entry == nullptr) throw BoundsError();
  return *entry;
}

template <class Value>
void Menu::Set(std::string_view key, Value MenuEntry::*member, Value value) {
  auto& entry = const_cast<MenuEntry&>(Entry(key));
  if (entry.*member == value) return;
  entry.*member = std::move(value);
  entryChanged(entry);
}

void Menu::SetCaption(std::string_view key, Text caption) {
  Set(key, &MenuEntry::caption, std::move(caption));
}
void Menu::Enable(std::string_view key, bool enable) { Set(key, &MenuEntry::enabled, enable); }
void Menu::Check(std::string_view key, bool check) { Set(key, &MenuEntry::checked, check); }

}  // namespace tessarin
