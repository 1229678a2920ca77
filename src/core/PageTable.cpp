#include "core/PageTable.h"

#include <algorithm>

namespace tessarin {

namespace {

namespace words = text::interface_;

struct ActionRow {
  const char* key;
  const char* image;
  int caption;
  const char* shortcut = "";
  int toolTip = -1;  // interface text; the caption where there is none
};

constexpr ActionRow kNew{"New", "new", words::kActionNew, "Ctrl+N"};
constexpr ActionRow kSave{"Save", "save", words::kActionSave, "Ctrl+S"};
constexpr ActionRow kDelete{"Delete", "delete", words::kActionDelete};
constexpr ActionRow kEdit{"Edit", "edit", words::kActionEdit, "F2"};
constexpr ActionRow kRefresh{"Refresh", "refresh", words::kActionRefresh, "F5"};
constexpr ActionRow kSync{"Sync", "sync", words::kActionSync};
constexpr ActionRow kReply{"Reply", "reply", words::kActionReply};
constexpr ActionRow kForward{"Forward", "forward", words::kActionForward};
constexpr ActionRow kMp3{"Mp3", "mp3", words::kActionMp3Button};
constexpr ActionRow kNewMidi{"New", "midi", words::kActionNew, "Ctrl+N", words::kActionMidi};
constexpr ActionRow kNewMp3{"Mp3", "mp3", words::kActionMp3Button, "", words::kActionMp3};
constexpr ActionRow kDeleteJar{"Delete", "delete", words::kActionDelete, "",
                               words::kActionDeleteJar};
constexpr ActionRow kRefreshView{"Refresh", "refresh", words::kActionRefresh, "F5",
                                 words::kActionRefreshView};

const std::vector<ActionRow> kActions[] = {
    {kDeleteJar, kRefreshView},
    {kNew, kSave, kDelete, kRefresh, kReply, kForward},
    {kNew},
    {kNew, kRefresh, kMp3},
    {kNew, kEdit, kRefresh},
    {kRefresh},
    {kNew, kRefresh},
    {kNew, kDelete, kEdit, kRefresh, kSync},
    {kNew, kSave, kDelete, kEdit, kRefresh, kSync},
};
const std::vector<ActionRow> kBothEditors = {kNewMidi, kNewMp3, kRefresh};

constexpr const char16_t* kModelsWithSound[] = {u"Z600", u"Z1010", u"S700", u"K508",
                                                u"K500", u"F500",  u"K700"};

const std::vector<ActionRow>& Rows(int panel, const Text& model) {
  const bool both = panel == kRingtonePanel &&
                    std::any_of(std::begin(kModelsWithSound), std::end(kModelsWithSound),
                                [&](TextView word) { return ContainsIgnoringCase(model, word); });
  return both ? kBothEditors : kActions[panel];
}

}  // namespace

const std::array<PageRow, 9> kPages = {{
    {"File", "FileExplorer", "page-file", words::kFileExplorer, words::kAboutFilePage,
     MediaKind::File, false},
    {"SMS", "SMS_EMS", "page-sms", words::kSmsEms, words::kAboutSmsPage, MediaKind::None, true},
    {"MMS", "MMS", "page-mms", words::kMms, words::kAboutMmsPage, MediaKind::MMS, false},
    {"Ringtone", "Ringtone", "page-ringtone", words::kRingtone, words::kAboutRingtonePage,
     MediaKind::Ringtone, true},
    {"Logo", "Logo", "page-picture", words::kPicture, words::kAboutPicturePage, MediaKind::Logo,
     true},
    {"Photo", "Photos", "page-theme", words::kTheme, words::kAboutThemePage, MediaKind::Photo,
     true},
    {"Movie", "Movie", "page-movie", words::kMovie, words::kAboutMoviePage, MediaKind::Movie, true},
    {"Calendar", "Calendar", "page-calendar", words::kCalendar, words::kAboutCalendarPage,
     MediaKind::None, true},
    {"Phonebook", "Phonebook", "page-phonebook", words::kPhonebook, words::kAboutPhonebookPage,
     MediaKind::None, true},
}};

int PanelOf(std::string_view key) {
  for (std::size_t index = 0; index < kPages.size(); ++index) {
    if (key == kPages[index].key || key == kPages[index].menuKey) return static_cast<int>(index);
  }
  return -1;
}

std::vector<ToolbarButton> PageActions(int panel, const Text& phoneModel,
                                       const Language& language) {
  std::vector<ToolbarButton> buttons;
  for (const ActionRow& row : Rows(panel, phoneModel)) {
    ToolbarButton button;
    button.key = row.key;
    button.caption = language.getTSInterfaceStr(row.caption);
    button.toolTip = row.toolTip < 0 ? Text() : language.getTSInterfaceStr(row.toolTip);
    button.image = row.image;
    button.shortcut = row.shortcut;
    buttons.push_back(std::move(button));
  }
  return buttons;
}

}  // namespace tessarin
