#include <cstdlib>
#include <set>
#include <thread>

#include "files/frmOverwrite.h"
#include "tests/files/FilePagesBench.h"

namespace tessarin {
namespace {

class ToolsTest : public FilePagesBench {};

TEST_F(ToolsTest, EachPageStartsItsOwn) {
  StartAndConnect();
  session.phoneModel = u"K700";
  const struct {
    const char* page;
    const char* action;
    const char* tool;
  } cases[] = {
      {"MMS", "New", "SlideComposer.exe"},    {"Ringtone", "New", "ScoreWriter.exe"},
      {"Ringtone", "Mp3", "TuneTrimmer.exe"}, {"Logo", "New", "PictureDesk"},
      {"Movie", "New", "ClipCutter.exe"},
  };
  for (const auto& c : cases) {
    starter.started.clear();
    Open(c.page);
    ASSERT_NE(session.Toolbar1.Find(c.action), nullptr) << c.page;
    EXPECT_TRUE(session.Toolbar1.Find(c.action)->enabled);
    host.RunEvent([&] { session.Toolbar1.clicked(c.action); });
    EXPECT_EQ(starter.started, std::vector<std::string>{c.tool}) << c.page;
  }
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ToolsTest, AToolThatIsMissingOrDoesNotStartIsTold) {
  StartAndConnect();
  Open("Movie");
  starter.result = {ToolStart::Result::Missing, {"/one", "/two"}, {}};
  host.RunEvent([this] { session.Toolbar1.clicked("New"); });
  starter.result = {ToolStart::Result::Failed, {}, u"because"};
  host.RunEvent([this] { session.Toolbar1.clicked("New"); });
  const auto told = Boxes();
  ASSERT_EQ(told.size(), 2u);
  for (const TextView word : {u"ClipCutter.exe", u"/one\n/two"}) {
    EXPECT_NE(told[0].find(word), Text::npos) << ToUtf8(told[0]);
  }
  EXPECT_NE(told[1].find(u"because"), Text::npos);
  EXPECT_EQ((told[0] + told[1]).find(u"###"), Text::npos);
}

TEST(ProcessStarter, FindsAToolByEitherNameInOrder) {
  const TempFolder folder;
  const auto make = [&](const std::string& name, const std::string& script) {
    std::filesystem::create_directories((folder.Path() / name).parent_path());
    const auto file = folder.Write(name, script);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  };
  const std::string noted = "#!/bin/sh\nprintf '%s|' \"$0\" \"$@\" > '" +
                            (folder.Path() / "out.part").string() + "'; mv '" +
                            (folder.Path() / "out.part").string() + "' '" +
                            (folder.Path() / "out").string() + "'\n";
  make("second/Tool", noted);
  make("second/Other.exe", noted);
  make("second/broken",
       "\x7f"
       "ELF no program");
  std::filesystem::create_directories(folder.Path() / "first/Tool");  // a folder is no tool
  folder.Write("first/Other", "no rights to run this");
  ::setenv("PATH", (std::string(::getenv("PATH")) + ":/bin:/bin").c_str(), 1);
  ProcessStarter starter({folder.Path() / "first", folder.Path() / "second"});

  for (const auto& [asked, found] :
       {std::pair{"Tool.exe", "second/Tool"}, std::pair{"Other", "second/Other.exe"}}) {
    std::filesystem::remove(folder.Path() / "out");
    EXPECT_EQ(starter.Start(asked, {"a b", "$c"}).result, ToolStart::Result::Started);
    for (int wait = 0; wait < 1000 && folder.Read("out") == "(none)"; ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(folder.Read("out"), (folder.Path() / found).string() + "|a b|$c|");
  }
  const ToolStart broken = starter.Start("broken", {});
  EXPECT_EQ(broken.result, ToolStart::Result::Failed);
  EXPECT_FALSE(broken.reason.empty());
  const ToolStart missing = starter.Start("NoSuchTool.exe", {});
  EXPECT_EQ(missing.result, ToolStart::Result::Missing);
  ASSERT_GT(missing.places.size(), 2u) << "the folders of the path count as well";
  EXPECT_EQ(missing.places[1], folder.Path() / "second");
  EXPECT_EQ(std::set(missing.places.begin(), missing.places.end()).size(), missing.places.size())
      << "each is told once";
}

TEST_F(ToolsTest, TheAnswerBeforeAContactIsReplaced) {
  const struct {
    const char* press;  // null: the window is closed
    std::int16_t mode;
  } cases[] = {{"cmdYes", 1}, {"cmdYesToAll", 2}, {"cmdNo", 3}, {"cmdNoToAll", 4}, {nullptr, 3}};
  Start();
  for (const auto& c : cases) {
    std::int16_t mode = overwrite::kYes;
    frmOverwrite window(host, language, mode);
    window.chkAddNew.checked = true;
    bool cleared = false;
    host.WhenShown("frmOverwrite", [&](Window& shown) {
      cleared = !window.addAsNew();
      window.chkAddNew.checked = true;
      if (c.press == nullptr) {
        shown.Unload();
      } else {
        ScriptedHost::Press(shown, c.press);
      }
    });
    host.RunEvent([&] { window.Show(Modality::Modal); });
    EXPECT_EQ(mode, c.mode);
    EXPECT_TRUE(cleared);
    EXPECT_TRUE(window.addAsNew());
    EXPECT_EQ(window.caption(), Word(411));
    EXPECT_EQ(window.cmdNoToAll.caption(), Word(417));
  }
}

}  // namespace
}  // namespace tessarin
