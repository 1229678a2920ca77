#pragma once

// The nine pages by name, in the order of the page bar: which key, panel, picture and words each
// has.

#include <array>

#include "core/TextIndex.h"

namespace tessarin {

struct PageRow {
  const char* key;      // in `Toolbar2`
  const char* menuKey;  // in the main menu
  const char* image;
  int caption;  // interface text
  int about;    // interface text that says what the page is for
};

// The position is the page's element of `ToolFrame`.
inline constexpr std::array<PageRow, 9> kPages = {{
    {"File", "FileExplorer", "page-file", text::interface_::kFileExplorer,
     text::interface_::kAboutFilePage},
    {"SMS", "SMS_EMS", "page-sms", text::interface_::kSmsEms, text::interface_::kAboutSmsPage},
    {"MMS", "MMS", "page-mms", text::interface_::kMms, text::interface_::kAboutMmsPage},
    {"Ringtone", "Ringtone", "page-ringtone", text::interface_::kRingtone,
     text::interface_::kAboutRingtonePage},
    {"Logo", "Logo", "page-picture", text::interface_::kPicture,
     text::interface_::kAboutPicturePage},
    {"Photo", "Photos", "page-theme", text::interface_::kTheme, text::interface_::kAboutThemePage},
    {"Movie", "Movie", "page-movie", text::interface_::kMovie, text::interface_::kAboutMoviePage},
    {"Calendar", "Calendar", "page-calendar", text::interface_::kCalendar,
     text::interface_::kAboutCalendarPage},
    {"Phonebook", "Phonebook", "page-phonebook", text::interface_::kPhonebook,
     text::interface_::kAboutPhonebookPage},
}};

inline constexpr int kStartPanel = 9;  // behind the pages' panels

}  // namespace tessarin
