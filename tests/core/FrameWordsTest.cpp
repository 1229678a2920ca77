// Every word of the main window and of the search, in nine languages.

#include <set>

#include "tests/core/FrameBench.h"

namespace tessarin {
namespace {

using Words = std::map<std::string, Text>;  // every word of a window, by its place

void AddMenu(const std::vector<MenuEntry>& entries, Words& words) {
  for (const MenuEntry& entry : entries) {
    words[entry.key] = entry.caption;
    AddMenu(entry.entries, words);
  }
}

void AddOwnWords(const Control& control, Words& words) {
  const std::string& name = control.name();
  if (auto* label = dynamic_cast<const Label*>(&control)) words[name] = label->text;
  if (auto* button = dynamic_cast<const Button*>(&control)) words[name] = button->caption;
  if (auto* menu = dynamic_cast<const Menu*>(&control)) AddMenu(menu->entries(), words);
  if (auto* list = dynamic_cast<const ListView*>(&control)) {
    words[name + ".empty"] = list->emptyText;
    for (std::size_t i = 0; i < list->columns->size(); ++i) {
      words[name + "." + std::to_string(i)] = list->columns()[i].heading;
    }
  }
  if (auto* bar = dynamic_cast<const Toolbar*>(&control)) {
    for (const ToolbarButton& button : bar->buttons()) {
      words[name + "." + button.key] = button.caption;
      words[name + "." + button.key + ".tip"] = button.toolTip;
    }
  }
  if (auto* bar = dynamic_cast<const StatusBar*>(&control)) {
    for (std::size_t i = 0; i < bar->panels().size(); ++i) {
      words[name + "." + std::to_string(i + 1)] = bar->panels()[i].text;
      words[name + "." + std::to_string(i + 1) + ".name"] = bar->panels()[i].accessibleName;
    }
  }
}

Words WordsOf(const Window& window) {
  Words words{{"caption", window.caption}};
  for (const Control* control : window.controls()) {
    words[control->name() + ".name"] = control->accessibleName;
    words[control->name() + ".tip"] = control->toolTip;
    AddOwnWords(*control, words);
  }
  std::erase_if(words, [](const auto& word) { return word.second.empty(); });
  return words;
}

// A language file in which each text tells its language and its number, so that captions that
// read alike ("Refresh") are told apart.
std::string Marked(int language) {
  const std::string open = "<" + std::to_string(language) + ".";
  std::string file = "..\\";
  for (const char* end : {"\\\\", "\\\\", "..\\"}) {
    for (int index = 0; index < 1000; ++index) {
      const bool namesAPort =
          index > text::interface_::kSearchTitle && index < text::interface_::kSearchNoPort;
      file += '\0' + open + std::to_string(index) + (namesAPort ? ">###1" : ">");
    }
    file += end;
  }
  return file + std::string("\0f\\\\\0g\\\\\0h", 11);
}

Words InLanguage(int language, Words words) {
  for (auto& [place, word] : words) {
    for (auto at = word.find(u"<0."); at != Text::npos; at = word.find(u"<0.", at + 1)) {
      word[at + 1] = static_cast<char16_t>(u'0' + language);
    }
  }
  return words;
}

// Where a number of the table has to show. What stands in no list here is still compared with the
// other languages.
constexpr char kPlaces[] =
    "53 File 54 PhoneInfo 55 Exit1 56 Edit 57 Cut 58 Copy 59 Paste 60 Delete 61 SelectAll 62 Tools "
    "63 FileExplorer 64 SMS_EMS 65 MMS 66 Ringtone 69 Logo 70 Photos 71 Movie 72 Calendar "
    "73 Phonebook 74 mnuPhonebookSync 75 mnuCalendarSync 76 Option1 77 Language 78 English "
    "79 French 80 German 81 Italian 82 Spanish 83 TChinese 425 SChinese 453 Russian 482 Romanian "
    "600 Help 86 SubHelp 87 About 88 delete_Phone_File 91 refresh_Phone_File 618 delete_PC_file "
    "601 delete_SMS 602 refresh_SMS 603 refresh_Ringtone 604 edit_Logo 605 refresh_Logo "
    "606 refresh_Photo 607 refresh_Movie 608 edit_Phonebook 609 delete_Phonebook "
    "610 refresh_Phonebook 611 edit_PMPhonebook 612 delete_PMPhonebook 613 copy_Phone_to_SIM "
    "614 refresh_PMPhonebook 615 edit_Calendar 616 delete_Calendar 617 refresh_Calendar "
    "619 cmdPlay 620 cmdPause 621 cmdStop 622 cYear 623 cMonth 624 cDay 633 lvwPhoneSMS.1 "
    "634 lvwPhoneSMS.2 635 lvwPhoneSMS.3 630 lvwPhoneSMS.4 627 lvwPhonePhonebook.0 "
    "636 lvwPhonePhonebook.1 63 Toolbar2.File 64 Toolbar2.SMS 65 Toolbar2.MMS "
    "66 Toolbar2.Ringtone 69 Toolbar2.Logo 70 Toolbar2.Photo 71 Toolbar2.Movie "
    "72 Toolbar2.Calendar 73 Toolbar2.Phonebook 567 Lbstatus 568 StatusBar1.2";

std::map<std::string, std::string> ExpectedPlaces() {
  std::map<std::string, std::string> places;
  std::istringstream list(kPlaces);
  for (std::string index, place; list >> index >> place;) places[place] = index;
  for (const std::string page : {"File", "MMS", "Ringtone", "Logo", "Photo", "Movie"}) {
    for (const std::string column : {"627.0", "628.1", "629.2"}) {
      places["lvwPhone" + page + column.substr(3)] = column.substr(0, 3);
    }
    for (const std::string column : {"627.0", "631.1", "629.2", "632.3"}) {
      places["lvwPC" + page + column.substr(3)] = column.substr(0, 3);
    }
  }
  for (const std::string number : {"", "1", "2", "3", "4", "5"}) {
    places["icoDownload" + number + ".tip"] = "625";
    places["icoUpload" + number + ".tip"] = "626";
  }
  return places;
}

class FrameWordsTest : public FrameBench {
 protected:
  void MarkLanguages() const {
    std::filesystem::create_directories(folder.Path() / "app");
    for (int index = 0; index < 9; ++index) {
      const auto name = kLanguages[static_cast<std::size_t>(index)].languageFile;
      folder.Write("app/" + ToUtf8(name).substr(1), Marked(index));
    }
  }
};

TEST_F(FrameWordsTest, EveryWordIsThatOfTheLanguage) {
  MarkLanguages();
  Start();
  Connect();
  const Words shown = WordsOf(session);
  for (const auto& [place, index] : ExpectedPlaces()) {
    const auto word = shown.find(place);
    EXPECT_EQ(word == shown.end() ? "" : ToUtf8(word->second), "<0." + index + ">") << place;
  }
  EXPECT_EQ(PanelText(panel::kModel), u"T610<0.569>COM3");
  const std::set<std::string> facts = {"caption", "lblPortValue", "lblStorageValue"};
  for (const auto& [place, word] : shown) {
    EXPECT_TRUE(facts.contains(place) || word.find(u"<0.") != Text::npos)
        << place << " says " << ToUtf8(word);
  }
  for (int panel = 0; panel <= kStartPanel; ++panel) {
    Speak(0);
    panel == kStartPanel ? session.ShowStartPanel() : session.ShowPage(panel);
    const Words english = WordsOf(session);
    for (int index = 8; index >= 0; --index) {
      Speak(index);
      EXPECT_EQ(WordsOf(session), InLanguage(index, english)) << panel << " " << index;
    }
  }
  session.ShowPage(kRingtonePanel);
  LosePhone();
  const Words lost = WordsOf(session);
  Speak(4);
  EXPECT_EQ(WordsOf(session).at("StatusBar1.2"), u"<4.566>");
  for (const auto& [place, word] : WordsOf(session)) {
    EXPECT_EQ(word.find(u"<0."), Text::npos) << place << " says " << ToUtf8(word);
  }
}

TEST_F(FrameWordsTest, TheNextStartSpeaksTheChosenLanguage) {
  const auto run = [this](int expected, const char* choice) {
    Language words(files);
    TessarinMenu window({host, files, registry, words, clock, port});
    window.Show(Modality::Modeless);
    const char* key = kLanguages[static_cast<std::size_t>(expected)].menuKey;
    EXPECT_EQ(window.languageIndex, expected);
    EXPECT_EQ(words.index(), expected);
    EXPECT_TRUE(window.MainMenu.Entry(key).checked);
    if (choice != nullptr) window.MainMenu.clicked(choice);
    window.Unload();
  };
  const struct {
    const char* choice;
    const char16_t* code;
    int next;
  } rows[] = {{nullptr, u"rom", 8},    {"English", u"en", 0},  {"SChinese", u"sch", 1},
              {"TChinese", u"tch", 2}, {"French", u"fra", 3},  {"German", u"ger", 4},
              {"Italian", u"it", 5},   {"Spanish", u"spa", 6}, {"Russian", u"ru", 7},
              {"Romanian", u"spa", 6}};
  for (const auto& row : rows) {
    registry.RegSetValue(kRegistryKey, kRegistryLanguage, u"rom", RegType::String);
    run(8, row.choice);
    EXPECT_EQ(registry.RegGetString(kRegistryKey, kRegistryLanguage), row.code);
    run(row.next, nullptr);
  }
}

TEST_F(FrameWordsTest, TheSearchFollowsTheLanguageWhileItStands) {
  MarkLanguages();
  PlugInAt(4);
  port.at = "COM0";  // nobody answers
  Start();
  frmSplashFindCOM& search = supervisor.splash();
  const std::pair<const char*, std::function<void()>> steps[] = {
      {"<0.570>", [this] { Tick(session.Timer1); }},
      {"<0.501>COM4", [this] { Tick(session.Timer2), Tick(session.Timer2); }},
      {"<0.512>", [&] { search.NothingFound(); }},
      {"<0.515>", [&] { search.Progress(text::interface_::kConnectIdentifying); }}};
  for (const auto& [says, step] : steps) {
    step();
    ASSERT_EQ(host.Find("frmSplashFindCOM"), &search);
    const Words english = WordsOf(search);
    EXPECT_TRUE(ToUtf8(english.at("lblPort")).starts_with(says)) << ToUtf8(english.at("lblPort"));
    for (const int index : {4, 1, 0}) {
      Speak(index);
      EXPECT_EQ(WordsOf(search), InLanguage(index, english)) << says << " " << index;
    }
  }
  const Text& trouble = search.lblTrouble.text();
  EXPECT_EQ(trouble.substr(0, 11), u"<0.506>COM3");
  EXPECT_NE(trouble.find(u"\n<0.506>COM4"), Text::npos);
}

}  // namespace
}  // namespace tessarin
