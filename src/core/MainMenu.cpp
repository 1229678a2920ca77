#include "core/MainMenu.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

enum Level { kBar, kEntry, kSubentry };
constexpr int kNoCaption = -1;  // a context menu's own entry is never seen

struct Row {
  Level level;
  const char* key;
  int caption = kNoCaption;
  const char* shortcut = "";
  const char* image = "";
  bool enabled = true;
  bool separatorBefore = false;
  const char* action = "";  // of a context entry
};

// Entries follow the one they belong to.
constexpr Row kRows[] = {
    {kBar, "File", words::kMenuFile},
    {kEntry, "PhoneInfo", words::kMenuPhoneInfo, "Ctrl+I", "phone", false},
    {kEntry, "Exit1", words::kMenuExit, "Ctrl+Q", "", true, true},
    {kBar, "Edit", words::kMenuEdit},
    {kEntry, "Cut", words::kMenuCut, "Ctrl+X"},
    {kEntry, "Copy", words::kMenuCopy, "Ctrl+C"},
    {kEntry, "Paste", words::kMenuPaste, "Ctrl+V"},
    {kEntry, "Delete", words::kMenuDelete, "Del"},
    {kEntry, "SelectAll", words::kMenuSelectAll, "Ctrl+A", "", true, true},
    {kBar, "Tools", words::kMenuTools},
    {kEntry, "FileExplorer", words::kFileExplorer, "Ctrl+1", "page-file"},
    {kEntry, "SMS_EMS", words::kSmsEms, "Ctrl+2", "page-sms", false},
    {kEntry, "MMS", words::kMms, "Ctrl+3", "page-mms"},
    {kEntry, "Ringtone", words::kRingtone, "Ctrl+4", "page-ringtone", false},
    {kEntry, "Logo", words::kPicture, "Ctrl+5", "page-picture", false},
    {kEntry, "Photos", words::kTheme, "Ctrl+6", "page-theme", false},
    {kEntry, "Movie", words::kMovie, "Ctrl+7", "page-movie", false},
    {kEntry, "Calendar", words::kCalendar, "Ctrl+8", "page-calendar", false},
    {kEntry, "Phonebook", words::kPhonebook, "Ctrl+9", "page-phonebook", false},
    {kEntry, "mnuPhonebookSync", words::kMenuPhonebookSync, "", "sync", false, true},
    {kEntry, "mnuCalendarSync", words::kMenuCalendarSync, "", "sync", false},
    {kBar, "Option1", words::kMenuOption},
    {kEntry, "Language", words::kMenuLanguage},
    {kSubentry, "English", words::kLanguageEnglish},
    {kSubentry, "French", words::kLanguageFrench},
    {kSubentry, "German", words::kLanguageGerman},
    {kSubentry, "Italian", words::kLanguageItalian},
    {kSubentry, "SChinese", words::kLanguageSimplifiedChinese},
    {kSubentry, "TChinese", words::kLanguageTraditionalChinese},
    {kSubentry, "Spanish", words::kLanguageSpanish},
    {kSubentry, "Russian", words::kLanguageRussian},
    {kSubentry, "Romanian", words::kLanguageRomanian},
    {kBar, "Help", words::kMenuHelp},
    {kEntry, "SubHelp", words::kMenuHelpContents, "F1", "help"},
    {kEntry, "About", words::kAbout, "", "info"},

    {kBar, "mnuClickPhone"},
    {kEntry, "delete_Phone_File", words::kDeletePhoneFile, "", "delete", true, false, "Delete"},
    {kEntry, "refresh_Phone_File", words::kRefreshPhoneFile, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickPC"},
    {kEntry, "delete_PC_file", words::kDeleteComputerFiles, "", "delete", true, false,
     "DeleteOnComputer"},
    {kBar, "mnuClickSMS"},
    {kEntry, "delete_SMS", words::kDeleteSms, "", "delete", true, false, "Delete"},
    {kEntry, "refresh_SMS", words::kRefreshSms, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickRingtone"},
    {kEntry, "refresh_Ringtone", words::kRefreshRingtone, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickLogo"},
    {kEntry, "edit_Logo", words::kEditPicture, "", "edit", true, false, "Edit"},
    {kEntry, "refresh_Logo", words::kRefreshPicture, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickPhoto"},
    {kEntry, "refresh_Photo", words::kRefreshTheme, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickMovie"},
    {kEntry, "refresh_Movie", words::kRefreshMovie, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickCalendar"},
    {kEntry, "edit_Calendar", words::kEditEvent, "", "edit", true, false, "Edit"},
    {kEntry, "delete_Calendar", words::kDeleteEvents, "", "delete", true, false, "Delete"},
    {kEntry, "refresh_Calendar", words::kRefreshCalendar, "", "refresh", true, false, "Refresh"},
    {kBar, "mnuClickPhonebook"},
    {kEntry, "edit_Phonebook", words::kEditSimContact, "", "edit", true, false, "Edit"},
    {kEntry, "delete_Phonebook", words::kDeleteSimContact, "", "delete", true, false, "Delete"},
    {kEntry, "refresh_Phonebook", words::kRefreshSimContacts, "", "refresh", true, false,
     "Refresh"},
    {kBar, "mnuClickPMPhonebook"},
    {kEntry, "edit_PMPhonebook", words::kEditPhoneContact, "", "edit", true, false, "Edit"},
    {kEntry, "delete_PMPhonebook", words::kDeletePhoneContact, "", "delete", true, false, "Delete"},
    {kEntry, "copy_Phone_to_SIM", words::kCopyPhoneToSim, "", "sim", true, false, "CopyToSim"},
    {kEntry, "refresh_PMPhonebook", words::kRefreshPhoneContacts, "", "refresh", true, false,
     "Refresh"},
};

MenuEntry EntryOf(const Row& row) {
  MenuEntry entry;
  entry.key = row.key;
  entry.shortcut = row.shortcut;
  entry.image = row.image;
  entry.enabled = row.enabled;
  entry.separatorBefore = row.separatorBefore;
  entry.visible = row.caption != kNoCaption;
  entry.checkable = row.level == kSubentry;
  return entry;
}

}  // namespace

std::vector<MenuEntry> MainMenuEntries() {
  std::vector<MenuEntry> entries;
  for (const Row& row : kRows) {
    std::vector<MenuEntry>* level = &entries;
    for (int depth = kBar; depth < row.level; ++depth) level = &level->back().entries;
    level->push_back(EntryOf(row));
  }
  return entries;
}

void ApplyMenuTexts(Menu& menu, const Language& language) {
  for (const Row& row : kRows) {
    if (row.caption == kNoCaption) continue;
    menu.SetCaption(row.key, language.getTSInterfaceStr(row.caption));
  }
}

std::string_view ActionOfContextEntry(std::string_view key) {
  for (const Row& row : kRows) {
    if (key == row.key) return row.action;
  }
  return {};
}

}  // namespace tessarin
