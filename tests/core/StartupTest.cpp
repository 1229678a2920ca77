// The main window comes up, and is taken away.

#include "tests/support/OrdinaryUser.h"
#include "tests/support/SessionBench.h"

namespace tessarin {
namespace {

using namespace std::chrono_literals;

using StartupTest = SessionBench;

TEST_F(StartupTest, ComesUpWithoutAPhone) {
  session.batteryFrame = 4;
  session.scanPort = 77;
  Start();
  EXPECT_EQ(host.shown, std::vector<std::string>{"TessarinMenu"});
  EXPECT_EQ(session.caption(), u"Tessarin");
  EXPECT_EQ(session.scanPort, 3);
  EXPECT_EQ(session.batteryFrame, 1);
  EXPECT_EQ(session.baudRate, 0);
  EXPECT_EQ(session.commandState, job::kStartScan);
  EXPECT_EQ(PanelText(panel::kConnection), Word(text::interface_::kStatusNoPhone));
  EXPECT_EQ(session.Timer1.interval, 1000);
  EXPECT_EQ(session.Timer2.interval, 10);
  EXPECT_TRUE(session.Timer1.enabled);
  EXPECT_FALSE(session.Timer2.enabled);
  for (const char* name : {"tvwPhoneDir", "lvwPhoneFile", "lvwPhoneSMS", "lvwPhoneRingtone",
                           "lvwPhoneLogo", "lvwPhonePhoto", "lvwPhoneMovie", "lvwPhonePhonebook"}) {
    EXPECT_FALSE(session.Find(name)->enabled) << name;
  }
  for (const char* key :
       {"PhoneInfo", "SMS_EMS", "Ringtone", "Logo", "Photos", "Movie", "Calendar", "Phonebook"}) {
    EXPECT_FALSE(session.MainMenu.Entry(key).enabled) << key;
  }
  EXPECT_FALSE(session.ToolFrame[0]->visible);
  EXPECT_TRUE(session.ToolFrame[9]->visible);
}

TEST_F(StartupTest, ComposesTheUsersFolders) {
  Start();
  const auto data = folder.Path() / "app" / "UserData";
  EXPECT_EQ(session.javaFolder, data / "Java");
  EXPECT_EQ(session.smsFolder, data / "SMS");
  EXPECT_EQ(session.ringtoneFolder, data / "Ringtone");
  EXPECT_EQ(session.pictureFolder, data / "Picture");
  EXPECT_EQ(session.themeFolder, data / "Theme");
  EXPECT_EQ(session.movieFolder, data / "Movie");
  EXPECT_EQ(session.calendarFolder, data / "Calendar");
  EXPECT_EQ(session.phonebookFolder, data / "Phonebook");
  EXPECT_EQ(session.mmsFolder, data / "MMS");
}

TEST_F(StartupTest, SpeaksTheLanguageOfTheRegistry) {
  registry.RegSetValue(kRegistryKey, kRegistryLanguage, u"rom", RegType::String);
  Start();
  EXPECT_EQ(session.languageIndex, 8);
  EXPECT_EQ(language.index(), 8);
  EXPECT_EQ(session.MainMenu.Entry("Exit1").caption, Word(text::interface_::kMenuExit));
}

// Romanian is for the run in which it was chosen: the menu writes the code of Spanish.
TEST_F(StartupTest, WritesTheLanguageThatTheMenuChose) {
  Start();
  const std::map<std::string, Text> codes = {
      {"English", u"en"},  {"SChinese", u"sch"}, {"TChinese", u"tch"},
      {"French", u"fra"},  {"German", u"ger"},   {"Italian", u"it"},
      {"Spanish", u"spa"}, {"Russian", u"ru"},   {"Romanian", u"spa"}};
  for (const auto& [key, code] : codes) {
    host.RunEvent([this, &entry = key] { session.MainMenu.clicked(entry); });
    EXPECT_EQ(registry.RegGetString(kRegistryKey, kRegistryLanguage), code) << key;
    EXPECT_EQ(kLanguages[static_cast<std::size_t>(session.languageIndex)].menuKey, key);
    EXPECT_EQ(PanelText(panel::kConnection), Word(text::interface_::kStatusNoPhone)) << key;
  }
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(StartupTest, FillsTheCalendarNavigatorWithToday) {
  const struct {
    int year, month, day, days;
  } cases[] = {{2004, 2, 15, 29}, {2005, 2, 28, 28},  {1900, 2, 1, 28},
               {2000, 2, 29, 29}, {2004, 12, 31, 31}, {2004, 4, 1, 30}};
  for (const auto& c : cases) {
    clock.now = modDate::PackDate(c.year, c.month, c.day) + 0.75;
    TessarinMenu window({host, files, registry, language, clock, port});
    window.Show(Modality::Modeless);
    EXPECT_EQ(window.Text1.text(), ToText(c.year));
    EXPECT_EQ(window.Combo2.Count(), 12);
    EXPECT_EQ(window.Combo2.SelectedText(), ToText(c.month));
    EXPECT_EQ(window.Combo3.Count(), c.days) << c.year << "/" << c.month;
    EXPECT_EQ(window.Combo3.SelectedText(), ToText(c.day));
    window.Unload();
  }
}

TEST_F(StartupTest, EndsWithAMessageWithoutALanguageFile) {
  modFile nothing(folder.Path() / "app", folder.Path() / "nothing");
  Language mute(nothing);
  TessarinMenu window({host, nothing, registry, mute, clock, port});
  host.SetMainWindow(window);
  host.RunEvent([&] { SubMain(window, registry); });
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_NE(host.boxes[0].text.find(u"English.lng"), Text::npos);
  EXPECT_TRUE(host.shown.empty());
  EXPECT_EQ(host.quits, 1);
}

// What a session part sees of the end.
class Witness : public SessionPart {
 public:
  explicit Witness(std::function<std::string()> look) : look_(std::move(look)) {}
  void Unloading() override { seen += look_(); }
  std::string seen;

 private:
  std::function<std::string()> look_;
};

TEST_F(StartupTest, ClosesThePortAndTheWindowsBeforeTheListsAreSaved) {
  const auto look = [this] {
    return std::string(session.isClosing ? "closing," : "") + (port.closes > 0 ? "closed," : "") +
           (host.Find("frmSplashFindCOM") == nullptr ? "alone," : "") +
           (host.Find("TessarinMenu") != nullptr ? "shown;" : "");
  };
  Witness first(look), second(look);
  session.AddPart(first);
  session.AddPart(second);
  const auto preview = folder.Path() / "app" / "Temp" / "temp.mid";
  std::filesystem::create_directories(preview.parent_path());
  folder.Write("app/Temp/temp.mid", "MThd");
  Start();
  Tick(session.Timer1);
  EXPECT_NE(host.Find("frmSplashFindCOM"), nullptr);
  host.RunEvent([this] { session.MainMenu.clicked("Exit1"); });
  EXPECT_EQ(first.seen, "closing,closed,alone,shown;");
  EXPECT_EQ(second.seen, first.seen);
  EXPECT_EQ(host.gone.back(), "TessarinMenu");
  EXPECT_FALSE(std::filesystem::exists(preview));
  EXPECT_FALSE(session.Timer1.enabled);
  EXPECT_FALSE(session.Timer2.enabled);
  EXPECT_FALSE(host.RunUntil([] { return false; }, 20ms));
  EXPECT_TRUE(host.boxes.empty());
}

}  // namespace
}  // namespace tessarin
