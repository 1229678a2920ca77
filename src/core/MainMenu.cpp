#include "core/MainMenu.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

struct Row {
  int level;  // 0 is the bar itself
  const char* key;
  int caption;
  const char* shortcut = "";
  const char* image = "";
  bool enabled = true;
};

// Entries follow the one they belong to.
constexpr Row kRows[] = {
    {0, "File", words::kMenuFile},
    {1, "PhoneInfo", words::kMenuPhoneInfo, "Ctrl+I", "phone", false},
    {1, "Exit1", words::kMenuExit, "Ctrl+Q"},
    {0, "Tools", words::kMenuTools},
    {1, "FileExplorer", words::kFileExplorer, "Ctrl+1", "page-file"},
};

void Append(std::vector<MenuEntry>& entries, const Row& row, int depth) {
  if (depth > 0) {
    Append(entries.back().entries, row, depth - 1);
    return;
  }
  MenuEntry entry;
  entry.key = row.key;
  entry.shortcut = row.shortcut;
  entry.image = row.image;
  entry.enabled = row.enabled;
  entries.push_back(std::move(entry));
}

}  // namespace

std::vector<MenuEntry> MainMenuEntries() {
  std::vector<MenuEntry> entries;
  for (const Row& row : kRows) Append(entries, row, row.level);
  return entries;
}

void ApplyMenuTexts(Menu& menu, const Language& language) {
  for (const Row& row : kRows) menu.SetCaption(row.key, language.getTSInterfaceStr(row.caption));
}

}  // namespace tessarin
