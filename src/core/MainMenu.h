#pragma once

// The main window's menus as data.

#include <vector>

#include "controls/Menu.h"
#include "core/Language.h"

namespace tessarin {

// The menu bar's entries without their captions, the context menus hidden behind it. Everything
// that needs a phone starts disabled.
std::vector<MenuEntry> MainMenuEntries();

// Sets every caption from the interface texts.
void ApplyMenuTexts(Menu& menu, const Language& language);

// What a context menu's entry does on the page in front: one of the keys of `Toolbar1`. Empty for
// any other entry.
std::string_view ActionOfContextEntry(std::string_view key);

}  // namespace tessarin
