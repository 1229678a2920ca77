// The main window's frame: pages, bars and menus, and what the phone allows of them.

#include <utility>

#include "tests/core/FrameBench.h"

namespace tessarin {
namespace {

class FrameTest : public FrameBench {
 protected:
  // The action bar: keys in order, each with its tool tip where it has one.
  std::string Actions() const {
    std::string actions;
    for (const ToolbarButton& button : session.Toolbar1.buttons()) {
      actions += (actions.empty() ? "" : "|") + button.key;
      if (!button.toolTip.empty()) actions += "=" + ToUtf8(button.toolTip);
    }
    return actions;
  }
  bool CanSync(const char* menuKey) const { return session.MainMenu.Entry(menuKey).enabled; }
  void ExpectOnlyPanel(int panel) const {
    for (int index = 0; index <= kStartPanel; ++index) {
      EXPECT_EQ(session.ToolFrame[static_cast<std::size_t>(index)]->visible(), index == panel)
          << index;
    }
    for (const ToolbarButton& button : session.Toolbar2.buttons()) {
      EXPECT_EQ(button.pressed, PanelOf(button.key) == panel) << button.key;
    }
  }
  void ExpectPhoneParts(bool enabled, const Names& pageBar) const {
    for (const auto& name : In("tvwPhoneDir lvwPhoneFile lvwPhoneSMS lvwPhoneRingtone lvwPhoneLogo "
                               "lvwPhonePhoto lvwPhoneMovie lvwPhonePhonebook")) {
      EXPECT_EQ(session.Find(name)->enabled(), enabled) << name;
    }
    for (const auto& key : In("PhoneInfo SMS_EMS Ringtone Logo Photos Movie Calendar Phonebook")) {
      EXPECT_EQ(session.MainMenu.Entry(key).enabled, enabled) << key;
    }
    for (const auto& key : In("FileExplorer MMS Exit1 Language SubHelp About")) {
      EXPECT_TRUE(session.MainMenu.Entry(key).enabled) << key;
    }
    EXPECT_EQ(KeysOf(session.Toolbar2.buttons()), pageBar);
    for (const ToolbarButton& button : session.Toolbar2.buttons()) {
      const bool always = button.key == "File" || button.key == "MMS";
      EXPECT_EQ(button.enabled, enabled || always) << button.key;
    }
    EXPECT_FALSE(CanSync("mnuPhonebookSync"));
    EXPECT_FALSE(CanSync("mnuCalendarSync"));
  }

  inline static const Names kWholeBar =
      In("File SMS MMS Ringtone Logo Photo Movie Calendar Phonebook");
};

TEST_F(FrameTest, EachPageByBarAndByMenu) {
  const struct {
    const char* menuKey;
    int title;
    MediaKind kind;
    const char* actions;
  } rows[] = {
      {"FileExplorer", 63, MediaKind::File, "Delete=Delete JAR Files|Refresh=Refresh View"},
      {"SMS_EMS", 64, MediaKind::None, "New|Save|Delete|Refresh|Reply|Forward"},
      {"MMS", 65, MediaKind::MMS, "New"},
      {"Ringtone", 66, MediaKind::Ringtone, "New|Refresh|Mp3"},
      {"Logo", 69, MediaKind::Logo, "New|Edit|Refresh"},
      {"Photos", 70, MediaKind::Photo, "Refresh"},
      {"Movie", 71, MediaKind::Movie, "New|Refresh"},
      {"Calendar", 72, MediaKind::None, "New|Delete|Edit|Refresh|Sync"},
      {"Phonebook", 73, MediaKind::None, "New|Save|Delete|Edit|Refresh|Sync"},
  };
  StartAndConnect();
  for (int panel = 0; const auto& row : rows) {
    SCOPED_TRACE(row.menuKey);
    AnyPage& page = PageAt(panel);
    const auto bar = kWholeBar[static_cast<std::size_t>(panel)];
    for (const bool byMenu : {false, true}) {
      session.ShowStartPanel();
      ExpectOnlyPanel(kStartPanel);
      EXPECT_EQ(session.caption(), u"Tessarin");
      EXPECT_EQ(Actions(), "");
      host.RunEvent(
          [&] { byMenu ? session.MainMenu.clicked(row.menuKey) : session.Toolbar2.clicked(bar); });
      ExpectOnlyPanel(panel);
      EXPECT_EQ(Actions(), row.actions);
      EXPECT_EQ(session.caption(), u"Tessarin - " + Word(row.title));
      EXPECT_EQ(session.currentPage, row.kind);
      EXPECT_EQ(page.shows, byMenu ? 2 : 1);
      EXPECT_EQ(CanSync("mnuPhonebookSync"), panel == kPhonebookPanel);
      EXPECT_EQ(CanSync("mnuCalendarSync"), panel == kCalendarPanel);
    }
    const Names keys = KeysOf(session.Toolbar1.buttons());
    for (const auto& key : keys) host.RunEvent([&] { session.Toolbar1.clicked(key); });
    EXPECT_EQ(page.done, keys);
    ++panel;
  }
  for (const auto& [panel, key] :
       {std::pair{kPhonebookPanel, "mnuPhonebookSync"}, {kCalendarPanel, "mnuCalendarSync"}}) {
    session.ShowPage(panel);
    PageAt(panel).done.clear();
    Choose(key);
    EXPECT_EQ(PageAt(panel).done, Names{"Sync"});
  }
}

TEST_F(FrameTest, TheRingtoneBarOffersBothEditorsByNameOnSomeModels) {
  Start();
  const auto bar = [this](const char16_t* model) {
    session.phoneModel = model;
    session.ShowPage(kRingtonePanel);
    return Actions();
  };
  for (const char16_t* model : {u"Z600", u"my Z1010 phone", u"S700i", u"xK508", u"k500I", u"f500",
                                u"K700c", u"z600", u"T610 K700"}) {
    EXPECT_EQ(bar(model), "New=MIDI|Mp3=MP3|Refresh") << ToUtf8(model);
  }
  for (const char16_t* model : {u"T610", u"Z60", u"K 700", u"K600", u"Z101", u"Unknown", u""}) {
    EXPECT_EQ(bar(model), "New|Refresh|Mp3") << ToUtf8(model);
  }
}

TEST_F(FrameTest, EnablesWhatThePhoneAllows) {
  Start();
  ExpectPhoneParts(false, {"File"});
  Speak(4);
  ExpectPhoneParts(false, {"File"});
  session.ShowPage(kPhonebookPanel);
  ExpectPhoneParts(false, {"File"});
  Connect();
  ExpectPhoneParts(true, kWholeBar);
  Speak(3);
  ExpectPhoneParts(true, kWholeBar);
  for (const int panel : {kPhonebookPanel, kCalendarPanel}) {
    session.ShowPage(panel);
    LosePhone();
    ExpectPhoneParts(false, kWholeBar);
    ExpectOnlyPanel(kStartPanel);
    EXPECT_EQ(Actions(), "");
    Speak(7);
    ExpectPhoneParts(false, kWholeBar);
    ExpectOnlyPanel(kStartPanel);
    Connect();
    ExpectPhoneParts(true, kWholeBar);
  }
}

TEST_F(FrameTest, ContextMenusPopUpAndDoWhatTheBarDoes) {
  // The menu, who pops it up, its entries in short, and what they do on their page.
  const struct {
    int panel;
    const char* menu;
    const char* controls;
    const char* entries;
    const char* actions;
  } rows[] = {
      {0, "Phone", "lvwPhoneFile tvwPhoneDir", "delete_ refresh_", "Delete Refresh"},
      {0, "PC", "lvwPCFile", "delete_", "DeleteOnComputer"},
      {1, "SMS", "lvwPhoneSMS", "delete_ refresh_", "Delete Refresh"},
      {3, "Ringtone", "lvwPhoneRingtone", "refresh_", "Refresh"},
      {4, "Logo", "lvwPhoneLogo", "edit_ refresh_", "Edit Refresh"},
      {5, "Photo", "lvwPhonePhoto", "refresh_", "Refresh"},
      {6, "Movie", "lvwPhoneMovie", "refresh_", "Refresh"},
      {7, "Calendar", "MSHFlexGrid1", "edit_ delete_ refresh_", "Edit Delete Refresh"},
      {8, "Phonebook", "", "edit_ delete_ refresh_", "Edit Delete Refresh"},
      {8, "PMPhonebook", "", "edit_ delete_ copy_ refresh_", "Edit Delete CopyToSim Refresh"},
  };
  StartAndConnect();
  Names popped;
  session.MainMenu.popUpRequested.Always([&](const std::string& key) { popped.push_back(key); });
  for (const auto& row : rows) {
    SCOPED_TRACE(row.menu);
    const std::string menuKey = std::string("mnuClick") + row.menu;
    session.ShowPage(row.panel);
    PageAt(row.panel).done.clear();
    const Names controls = In(row.controls);
    for (const auto& control : controls) session.Find(control)->contextMenuRequested();
    EXPECT_EQ(std::exchange(popped, {}), Names(controls.size(), menuKey));
    EXPECT_FALSE(session.MainMenu.Entry(menuKey).visible);
    Names starts;
    for (const auto& key : KeysOf(session.MainMenu.Entry(menuKey).entries)) {
      starts.push_back(key.substr(0, key.find('_') + 1));
      Choose(key);
    }
    EXPECT_EQ(starts, In(row.entries));
    EXPECT_EQ(PageAt(row.panel).done, In(row.actions));
  }
}

// Delete means the page's records only where they have the focus: a key that is pressed in the tree
// beside them, or on a button, must not cost the user what is selected.
TEST_F(FrameTest, EditActsReachTheControlInFocus) {
  Start();
  const char* keys[] = {"Cut", "Copy", "Paste", "Delete", "SelectAll"};
  const std::vector<EditAct> acts = {EditAct::Cut, EditAct::Copy, EditAct::Paste, EditAct::Delete,
                                     EditAct::SelectAll};
  AnyPage& page = PageAt(kPhonebookPanel);
  page.records = &session.lvwPhonePhonebook;
  for (const int panel : {kStartPanel, kFilePanel, kPhonebookPanel}) {
    panel == kStartPanel ? session.ShowStartPanel() : session.ShowPage(panel);
    for (const Control* focus : std::initializer_list<const Control*>{
             nullptr, &session.tvwPhonePhonebook, &session.lvwPhonePhonebook}) {
      for (const bool text : {true, false}) {
        SCOPED_TRACE(std::to_string(panel) + (focus == nullptr ? "" : focus->name()));
        const bool records = panel == kPhonebookPanel && focus == page.records;
        page.done.clear();
        host.edits.clear();
        host.focus = focus;
        host.textInFocus = text;
        for (const bool open : {true, false}) {
          (open ? session.MainMenu.opening : session.MainMenu.closed)("Edit");
          for (const char* key : keys) {
            const bool can = !open || text || (records && key == std::string("Delete"));
            EXPECT_EQ(session.MainMenu.Entry(key).enabled, can) << key;
          }
        }
        for (const char* key : keys) Choose(key);
        auto expected = acts;
        if (records) std::erase(expected, EditAct::Delete);
        EXPECT_EQ(host.edits, expected);
        EXPECT_EQ(page.done, records ? Names{"Delete"} : Names());
      }
    }
  }
}

TEST_F(FrameTest, NoPageOutsideTheTableIsShown) {
  Start();
  session.ShowPage(kPhonebookPanel);
  for (const int panel : {-1, kStartPanel, 100}) {
    session.ShowPage(panel);
    EXPECT_EQ(session.panelInFront(), kPhonebookPanel);
  }
}

// What a page can do may depend on what its opening finds.
TEST_F(FrameTest, ActionsAreAskedForOnceThePageIsOpen) {
  Start();
  AnyPage& page = PageAt(kPhonebookPanel);
  page.canAfterShowing = true;
  session.ShowPage(kPhonebookPanel);
  for (const ToolbarButton& button : session.Toolbar1.buttons()) {
    EXPECT_TRUE(button.enabled) << button.key;
  }
}

}  // namespace
}  // namespace tessarin
