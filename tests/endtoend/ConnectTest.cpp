#include "core/frmPhoneInfo.h"
#include "tests/endtoend/EndToEnd.h"
#include "tests/support/OrdinaryUser.h"

namespace tessarin {
namespace {

using namespace std::chrono_literals;
using phonesim::Behaviour;
using phonesim::ObexOperation;

struct Manner {
  const char* name;
  std::function<void(Behaviour&)> make;
};

void PrintTo(const Manner& manner, std::ostream* out) { *out << manner.name; }

class EveryPhone : public EndToEnd, public testing::WithParamInterface<Manner> {};

TEST_P(EveryPhone, IsFoundIdentifiedAndRead) {
  Behave(GetParam().make);
  std::vector<Text> values;
  host.WhenShown("frmPhoneInfo", [&](Window& window) {
    const auto& info = static_cast<frmPhoneInfo&>(window);
    values = {info.LabManu.text, info.LabModel.text, info.LabFirmware.text, info.LabIMEI.text};
    window.Unload();
  });
  ASSERT_TRUE(StartsAndConnects());
  EXPECT_EQ(PanelText(panel::kModel), u"T610" + Word(text::interface_::kStatusSeparator) + u"COM3");
  EXPECT_EQ(session.storageNames, (std::vector<Text>{u"Phone", u"Card"}));
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
  EXPECT_TRUE(Does([this] { session.MainMenu.clicked("PhoneInfo"); }));
  EXPECT_EQ(values,
            (std::vector<Text>{u"Ericsson", u"T610", u"R6C005 CXC125582", u"001017006100427"}));
  EXPECT_TRUE(Does([this] { session.Toolbar2.clicked("File"); }));
  EXPECT_EQ(session.tvwPhoneDir.Count(), 3);
  host.RunEvent([this] { session.MainMenu.clicked("Exit1"); });
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(folder.Read(kBook), kSavedContact);
}

INSTANTIATE_TEST_SUITE_P(Connect, EveryPhone,
                         testing::Values(Manner{"Plain", [](Behaviour&) {}},
                                         Manner{"Echoing", [](Behaviour& b) { b.echo = true; }},
                                         Manner{"RepeatingHeaders",
                                                [](Behaviour& b) { b.echoRequestHeaders = true; }},
                                         Manner{"Slow", [](Behaviour& b) { b.answerDelay = 40ms; }},
                                         Manner{"ByteByByte",
                                                [](Behaviour& b) {
                                                  b.echo = true;
                                                  b.splitBytes = 1;
                                                  b.splitGap = 1ms;
                                                }}),
                         [](const auto& instance) { return instance.param.name; });

struct Ending {
  const char* name;
  int error;  // -1: the fault of a place behind the end of an array
  std::function<void(Behaviour&)> make;
  bool oneFolder = false;
};

void PrintTo(const Ending& ending, std::ostream* out) { *out << ending.name; }

class BadPhone : public EndToEnd, public testing::WithParamInterface<Ending> {};

TEST_P(BadPhone, EndsTheProgramWithOneMessageAndTheListsWhole) {
  Behave(GetParam().make);
  if (GetParam().oneFolder) std::filesystem::remove(folder.Path() / "phone" / "Card");
  phone.Start();
  program.Start();
  EXPECT_TRUE(host.RunUntilQuit());
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
  if (GetParam().error < 0) {
    EXPECT_NE(host.boxes[0].text.find(u"Subscript out of range"), Text::npos);
  } else {
    EXPECT_EQ(host.boxes[0].text, session.language().getTSErrStr(GetParam().error));
  }
  EXPECT_EQ(host.gone.back(), "TessarinMenu");
  const bool hadLists = GetParam().error != text::error::kForeignPhone;
  EXPECT_EQ(folder.Read(kBook), hadLists ? kSavedContact : kContact);
}

std::function<void(Behaviour&)> Refusing(ObexOperation operation) {
  return [operation](Behaviour& b) { b.refusedOperations[operation] = {}; };
}

INSTANTIATE_TEST_SUITE_P(
    Connect, BadPhone,
    testing::Values(
        Ending{"OfAnotherMake", text::error::kForeignPhone,
               [](Behaviour& b) { b.identity.manufacturer = "Another"; }},
        // A refusal is no end of a reply: this costs the reader's ten seconds.
        Ending{"WithoutUtf8", text::error::kCharacterSet,
               [](Behaviour& b) { b.refusedCommands.insert("AT+CSCS"); }},
        Ending{"RefusingConnect", text::error::kPrepare, Refusing(ObexOperation::Connect)},
        Ending{"RefusingSetPath", text::error::kPrepare, Refusing(ObexOperation::SetPath)},
        Ending{"RefusingTheListing", text::error::kPrepare, Refusing(ObexOperation::Listing)},
        Ending{"WithOneFolder", -1, [](Behaviour&) {}, true}),
    [](const auto& instance) { return instance.param.name; });

class Connect : public EndToEnd {};

TEST_F(Connect, APhoneThatWasLostIsFoundAgain) {
  const auto isLost = [this] { return session.statusPhase == kNoPhone; };
  const auto addContact = [this] {
    program.phonebookLists().tscContacts->Add(std::make_shared<clsT610Contact>());
  };
  ASSERT_TRUE(StartsAndConnects());
  Does([this] { session.Toolbar2.clicked("File"); });
  addContact();
  phone.Stop();
  ASSERT_TRUE(host.RunUntil(isLost));
  for (const int number : {panel::kConnection, panel::kModel, panel::kBattery}) {
    EXPECT_EQ(PanelText(number), u"") << number;
  }
  EXPECT_EQ(session.tvwPhoneDir.Count(), 0);
  EXPECT_NE(host.Find("frmSplashFindCOM"), nullptr);
  EXPECT_FALSE(host.RunUntil([&] { return !isLost(); }, 100ms));

  // This time it hangs up amid an answer: a connection takes less than 400 bytes, the rest are
  // battery levels.
  Behave([](Behaviour& b) { b.dropAfterBytes = 600; });
  phone.Start();
  ASSERT_TRUE(Connects());
  EXPECT_EQ(host.Find("frmSplashFindCOM"), nullptr);
  addContact();
  ASSERT_TRUE(host.RunUntil([&] { return isLost() && !phone.LineUp(); }));
  phone.Start();
  ASSERT_TRUE(Connects());
  EXPECT_EQ(session.connectedPort, 3);
  EXPECT_EQ(program.phonebookLists().tscContacts->Count(), 3);
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(Connect, TwoBatteryQuestionsWithoutAnswerAndAThirdWithKeepThePhone) {
  ASSERT_TRUE(StartsAndConnects());
  Behave([](Behaviour& b) {
    b.unansweredCommands["AT+CBC"] = 2;
    b.battery.level = 84;
  });
  ASSERT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"84%"; }));
  EXPECT_EQ(session.statusPhase, kPhonePresent);
  EXPECT_EQ(std::count(host.shown.begin(), host.shown.end(), "frmSplashFindCOM"), 1);
}

TEST_F(Connect, TheSearchGoesOnFromCom256AtCom3) {
  std::filesystem::create_symlink("/dev/null", Port(256));  // there, and no terminal
  phone.Start();
  program.Start();
  session.scanPort = 250;
  ASSERT_TRUE(Connects());
  EXPECT_EQ(session.connectedPort, 3);
  EXPECT_NE(program.supervisor().splash().lblTrouble.text->find(u"COM256"), Text::npos);
}

TEST_F(Connect, ASilentPortCostsTenSecondsAndTheSearchGoesOn) {
  Behave([](Behaviour& b) { b.silence = phonesim::Silence::Everything; });
  phone.Start();
  phonesim::Server second(folder.Path() / "phone", Port(4));
  second.Start();
  const auto start = std::chrono::steady_clock::now();
  program.Start();
  ASSERT_TRUE(Connects());
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GT(took, 10s);
  EXPECT_LT(took, 15s);
  EXPECT_EQ(session.connectedPort, 4);
  EXPECT_GT(host.yields, 100) << "the screen moved meanwhile";
  EXPECT_NE(program.supervisor().splash().lblTrouble.text->find(u"COM3"), Text::npos);
  host.RequestEnd();
  EXPECT_EQ(second.GetReports().Count(), 0u);
}

TEST_F(Connect, TheEndUnwindsAWorkerThatWaitsForASilentPhone) {
  ASSERT_TRUE(StartsAndConnects());
  auto contact = std::make_shared<clsT610Contact>();
  program.phonebookLists().tscContacts->Add(contact);
  Behave([](Behaviour& b) { b.silentAfterObexPackets = 2; });
  int waits = 0;
  host.whileWaiting = [&] {
    if (host.Find("frmSplashTransmission") != nullptr && ++waits == 20) host.RequestEnd();
  };
  host.RunEvent([this] { session.Toolbar2.clicked("File"); });
  EXPECT_TRUE(host.RunUntilQuit());
  EXPECT_EQ(waits, 20);
  EXPECT_EQ(host.gone.back(), "TessarinMenu");
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_EQ(folder.Read(kBook), kSavedContact + std::string(23, ',') + "\r\n");
}

TEST_F(Connect, AnApplicationFolderThatCannotBeWrittenEndsTheProgramWithAMessage) {
  std::filesystem::remove_all(folder.Path() / "app" / "Pb");
  std::filesystem::permissions(folder.Path() / "app", std::filesystem::perms(0555));
  phone.Start();
  std::filesystem::permissions(Port(3), std::filesystem::perms(0666));
  {
    const OrdinaryUser user;
    program.Start();
    EXPECT_TRUE(host.RunUntilQuit());
  }
  std::filesystem::permissions(folder.Path() / "app", std::filesystem::perms(0755));
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_NE(host.boxes[0].text.find(FromUtf8((folder.Path() / "app").string())), Text::npos);
}

}  // namespace
}  // namespace tessarin
