// The rules of life that hold in every window system, proved with the scripted one.

#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "tests/support/ScriptedHost.h"

namespace tessarin {
namespace {

using Names = std::vector<std::string>;

class TestWindow : public Window {
 public:
  TestWindow(WindowHost& host, std::string name, Names& life)
      : Window(host, std::move(name)), life_(life) {}

  std::function<void()> loading, unloading;
  Button Command1{*this, "Command1"};
  Timer Timer1{*this, "Timer1", 1};

 protected:
  void FormLoad() override {
    life_.push_back("load " + name());
    if (loading) loading();
  }
  void FormUnload() override {
    life_.push_back("unload " + name());
    if (unloading) unloading();
  }

 private:
  Names& life_;
};

class HostTest : public testing::Test {
 protected:
  HostTest() {
    host_.SetMainWindow(main_);
    main_.unloading = [this] { host_.UnloadOthers(main_); };
    dialog_.Command1.clicked.Always([this] { dialog_.Unload(); });
  }

  void TearDown() override {
    for (Window* window : {&main_, &dialog_}) window->Unload();
  }

  void ShowMain() {
    host_.RunEvent([this] { main_.Show(Modality::Modeless); });
    life_.clear();
  }

  ScriptedHost host_;
  Names life_;
  TestWindow main_{host_, "main", life_};
  TestWindow dialog_{host_, "dialog", life_};
};

TEST_F(HostTest, ShowLoadsAndUnloadTakesAwayAgainAndAgain) {
  ShowMain();
  dialog_.Show(Modality::Modeless);
  dialog_.Show(Modality::Modeless);
  EXPECT_TRUE(dialog_.IsLoaded());
  dialog_.Unload();
  dialog_.Unload();
  dialog_.Show(Modality::Modeless);
  EXPECT_EQ(life_, (Names{"load dialog", "unload dialog", "load dialog"}));
  EXPECT_EQ(host_.gone, Names{"dialog"});
  EXPECT_FALSE(host_.IsEnding());
}

TEST_F(HostTest, AWindowThatUnloadsItselfWhileLoadingIsNeverSeen) {
  dialog_.loading = [this] { dialog_.Unload(); };
  dialog_.Show(Modality::Modal);
  EXPECT_EQ(host_.shown, Names{});
  EXPECT_FALSE(dialog_.IsLoaded());
}

// A dialog on the stack is gone with the fault that came out of it.
TEST_F(HostTest, AFaultWhileAWindowLoadsTakesItAway) {
  ShowMain();
  host_.RunEvent([this] {
    TestWindow shortLived(host_, "short", life_);
    shortLived.loading = [] { throw BoundsError(); };
    shortLived.Show(Modality::Modal);
  });
  EXPECT_EQ(host_.shown, Names{"main"});
  EXPECT_EQ(host_.boxes.size(), 1u);
  EXPECT_EQ(life_, (Names{"load short", "unload main"}));
}

TEST_F(HostTest, AModalShowReturnsWhenTheWindowIsTakenAway) {
  ShowMain();
  host_.WhenShown("dialog", [](Window& window) { ScriptedHost::Press(window, "Command1"); });
  bool wentOn = false;
  host_.RunEvent([&] {
    dialog_.Show(Modality::Modal);
    wentOn = true;
  });
  EXPECT_TRUE(wentOn);
  EXPECT_FALSE(host_.IsEnding());
}

TEST_F(HostTest, AFaultInAnEventShowsOneMessageAndUnloadsTheMainWindow) {
  const struct {
    std::function<void()> event;
    Text message;
  } cases[] = {
      {[] { throw BoundsError(); }, u"Subscript out of range"},
      {[] { throw std::runtime_error("T\xC3\xBCr"); }, u"Tür"},
  };
  for (const auto& c : cases) {
    ScriptedHost host;
    TestWindow window(host, "main", life_);
    host.SetMainWindow(window);
    host.RunEvent([&] { window.Show(Modality::Modeless); });
    int ticks = 0;
    window.Timer1.tick.Always([&] {
      ++ticks;
      c.event();
    });
    window.Timer1.enabled = true;
    host.whileBoxStands = [&] {
      EXPECT_TRUE(window.IsLoaded());
      for (int i = 0; i < 3; ++i) host.RunEvent([&] { window.Timer1.tick(); });
    };
    EXPECT_TRUE(host.RunUntilQuit());
    EXPECT_EQ(ticks, 1) << "no tick runs into the same fault behind the box";
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, c.message);
    EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
    EXPECT_EQ(life_.back(), "unload main");
  }
}

TEST_F(HostTest, AFaultInTheMainWindowsLoadEndsTheProgramToo) {
  main_.loading = [] { throw BoundsError(); };
  host_.RunEvent([this] { main_.Show(Modality::Modeless); });
  EXPECT_EQ(host_.shown, Names{});
  EXPECT_EQ(host_.boxes.size(), 1u);
  EXPECT_EQ(life_, (Names{"load main", "unload main"}));
  EXPECT_GE(host_.quits, 1);
}

// A tick shows a modal window, whose tick shows another, and there the end comes.
TEST_F(HostTest, TheEndUnwindsNestedModalWindowsFromTheInnermost) {
  const struct {
    const char* name;
    std::function<void(ScriptedHost&)> end;
    std::size_t boxes;
  } cases[] = {
      {"a request", [](ScriptedHost& host) { host.RequestEnd(); }, 0},
      {"a fault", [](ScriptedHost&) { throw BoundsError(); }, 1},
      {"a request while something waits",
       [](ScriptedHost& host) {
         host.whileWaiting = [&host] { host.RequestEnd(); };
         host.YieldToScreen();
         ADD_FAILURE() << "the wait went on";
       },
       0},
      {"a request while a message stands",
       [](ScriptedHost& host) {
         host.whileBoxStands = [&host] { host.RequestEnd(); };
         host.MessageBox(u"?", MessageKind::Question, MessageButtons::YesNo);
         ADD_FAILURE() << "the question was answered";
       },
       1},
      {"a request while a file is asked for",
       [](ScriptedHost& host) {
         host.whileBoxStands = [&host] { host.RequestEnd(); };
         host.AskSaveFile({});
         ADD_FAILURE() << "the question was answered";
       },
       0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Names life;
    ScriptedHost host;
    TestWindow main(host, "main", life), outer(host, "outer", life), inner(host, "inner", life);
    host.SetMainWindow(main);
    main.unloading = [&] { host.UnloadOthers(main); };
    const auto showModal = [&life](TestWindow& window) {
      struct Leave {
        Names& life;
        std::string name;
        ~Leave() { life.push_back("leave " + name); }
      } leave{life, window.name()};
      window.Show(Modality::Modal);
      ADD_FAILURE() << "went on behind " << window.name();
    };
    host.WhenShown("outer", [&](Window&) { showModal(inner); });
    host.WhenShown("inner", [&](Window&) { c.end(host); });
    host.RunEvent([&] { main.Show(Modality::Modeless); });
    host.RunEvent([&] { showModal(outer); });
    EXPECT_EQ(life, (Names{"load main", "load outer", "load inner", "leave inner", "leave outer",
                           "unload main"}));
    EXPECT_EQ(host.gone, (Names{"inner", "outer", "main"}));
    EXPECT_EQ(host.boxes.size(), c.boxes);
    EXPECT_GE(host.quits, 1);
  }
}

TEST_F(HostTest, NothingRunsAfterTheEnd) {
  ShowMain();
  main_.Timer1.enabled = true;
  int ticks = 0;
  main_.Timer1.tick.Always([&] { ++ticks; });
  host_.RequestEnd();
  host_.RunEvent([&] { ++ticks; });
  host_.RequestEnd();
  EXPECT_FALSE(host_.RunUntil([] { return false; }, std::chrono::milliseconds(20)));
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(life_, Names{"unload main"}) << "once";
  EXPECT_THROW(host_.YieldToScreen(), ProgramEnding);
  EXPECT_THROW(host_.MessageBox(u"late"), ProgramEnding);
}

TEST_F(HostTest, ARequestBeforeAnythingWasShownJustQuits) {
  host_.RequestEnd();
  EXPECT_EQ(host_.quits, 1);
  EXPECT_EQ(life_, Names{});
}

// The user may close the main window from a menu: an event like any other.
TEST_F(HostTest, UnloadingTheMainWindowInAnEventEndsTheProgram) {
  ShowMain();
  dialog_.Show(Modality::Modeless);
  host_.RunEvent([this] { main_.Unload(); });
  EXPECT_TRUE(host_.IsEnding());
  EXPECT_EQ(life_, (Names{"load dialog", "unload main", "unload dialog"}));
  EXPECT_EQ(host_.gone, (Names{"dialog", "main"}));
  EXPECT_GE(host_.quits, 1);
}

}  // namespace
}  // namespace tessarin
