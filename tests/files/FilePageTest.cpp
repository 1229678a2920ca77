#include <cstring>
#include <thread>

#include "codecs/Faults.h"
#include "tests/files/FilePagesBench.h"
#include "tests/support/ComputerTree.h"

namespace tessarin {
namespace {

TEST(PhoneFileRow, SplitsANameAtItsLastPoint) {
  const struct {
    const char16_t* name;
    const char16_t* stem;
    const char16_t* extension;
    const char* image;
  } cases[] = {
      {u"Ode.mid", u"Ode", u"mid", "file-audio"},
      {u"BIG BAND.MID", u"BIG BAND", u"MID", "file-audio"},
      {u"chess.v2.final.gif", u"chess.v2.final", u"gif", "file-image"},
      {u"README", u"README", u"", "file"},
      {u"a.", u"a", u"", "file"},
      {u".hidden", u"", u"hidden", "file"},
      {u"山水.gif", u"山水", u"gif", "file-image"},
  };
  for (const auto& c : cases) {
    const ListRow row = PhoneFileRow(c.name, u"12");
    EXPECT_EQ(row.cells, (std::vector<Text>{c.stem, u"12", c.extension})) << ToUtf8(c.name);
    EXPECT_EQ(row.image, c.image) << ToUtf8(c.name);
    const Text whole = c.name == Text(u"a.") ? u"a" : c.name;
    EXPECT_EQ(WholeName(row), whole) << "only a point at the end is lost";
  }
}

class FilePageTest : public FilePagesBench {
 protected:
  FilePageTest() {
    PutOnPhone("Phone/Other/empty.txt", "");
    PutOnPhone("Phone/Other/README", "12345");
    PutOnPhone("Phone/Sounds & <more>/Колыбельная.v2.mid", "MThd");
    StartAndConnect();
  }
  // On the computer's side in a folder of the test's own.
  void Open() {
    FilePagesBench::Open("File");
    std::filesystem::create_directories(received_);
    OpenOnComputer(host, session.tvwPCDir, received_);
    ASSERT_EQ(pages.Page(MediaKind::File).computer().SelectedFolder(), received_);
  }
  void Enter(TextView key) { FilePagesBench::Enter(session.tvwPhoneDir, key); }
  std::string Files() const { return FilePagesBench::Files(session.lvwPhoneFile); }
  std::string ChildrenOf(TextView key) const {
    std::string children;
    for (const auto& child : session.tvwPhoneDir.Find(key)->children) {
      children += ToUtf8(child->key + u"=" + child->text) + " ";
    }
    return children;
  }
  void ExpectIdle() const {
    FilePagesBench::ExpectIdle();
    EXPECT_TRUE(session.tvwPhoneDir.enabled);
  }

  const std::filesystem::path received_ = folder.Path() / "deep/in";
  PhonePane& page_ = pages.Page(MediaKind::File).phone();
};

TEST_F(FilePageTest, WalksThePhonesFolders) {
  Open();
  EXPECT_EQ(session.tvwPhoneDir.roots()[0]->text, u"T610");
  EXPECT_EQ(ChildrenOf(u""), "Phone=Phone Card=Card ");
  EXPECT_EQ(Files(), "");
  Enter(u"Phone");
  EXPECT_EQ(ChildrenOf(u"Phone"), "Phone\\Other=Other Phone\\Sounds & <more>=Sounds & <more> ");
  Enter(u"Phone\\Other");
  EXPECT_EQ(Files(), "README|5| empty|0|txt ");
  EXPECT_EQ(page_.currentFolder(), u"Phone\\Other");
  Enter(u"Phone\\Sounds & <more>");
  EXPECT_EQ(Files(), "Колыбельная.v2|4|mid ");
  Enter(u"Phone");
  EXPECT_EQ(ChildrenOf(u"Phone"), "Phone\\Other=Other Phone\\Sounds & <more>=Sounds & <more> ")
      << "a folder that is read again has each child once";
  Enter(u"");
  EXPECT_EQ(session.tvwPhoneDir.Count(), 3) << "the root starts the tree anew";
  EXPECT_EQ(page_.currentFolder(), u"");
  ExpectIdle();
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FilePageTest, AFolderThatIsGoneLeavesTreeAndListAsTheyAre) {
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Other");
  std::filesystem::remove_all(folder.Path() / "phone" / "Phone" / "Sounds & <more>");
  Enter(u"Phone\\Sounds & <more>");
  EXPECT_EQ(Files(), "README|5| empty|0|txt ");
  EXPECT_EQ(page_.currentFolder(), u"Phone\\Other");
  EXPECT_EQ(session.tvwPhoneDir.SelectedKey(), u"Phone\\Other") << "files come from what is shown";
  EXPECT_EQ(session.tvwPhoneDir.Count(), 5);
  EXPECT_TRUE(host.boxes.empty());
  ExpectIdle();
  Enter(u"Phone");
  EXPECT_EQ(ChildrenOf(u"Phone"), "Phone\\Other=Other ");
}

TEST_F(FilePageTest, ADamagedListingIsToldAndCostsThatFolderOnly) {
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Other");
  port.spoil = [](std::string& sent) {
    const auto place = sent.find("<folder name");
    if (place != std::string::npos) sent.replace(place, 12, "<folder<name");
  };
  Enter(u"Phone");
  ASSERT_EQ(host.boxes.size(), 1u);
  const Text& told = language.getTSErrStr(text::error::kListingDamaged);
  EXPECT_TRUE(host.boxes[0].text.starts_with(told.substr(0, told.find(u"###1"))));
  EXPECT_EQ(host.boxes[0].text.find(u"###"), Text::npos);
  EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
  EXPECT_EQ(Files(), "README|5| empty|0|txt ");
  EXPECT_EQ(session.tvwPhoneDir.Count(), 5);
  ExpectIdle();
  port.spoil = nullptr;
  Enter(u"Phone");
  EXPECT_EQ(page_.currentFolder(), u"Phone");
}

TEST_F(FilePageTest, ARefusalLeavesAnEmptyTreeThatCanBeTriedAgain) {
  settings.With(
      [](phonesim::Behaviour& b) { b.refusedOperations[phonesim::ObexOperation::Listing] = {}; });
  Open();
  EXPECT_EQ(session.tvwPhoneDir.Count(), 0);
  EXPECT_EQ(session.lvwPhoneFile.emptyText(),
            language.Filled(text::interface_::kFolderUnreadable, {session.phoneModel}));
  EXPECT_TRUE(host.boxes.empty());
  ExpectIdle();
  settings.With([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
  Open();
  EXPECT_EQ(session.tvwPhoneDir.Count(), 3);
}

TEST_F(FilePageTest, TheBusyWindowStandsWhileThePhoneIsReadAndGoesHoweverThatEnds) {
  std::string moving;
  port.spoil = [&](std::string& sent) {
    const auto* window = static_cast<frmSplashTransmission*>(host.Find("frmSplashTransmission"));
    if (window == nullptr || sent.find("folder-listing") == std::string::npos) return;
    moving += ToUtf8(window->Animation1.file()) + (window->Animation1.playing ? " plays" : "");
    throw BoundsError();
  };
  FilePagesBench::Open("File");
  EXPECT_EQ(moving, "\\data transfer MPtoPC.avi plays");
  EXPECT_EQ(host.boxes.size(), 1u);
  EXPECT_FALSE(busyWindow.IsLoaded());
  EXPECT_FALSE(busyWindow.Animation1.playing);
  EXPECT_TRUE(host.IsEnding());
}

TEST_F(FilePageTest, AHostileNameNeverLeavesTheFolder) {
  PutOnPhone("Phone/Evil/aaaevil", "evil");
  PutOnPhone("Phone/Evil/aa", "evil");
  Open();
  Enter(u"Phone");
  port.spoil = [](std::string& sent) {
    for (const auto& [from, to] : {std::pair{"\"aaaevil\"", "\"../evil\""}, {"\"aa\"", "\"..\""}}) {
      const auto place = sent.find(from);
      if (place != std::string::npos) sent.replace(place, std::strlen(from), to);
    }
  };
  Enter(u"Phone\\Evil");
  ASSERT_EQ(session.lvwPhoneFile.Count(), 2);
  for (int row = 0; row < 2; ++row) {
    EXPECT_FALSE(
        fileService.FetchFile("00000000", WholeName(session.lvwPhoneFile.Row(row)), received_));
    Choose(session.lvwPhoneFile, session.lvwPhoneFile.Cell(row, 0));
    Press(session.icoDownload);
  }
  EXPECT_EQ(Boxes(), std::vector<Text>(2, Error(text::error::kReceiveFile)));
  EXPECT_EQ(folder.Read("deep/evil"), "(none)");
  ExpectIdle();
}

TEST_F(FilePageTest, ADropDoesWhatTheArrowDoesWithItsRules) {
  PutOnPhone("Phone/Ringtones/Ode.mid", "MThd");
  const auto song = folder.Write("song.mid", "MThd song");
  const auto text = folder.Write("text.txt", "text");
  OpenAndSearch("Ringtone", session.timerRingtone);
  const auto drop = [&](const std::vector<std::filesystem::path>& dropped) {
    host.RunEvent([&] { session.lvwPhoneRingtone.filesDropped(dropped); });
    Tick(session.Timer1);
    return Boxes();
  };
  using Told = std::vector<Text>;
  EXPECT_EQ(drop({text}), Told{Word(text::interface_::kFileNotTaken)});
  EXPECT_EQ(drop({folder.Path()}), Told{Word(text::interface_::kFileNotTaken)});
  EXPECT_EQ(drop({song, song}), Told{Word(text::interface_::kOneFileAtATime)});
  EXPECT_EQ(drop({song}), Told{Prompt(text::prompt::kFileSent)});
  EXPECT_EQ(folder.Read("phone/Phone/Ringtones/song.mid"), "MThd song");
  host.answers = {Answer::Cancel};
  Choose(session.lvwPhoneRingtone, u"Ode");
  PutOnComputer("Ringtone/ODE.MID", "here already");
  FilePagesBench::Open("Ringtone");
  Tick(session.timerRingtone);
  Choose(session.lvwPhoneRingtone, u"Ode");
  host.RunEvent([this] { session.lvwPCRingtone.rowsDropped(session.lvwPhoneRingtone); });
  EXPECT_EQ(Boxes(), Told{Prompt(text::prompt::kReplaceFile)});
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  Choose(session.lvwPCRingtone, u"ODE.MID");
  host.RunEvent([this] { session.lvwPhoneRingtone.rowsDropped(session.lvwPCRingtone); });
  Tick(session.Timer1);
  EXPECT_EQ(Boxes(), (Told{Prompt(text::prompt::kReplaceFile), Prompt(text::prompt::kFileSent)}));
  EXPECT_EQ(folder.Read("phone/Phone/Ringtones/ODE.MID"), "here already");
}

TEST_F(FilePageTest, DeleteAsksReadsAgainAndLeavesTheFile) {
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Other");
  EXPECT_FALSE(session.Toolbar1.Find("Delete")->enabled);
  Choose(session.lvwPhoneFile, u"README");
  EXPECT_TRUE(session.Toolbar1.Find("Delete")->enabled);
  host.answers = {Answer::Cancel, Answer::Ok};
  const auto press = [this] { host.RunEvent([this] { session.Toolbar1.clicked("Delete"); }); };
  press();
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  press();
  EXPECT_EQ(session.commandState, job::kLoadFolder);
  EXPECT_EQ(Boxes(), std::vector<Text>(2, Prompt(text::prompt::kDeleteFile)));
  EXPECT_EQ(folder.Read("phone/Phone/Other/README"), "12345");
}

// The list still shows the names of the folder before, and so would the question.
TEST_F(FilePageTest, AFolderThatWasJustChosenIsReadBeforeAnythingMoves) {
  PutOnPhone("Phone/New/README", "of the new folder");
  const auto file = folder.Write("README", "of the computer");
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Other");
  Choose(session.lvwPhoneFile, u"README");
  host.RunEvent([this] { session.tvwPhoneDir.SelectByUser(u"Phone\\New"); });
  Press(session.icoDownload);
  host.RunEvent([&] { session.lvwPhoneFile.filesDropped({file}); });
  EXPECT_TRUE(Boxes().empty());
  EXPECT_EQ(session.commandState, job::kLoadSubfolder);
  Tick(session.Timer1);
  EXPECT_EQ(Files(), "README|17| ");
  EXPECT_EQ(folder.Read("deep/in/README"), "(none)");
  EXPECT_EQ(folder.Read("phone/Phone/New/README"), "of the new folder");
  Choose(session.lvwPhoneFile, u"README");
  Press(session.icoDownload);
  EXPECT_EQ(folder.Read("deep/in/README"), "of the new folder");
}

TEST_F(FilePageTest, TheOrderThatTheUserChoseHoldsInEveryFolder) {
  PutOnPhone("Phone/Many/b.bin", std::string(9, 'x'));
  PutOnPhone("Phone/Many/C", std::string(10, 'x'));
  PutOnPhone("Phone/Many/a.txt", std::string(100, 'x'));
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Many");
  const auto click = [this](int column) {
    host.RunEvent([&] { session.lvwPhoneFile.columnClicked(column); });
    const std::string sorted = Files();
    Enter(u"Phone\\Other");
    Enter(u"Phone\\Many");
    EXPECT_EQ(Files(), sorted);
    return sorted;
  };
  EXPECT_EQ(click(1), "b|9|bin C|10| a|100|txt ") << "sizes as numbers";
  EXPECT_EQ(click(1), "a|100|txt C|10| b|9|bin ");
  EXPECT_EQ(click(0), "a|100|txt b|9|bin C|10| ");
}

// What a fetch is, how far it is, and how fast.
TEST_F(FilePageTest, TheBusyWindowShowsNameBytesAndRate) {
  PutOnPhone("Phone/Other/" + std::string(200, 'n') + ".bin", std::string(3 << 20, 'x'));
  Open();
  Enter(u"Phone");
  Enter(u"Phone\\Other");
  Choose(session.lvwPhoneFile, Text(200, u'n'));
  std::vector<Text> amounts;
  int most = 0;
  Connection follow = busyWindow.lblAmount.changed.Connect([&] {
    amounts.push_back(busyWindow.lblAmount.text);
    most = std::max(most, busyWindow.prgTransfer.value());
    EXPECT_TRUE(busyWindow.lblAmount.visible);
  });
  Press(session.icoDownload);
  EXPECT_EQ(busyWindow.Label1.text(),
            Word(text::interface_::kTransferReceiving) + Text(200, u'n') + u".bin");
  ASSERT_FALSE(amounts.empty());
  EXPECT_TRUE(amounts.back().starts_with(u"3.0 MB of 3.0 MB")) << ToUtf8(amounts.back());
  EXPECT_TRUE(amounts.back().ends_with(u" per second")) << ToUtf8(amounts.back());
  EXPECT_EQ(most, 1000);
  EXPECT_EQ(std::filesystem::file_size(received_ / (std::string(200, 'n') + ".bin")), 3U << 20);
  follow = Connection();
  std::this_thread::sleep_for(std::chrono::milliseconds(110));
  busyWindow.Progress(1536, 0);
  EXPECT_TRUE(busyWindow.lblAmount.text->starts_with(u"1.5 KB · "));
  EXPECT_FALSE(busyWindow.prgTransfer.visible) << "the phone told no size";
  busyWindow.PhoneToPc(worker::kFileLoading, u"");
  EXPECT_FALSE(busyWindow.lblAmount.visible || busyWindow.prgTransfer.visible);
}

// A transfer of this page starts straight from the click, outside any tick.
TEST_F(FilePageTest, AWorkerHoldsTheTicksBackByItself) {
  Text label;
  busyWindow.workers().Set(worker::kDownloading, [&] {
    label = busyWindow.Label1.text();
    EXPECT_TRUE(session.IsBusy());
  });
  host.RunEvent([this] {
    busyWindow.PhoneToPc(worker::kDownloading, u"Ode.mid");
    busyWindow.Work();
  });
  EXPECT_EQ(label, Word(text::interface_::kTransferReceiving) + u"Ode.mid");
  EXPECT_FALSE(session.IsBusy());
  EXPECT_FALSE(busyWindow.IsLoaded());
}

}  // namespace
}  // namespace tessarin
