// The main loop, with a phone that costs no time.

#include "codecs/modHexStr.h"
#include "core/PageTable.h"
#include "core/frmPhoneInfo.h"
#include "tests/support/SessionBench.h"

namespace tessarin {
namespace {

using Lines = std::vector<std::string>;

class SupervisorTest : public SessionBench {
 protected:
  // Opens the search and lets it test `count` ports; those that it opened.
  Lines Scan(int count) {
    if (!session.Timer2.enabled) Tick(session.Timer1);
    port.opened.clear();
    for (int i = 0; i < count; ++i) Tick(session.Timer2);
    return port.opened;
  }
  Text PanelImage() const { return FromUtf8(session.StatusBar1.Panel(panel::kBattery).image); }
  // Polls the battery, which answers so.
  void Poll(std::deque<std::uint16_t> levels) {
    port.levels = std::move(levels);
    Tick(session.Timer1);
  }

  static constexpr std::uint16_t kNone = linkport::kNoBatteryLevel;
};

TEST_F(SupervisorTest, ScansFromCom3ToCom256AndRoundAgain) {
  port.at = "COM0";  // nobody answers anywhere
  for (const int number : {1, 2, 4, 160, 161, 255, 256, 257}) PlugInAt(number);
  Start();
  EXPECT_EQ(Scan(253), (Lines{"\\\\.\\COM3 0", "\\\\.\\COM4 0", "\\\\.\\COM160 0",
                              "\\\\.\\COM161 0", "\\\\.\\COM255 0"}));
  EXPECT_EQ(session.scanPort, 256);
  EXPECT_EQ(Scan(1), Lines{"\\\\.\\COM256 0"});
  EXPECT_EQ(session.scanPort, 3) << "behind COM256 comes COM3, never COM1";
  EXPECT_EQ(Scan(2), (Lines{"\\\\.\\COM3 0", "\\\\.\\COM4 0"}));
  EXPECT_EQ(port.closes, 8) << "a port that did not open is closed all the same";
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SupervisorTest, PassesOverPrintersAndGivesReasonsForTheOthers) {
  PlugInAt(4);
  PlugInAt(30);
  port.at = "COM30";
  printers = {"LPT1:", "COM3:", "COM30x:"};
  Start();
  EXPECT_EQ(Scan(2), Lines{"\\\\.\\COM4 0"});
  const std::string reason = ToUtf8(supervisor.splash().lblTrouble.text());
  EXPECT_NE(reason.find("COM4"), std::string::npos);
  EXPECT_EQ(reason.find("COM3"), std::string::npos);
  std::filesystem::remove(Link(4));
  StartAndConnect();
  EXPECT_EQ(session.connectedPort, 30);
  EXPECT_EQ(session.scanPort, 30) << "where a lost phone is looked for first";
}

TEST_F(SupervisorTest, ConnectsWithTheseRequestsInThisOrder) {
  StartAndConnect();
  Lines lines;
  for (const auto& bytes : port.written) {
    lines.push_back(bytes.starts_with("AT") ? bytes
                                            : modHexStr::BytesToHex({bytes.begin(), bytes.end()}));
  }
  ASSERT_EQ(lines.size(), 12u);
  const std::string id = lines[9].substr(10, 10);  // as the phone gave it
  EXPECT_EQ(
      lines,
      (Lines{"AT+CGMM\r", "AT+CGMI\r", "AT+CGMM\r", "AT+CGSN\r", "810003", "AT+CSCS=\"UTF-8\"\r",
             "810003", "AT*EOBEX\r", "80001A10000200460013F9EC7BC4953C11D2984E525400DC9E09",
             "85000D0200" + id + "010003",
             "830021" + id + "420019782D6F6265782F666F6C6465722D6C697374696E6700", "810003"}));
  EXPECT_EQ(port.opened, Lines{"\\\\.\\COM3 0"});
  EXPECT_EQ(host.shown, (Lines{"TessarinMenu", "frmSplashFindCOM", "Asking"}));
  EXPECT_EQ(host.gone, (Lines{"frmSplashFindCOM", "Asking"}));
}

TEST_F(SupervisorTest, StandsConnectedAfterwards) {
  AnswerAsking("Command1");
  StartAndConnect();
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  EXPECT_EQ(session.phonebookLoadChoice, 1);
  EXPECT_EQ(session.baudRate, 57600);
  EXPECT_EQ(session.phoneSerial, u"001017006100427");
  EXPECT_TRUE(session.Timer1.enabled);
  EXPECT_FALSE(session.Timer2.enabled);
  EXPECT_EQ(session.storageNames, (std::vector<Text>{u"Phone", u"Card"}));
  for (const ComboBox* box : {&session.comboStorage, &session.combostore, &session.comboStorage2,
                              &session.comboStorage3}) {
    ASSERT_EQ(box->Count(), 2) << box->name();
    EXPECT_EQ(box->Item(0) + box->Item(1), u"PhoneCard") << box->name();
  }
  EXPECT_EQ(session.storageRoot + session.storageRoot2 + session.storageRoot3, u"PhonePhonePhone");
  EXPECT_EQ(PanelText(panel::kConnection), Word(text::interface_::kStatusConnected));
  EXPECT_EQ(PanelText(panel::kModel), u"T610" + Word(text::interface_::kStatusSeparator) + u"COM3");
  EXPECT_EQ(session.Lbstatus.text(), Word(text::interface_::kStatusCaption));
  EXPECT_TRUE(session.tvwPhoneDir.enabled);
  EXPECT_TRUE(session.MainMenu.Entry("PhoneInfo").enabled);
  EXPECT_TRUE(session.ToolFrame[kStartPanel]->visible);
  for (const char* list : {"Pb/ContactTSC.dat", "Pb/ContactMobile.dat", "Cal/CalendarMobile.dat"}) {
    EXPECT_EQ(folder.Read(std::string("app/") + list), "") << list;
  }
  EXPECT_EQ(host.shown.back(), "bar");
  EXPECT_EQ(host.gone.back(), "bar");
}

TEST_F(SupervisorTest, NamesTheModel) {
  const struct {
    const char* code;
    const char* own;
    bool refuses;
    const char16_t* name;
  } cases[] = {{"1021012-BVT630", "never asked", false, u"T630"},
               {"AAB-1021032", "  K700i ", false, u"K700i"},
               {"AAB-1021032", "K700i", true, u"Unknown"}};
  Start();
  Tick(session.Timer1);
  for (const auto& c : cases) {
    settings.With([&](phonesim::Behaviour& b) {
      b.identity.modelCode = c.code;
      b.identity.modelName = c.own;
      b.refusedCommands.clear();
      if (c.refuses) b.refusedCommands.insert("AT+GMM");
    });
    Tick(session.Timer2);
    EXPECT_EQ(session.phoneModel, c.name);
    Poll({kNone, kNone, kNone});
  }
}

TEST_F(SupervisorTest, StepsTheChargingPictureAndRestsEverySixthSecond) {
  StartAndConnect();
  const Text pictures[] = {u"battery-1", u"battery-2", u"battery-3", u"battery-4",
                           u"battery-5", u"battery-5", u"battery-1", u"battery-2"};
  int frame = 1;
  for (const Text& picture : pictures) {
    EXPECT_EQ(session.batteryFrame, frame);
    Poll({42});
    EXPECT_EQ(PanelImage(), picture);
    EXPECT_EQ(PanelText(panel::kBattery), u"42%");
    EXPECT_TRUE(session.StatusBar1.Panel(panel::kBattery).visible);
    EXPECT_EQ(session.batteryState, 1);
    frame = frame == 6 ? 1 : frame + 1;
  }
  Poll({100});
  EXPECT_EQ(PanelImage(), u"battery-full");
  EXPECT_EQ(session.batteryState, 2);
  EXPECT_EQ(session.batteryFrame, frame) << "a full battery does not move the picture on";
  Poll({0});
  EXPECT_EQ(PanelText(panel::kBattery), u"0%");
}

TEST_F(SupervisorTest, TwoMissedAnswersKeepThePhoneAndThreeLoseIt) {
  StartAndConnect();
  Poll({kNone, kNone, 7});
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_EQ(PanelText(panel::kBattery), u"7%");
  Poll({kNone, kNone, kNone, 7});
  EXPECT_EQ(session.statusPhase, kNoPhone);
  EXPECT_EQ(port.levels.size(), 1u) << "asked three times, not more";
}

TEST_F(SupervisorTest, LosingThePhoneClearsWhatWasShownOfItAndSearchesAgain) {
  StartAndConnect();
  Tick(session.Timer1);
  session.ShowPage(0);
  session.tvwPhoneDir.Add(u"", u"Phone", u"Phone", "", "");
  const int closes = port.closes;
  Poll({kNone, kNone, kNone});
  EXPECT_EQ(port.closes, closes + 1);
  for (const int number : {panel::kConnection, panel::kModel, panel::kBattery}) {
    EXPECT_EQ(PanelText(number), u"") << number;
  }
  EXPECT_FALSE(session.StatusBar1.Panel(panel::kBattery).visible);
  EXPECT_EQ(session.Lbstatus.text(), u"");
  EXPECT_FALSE(session.ToolFrame[0]->visible);
  EXPECT_TRUE(session.ToolFrame[kStartPanel]->visible);
  EXPECT_FALSE(session.tvwPhoneDir.enabled);
  EXPECT_FALSE(session.Timer1.enabled);
  EXPECT_TRUE(session.Timer2.enabled);
  EXPECT_NE(host.Find("frmSplashFindCOM"), nullptr);
  EXPECT_EQ(session.scanPort, 3) << "goes on where the phone was";

  Tick(session.Timer2);
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_EQ(port.opened.back(), "\\\\.\\COM3 57600") << "the speed of a phone that is known";
  EXPECT_EQ(host.Find("frmSplashFindCOM"), nullptr);
}

TEST_F(SupervisorTest, ClosingTheQuestionIsNotNowWhateverWasAnsweredBefore) {
  AnswerAsking("Command1");
  StartAndConnect();
  EXPECT_EQ(session.phonebookLoadChoice, 1);
  Poll({kNone, kNone, kNone});
  host.WhenShown("Asking", [](Window& asking) { asking.Unload(); });
  Tick(session.Timer2);
  EXPECT_EQ(session.phonebookLoadChoice, 2);
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SupervisorTest, ThePollStopsTouchingAWindowThatIsClosing) {
  StartAndConnect();
  session.isClosing = true;
  Poll({42});
  EXPECT_EQ(PanelText(panel::kBattery), u"");
}

TEST_F(SupervisorTest, ThePollEnablesThePageBarAndClearsTheCalendarsPanel) {
  class CalendarPage : public Page {
    int panel() const override { return kCalendarPanel; }
  } calendar;
  session.AddPage(calendar);
  StartAndConnect();
  session.Toolbar2.Enable("Calendar", false);
  session.StatusBar1.SetText(panel::kPage, u"Meeting");
  Poll({42});
  EXPECT_TRUE(session.Toolbar2.Find("Calendar")->enabled);
  EXPECT_EQ(PanelText(panel::kPage), u"Meeting");
  session.ShowPage(kCalendarPanel);
  Poll({42});
  EXPECT_EQ(PanelText(panel::kPage), u"");

  Poll({kNone, kNone, kNone});
  EXPECT_FALSE(session.Toolbar2.Find("Calendar")->enabled);
  host.RunEvent([this] { session.MainMenu.clicked("German"); });
  EXPECT_FALSE(session.Toolbar2.Find("Calendar")->enabled) << "another language brings no phone";
  host.RequestEnd();
}

TEST_F(SupervisorTest, OneRequestWaitsAndALaterOneOverwritesIt) {
  StartAndConnect();
  std::string ran;
  for (const int code : {14, 15, 16}) {
    session.jobs().Set(code, [this, code, &ran] {
      ran += std::to_string(code) + ";";
      session.SetCommandIdle();
    });
  }
  session.commandState = 14;
  session.commandState = 16;
  Tick(session.Timer1);
  Tick(session.Timer1);
  EXPECT_EQ(ran, "16;");
  // A code that no job has holds everything off, the poll as well, until the user's next act.
  session.commandState = 23;
  port.written.clear();
  Poll({kNone, kNone, kNone});
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_EQ(port.levels.size(), 3u);
  EXPECT_TRUE(port.written.empty());
  session.commandState = 15;
  Tick(session.Timer1);
  EXPECT_EQ(ran, "16;15;");
  EXPECT_EQ(session.commandState, job::kIdlePoll);
}

// A worker that runs straight from a click waits for the phone; the timers tick on meanwhile.
TEST_F(SupervisorTest, NoTickStartsInsideATickOrWhileAWorkerRuns) {
  StartAndConnect();
  int runs = 0;
  session.jobs().Set(14, [&] {
    ++runs;
    host.YieldToScreen();
  });
  session.commandState = 14;
  host.whileWaiting = [this] {
    for (Timer* timer : {&session.Timer1, &session.Timer2}) Tick(*timer);
  };
  port.opened.clear();
  Tick(session.Timer1);
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(session.IsBusy());
  host.RunEvent([&] {
    const Busy busy(session);
    host.YieldToScreen();
  });
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(port.opened, Lines());
  Tick(session.Timer1);
  EXPECT_EQ(runs, 2);
}

TEST_F(SupervisorTest, PhoneInfoShowsFourValuesAndGoesIdle) {
  StartAndConnect();
  std::vector<Text> values;
  host.WhenShown("frmPhoneInfo", [&](Window& window) {
    auto& info = static_cast<frmPhoneInfo&>(window);
    values = {info.caption, info.LabManu.text, info.LabModel.text, info.LabFirmware.text,
              info.LabIMEI.text};
    info.Command1.clicked();
  });
  settings.With([](phonesim::Behaviour& b) { b.refusedCommands.insert("AT+CGMR"); });
  host.RunEvent([this] { session.MainMenu.clicked("PhoneInfo"); });
  port.written.clear();
  EXPECT_TRUE(values.empty()) << "the menu only leaves a request";
  Tick(session.Timer1);
  EXPECT_EQ(values, (std::vector<Text>{Word(text::interface_::kPhoneInfoTitle), u"Ericsson",
                                       u"T610", u"", u"001017006100427"}));
  EXPECT_EQ(port.written, (Lines{"AT+CGMI\r", "AT+CGMM\r", "AT+CGMR\r", "AT+CGSN\r"}));
  EXPECT_EQ(session.commandState, job::kIdlePoll);
}

// The end is asked for while the connection waits for a phone that refuses, ten seconds long.
TEST_F(SupervisorTest, TheEndUnwindsAWaitingConnection) {
  class Waiting : public PhonePort {
   public:
    Waiting(phonesim::Phone& phone, ScriptedHost& host) : PhonePort(phone), host_(host) {}
    void XSleep(int) override { host_.YieldToScreen(); }

   private:
    ScriptedHost& host_;
  } waiting(phone, host);
  settings.With([](phonesim::Behaviour& b) { b.refusedCommands.insert("AT+CSCS"); });
  modComLib line(waiting, map);
  AT queries(line);
  OBEX sessions(line);
  PhoneLink slow{waiting, waiting, line, queries, sessions, fileService, irmc};
  TessarinMenu window({host, files, registry, language, clock, waiting});
  Supervisor main(window, slow);
  host.SetMainWindow(window);
  host.RunEvent([&] { SubMain(window, registry); });
  Tick(window.Timer1);
  host.whileWaiting = [&] {
    if (host.yields == 3) host.RequestEnd();
  };
  Tick(window.Timer2);
  EXPECT_EQ(host.yields, 3);
  EXPECT_EQ(host.gone, (Lines{"frmSplashFindCOM", "TessarinMenu"}));
  EXPECT_TRUE(host.boxes.empty()) << "the end is no failure";
  EXPECT_EQ(host.quits, 1);
}

}  // namespace
}  // namespace tessarin
