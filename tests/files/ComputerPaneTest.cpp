#include "files/ComputerPane.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>

#include "core/PageTable.h"
#include "tests/files/FilePagesBench.h"
#include "tests/support/OrdinaryUser.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

class ComputerPaneTest : public FilePagesBench {
 protected:
  ComputerPaneTest() {
    ::setenv("LC_ALL", "C", 1);
    ::setenv("TZ", "UTC", 1);
    PutOnComputer("Ringtone/b.mid", std::string(2049, 'x'));
    PutOnComputer("Ringtone/Anton.MP3", "x");
    PutOnComputer("Ringtone/none", "");
    PutOnComputer("Ringtone/Old/deep.mid", "x");
    PutOnComputer("Ringtone/.hidden/x.mid", "x");
    Start();
    session.phoneWasSeen = true;
  }
  void Show(const char* page) {
    host.RunEvent([&] { session.ShowPage(PanelOf(page)); });
  }
  // The path of the node, from its text and those above it.
  static std::string PathOf(const TreeNode* node) {
    if (node->parent == nullptr) return "";
    return PathOf(node->parent) + "/" + ToUtf8(node->text);
  }
  const TreeNode* Selected() const { return tree_.Find(tree_.SelectedKey()); }
  void EnterChild(const TreeNode* node, TextView name) {
    for (const auto& child : node->children) {
      if (child->text != name) continue;
      const Text key = child->key;
      host.RunEvent([&] {
        tree_.ExpandByUser(key, true);
        tree_.SelectByUser(key);
      });
      return;
    }
    FAIL() << ToUtf8(name);
  }

  TreeView& tree_ = session.tvwPCRingtone;
  ListView& list_ = session.lvwPCRingtone;
};

TEST_F(ComputerPaneTest, OpensOnThePagesFolderWithTheWayDownToIt) {
  Show("Ringtone");
  ASSERT_NE(Selected(), nullptr);
  EXPECT_EQ(PathOf(Selected()), (folder.Path() / "app/UserData/Ringtone").string());
  for (const TreeNode* node = Selected(); node != nullptr; node = node->parent) {
    EXPECT_TRUE(node->expanded) << ToUtf8(node->text);
    EXPECT_TRUE(node->key.ends_with(u"Node"));
  }
  EXPECT_EQ(tree_.roots()[0]->text, u"/");
  ASSERT_EQ(Selected()->children.size(), 1u) << "hidden folders are left out";
  EXPECT_TRUE(Selected()->children[0]->children.empty());
  EXPECT_TRUE(Selected()->children[0]->mayHaveChildren) << "not read before it is opened";
  EXPECT_EQ(Files(list_).find("Anton.MP3|1KB|"), 0u);
  EXPECT_NE(Files(list_).find(" b.mid|3KB|MIDI audio "), std::string::npos);
  EXPECT_NE(Files(list_).find(" none|0KB|"), std::string::npos);
  EnterChild(Selected(), u"Old");
  EXPECT_EQ(Files(list_).substr(0, 12), "deep.mid|1KB");
  EXPECT_FALSE(Selected()->mayHaveChildren);
  Show("File");
  EXPECT_EQ(session.tvwPCDir.Find(session.tvwPCDir.SelectedKey())->text, u"/");
}

TEST_F(ComputerPaneTest, SortsAsTextAndKeepsThatOverFills) {
  PutOnComputer("Ringtone/c.mid", std::string(10000, 'x'));
  Show("Ringtone");
  const auto click = [this](int column) {
    host.RunEvent([&] { list_.columnClicked(column); });
    std::string order;
    for (const ListRow& row : list_.rows()) order += ToUtf8(row.cells[1]) + " ";
    return order + (list_.sortAscending ? "up" : "down");
  };
  EXPECT_EQ(list_.sortColumn, 0);
  EXPECT_EQ(click(0), "0KB 10KB 3KB 1KB down") << "the column in force turns round";
  EXPECT_EQ(click(1), "0KB 10KB 1KB 3KB up");
  EXPECT_EQ(click(1), "3KB 1KB 10KB 0KB down");
  EnterChild(Selected(), u"Old");
  host.RunEvent([this] { tree_.SelectByUser(Selected()->parent->key); });
  EXPECT_EQ(ToUtf8(list_.Cell(0, 1)), "3KB");
}

TEST_F(ComputerPaneTest, SpeaksTheLanguageOfTheProgramAndTheDatesOfTheUser) {
  const auto file = folder.Path() / "app/UserData/Ringtone/b.mid";
  const timespec times[2] = {{1087300800, 0}, {1087300800, 0}};  // 15 June 2004, 12:00 UTC
  ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
  Show("Ringtone");
  EXPECT_EQ(list_.Cell(RowOf(list_, u"b.mid"), 3), u"06/15/04 12:00:00");
  host.RunEvent([this] { session.ChangeLanguage(4); });
  EXPECT_EQ(list_.Cell(RowOf(list_, u"b.mid"), 2), u"MIDI-Audio");
}

TEST_F(ComputerPaneTest, AFolderThatCannotBeReadSaysSo) {
  const auto locked = folder.Path() / "app/UserData/Ringtone/Old";
  Show("Ringtone");
  fs::permissions(locked, fs::perms::none);
  {
    const OrdinaryUser user;
    EnterChild(Selected(), u"Old");
  }
  EXPECT_EQ(list_.Count(), 0);
  EXPECT_EQ(list_.emptyText(),
            language.Filled(text::interface_::kFolderUnreadable, {FromUtf8(locked.string())}));
  fs::permissions(locked, fs::perms::owner_all);
  fs::remove_all(locked);
  host.RunEvent([this] { tree_.SelectByUser(tree_.SelectedKey()); });
  EXPECT_EQ(list_.Count(), 0) << "a folder that is gone";
  host.RunEvent([this] { tree_.SelectByUser(Selected()->parent->key); });
  EXPECT_EQ(list_.Count(), 3);
}

TEST_F(ComputerPaneTest, DeletesWhatIsSelectedAfterAQuestion) {
  Show("Ringtone");
  const auto select = [this](std::vector<int> rows) {
    host.RunEvent([&] {
      list_.SelectByUser(rows, rows[0]);
      list_.released(ListAct::RightButton);
      session.MainMenu.clicked("delete_PC_file");
    });
  };
  host.answers = {Answer::Cancel, Answer::Ok};
  select({0, 1});
  EXPECT_EQ(list_.Count(), 3);
  EXPECT_TRUE(session.MainMenu.Entry("delete_PC_file").enabled);
  select({0, 1});
  EXPECT_EQ(Files(list_).substr(0, 8), "none|0KB");
  EXPECT_EQ(host.boxes.size(), 2u);
  EXPECT_EQ(host.boxes[1].buttons, MessageButtons::OkCancel);
}

// What goes to the phone is what is selected, and what the arrow was offered for.
TEST_F(ComputerPaneTest, TheArrowFollowsEveryWayToSelect) {
  const auto select = [this](std::vector<int> rows, int focus, ListAct act) {
    host.RunEvent([&] {
      list_.SelectByUser(rows, focus);
      list_.released(act);
    });
    return session.icoUpload2.visible();
  };
  Show("Ringtone");  // Anton.MP3, b.mid, none
  const ComputerPane& pane = pages.Page(MediaKind::Ringtone).computer();
  EXPECT_FALSE(select({0}, 0, ListAct::RightButton));
  EXPECT_TRUE(select({0}, 0, ListAct::LeftButton));
  EXPECT_TRUE(select({0, 1}, 1, ListAct::LeftButton));
  EXPECT_EQ(pane.SelectedFile(), u"b.mid");
  EXPECT_TRUE(select({0}, 1, ListAct::LeftButton)) << "a row may have the focus alone";
  EXPECT_EQ(pane.SelectedFile(), u"Anton.MP3");
  EXPECT_FALSE(select({2}, 2, ListAct::OtherKey)) << "a letter leads to another file";
  EXPECT_FALSE(select({}, 0, ListAct::LeftButton));
  EXPECT_EQ(pane.SelectedFile(), u"");
}

TEST_F(ComputerPaneTest, KnowsAFileThatCameAfterTheListWasFilled) {
  Show("Ringtone");
  const ComputerPane& pane = pages.Page(MediaKind::Ringtone).computer();
  EXPECT_TRUE(pane.Holds(u"ANTON.mp3"));
  EXPECT_FALSE(pane.Holds(u"new.mid"));
  PutOnComputer("Ringtone/new.mid", "of an editor");
  EXPECT_TRUE(pane.Holds(u"new.mid"));
  EXPECT_FALSE(pane.Holds(u"Old")) << "a folder";
}

TEST(ComputerSize, IsInWholeKilobytes) {
  ::setenv("LC_ALL", "C", 1);
  const UserLocale locale;
  const std::pair<std::uint64_t, const char16_t*> cases[] = {
      {0, u"0KB"},
      {1, u"1KB"},
      {1024, u"1KB"},
      {2048, u"2KB"},
      {2049, u"3KB"},
      {1234 * 1024, u"1,234KB"},
      {4294967295, u"4,194,304KB"},
      {4294967296 * 3, u"12,582,912KB"},  // 3 short of 12 GB, rounded up
  };
  for (const auto& [bytes, text] : cases) EXPECT_EQ(ComputerSizeText(bytes, locale), text) << bytes;
}

TEST(MimeTypes, ReadsTheDatabase) {
  const TempFolder folder;
  fs::create_directories(folder.Path() / "own/audio");
  fs::create_directories(folder.Path() / "system/audio");
  folder.Write(
      "system/globs2",
      "# a comment\n50:audio/midi:*.mid\n50:application/gzip:*.gz\nnonsense\n"
      "80:application/tgz:*.tar.gz\n50:text/make:Makefile\n50:x/y:*.[0-9]\n60:audio/midi:*.KAR\n");
  folder.Write("own/globs2", "70:audio/own:*.own\n");
  folder.Write("system/audio/midi.xml",
               "<mime-type xmlns='x'><comment>MIDI audio</comment>"
               "<comment xml:lang='de'>MIDI-Audio</comment></mime-type>");
  fs::create_directories(folder.Path() / "system/application");
  folder.Write("system/application/octet-stream.xml",
               "<mime-type><comment>unknown</comment></mime-type>");
  folder.Write("own/audio/own.xml", "<mime-type><comm");
  MimeTypes types({folder.Path() / "own", folder.Path() / "system"});
  const struct {
    const char16_t* name;
    const char* type;
    const char16_t* german;
  } cases[] = {
      {u"a.b.MID", "audio/midi", u"MIDI-Audio"},
      {u"a.kar", "audio/midi", u"MIDI-Audio"},
      {u"x.tar.gz", "application/tgz", u"GZ"},
      {u"makefile", "text/make", u""},
      {u"man.1", "application/octet-stream", u"1"},
      {u"a.own", "audio/own", u"OWN"},
      {u"", "application/octet-stream", u"unknown"},
      {u".profile", "application/octet-stream", u"unknown"},
      {u"Dusk.thm", "application/octet-stream", u"THM"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(types.Type(c.name), c.type) << ToUtf8(c.name);
    EXPECT_EQ(types.Words(c.type, c.name, "de"), c.german) << ToUtf8(c.name);
  }
  EXPECT_EQ(types.Words("audio/midi", u"a.mid", "fr"), u"MIDI audio");
  EXPECT_EQ(MimeTypes({folder.Path() / "none"}).Words("audio/midi", u"a.mid", "de"), u"MID");
}

}  // namespace
}  // namespace tessarin
