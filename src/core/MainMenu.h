#pragma once

// The main window's menus as data.

#include <vector>

#include "controls/Menu.h"
#include "core/Language.h"

namespace tessarin {

// The menu bar's entries without their captions. Everything that needs a phone starts disabled.
std::vector<MenuEntry> MainMenuEntries();

// Sets every caption of the bar from the interface texts.
void ApplyMenuTexts(Menu& menu, const Language& language);

}  // namespace tessarin
