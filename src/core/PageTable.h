#pragma once

// The nine pages as data, in the order of the page bar: which key, panel, picture, words and
// action buttons each has.

#include <array>
#include <string>
#include <vector>

#include "controls/Toolbar.h"
#include "core/Language.h"
#include "core/Session.h"
#include "core/TextIndex.h"

namespace tessarin {

struct PageRow {
  const char* key;      // in `Toolbar2`
  const char* menuKey;  // in the main menu
  const char* image;
  int caption;  // interface text
  int about;    // interface text that says what the page is for
  MediaKind kind;
  bool needsPhone;  // its menu entry waits for a phone
};

// The position is the page's element of `ToolFrame`.
extern const std::array<PageRow, 9> kPages;

inline constexpr int kFilePanel = 0;
inline constexpr int kRingtonePanel = 3;
inline constexpr int kCalendarPanel = 7;
inline constexpr int kPhonebookPanel = 8;
inline constexpr int kStartPanel = 9;  // behind the pages' panels

// The element of the page with that key in the page bar or in the menu; -1 for none.
int PanelOf(std::string_view toolbarOrMenuKey);

// The buttons of `Toolbar1` for a page, in order. The ringtone page offers both its editors by name
// for models that play recorded sound.
std::vector<ToolbarButton> PageActions(int panel, const Text& phoneModel, const Language& language);

}  // namespace tessarin
