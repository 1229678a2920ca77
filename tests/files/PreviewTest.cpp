#include "tests/files/FilePagesBench.h"

namespace tessarin {
namespace {

class RingtonePreviewTest : public FilePagesBench {
 protected:
  RingtonePreviewTest() {
    PutOnPhone("Phone/Ringtones/Ode.mid", "MThd ode");
    PutOnPhone("Phone/Ringtones/bell", "MThd bell");
    PutOnPhone("Phone/Ringtones/loud.mp3", "mp3");
    PutOnPhone("Phone/Ringtones/temp.mid", "MThd temp");
    StartAndConnect();
    OpenAndSearch("Ringtone", session.timerRingtone);
    player.Taken();
  }
  // Which of the three buttons can be pressed.
  std::string Offered() const {
    std::string offered;
    if (session.cmdPlay.enabled) offered += "play ";
    if (session.cmdPause.enabled) offered += "pause ";
    if (session.cmdStop.enabled) offered += "stop ";
    return offered + ToUtf8(pages_.playerState);
  }
  std::string Temp(const char* name) const { return folder.Read(std::string("app/Temp/") + name); }

  ListView& list_ = session.lvwPhoneRingtone;
  RingtonePreview& pages_ = pages.ringtone();
};

TEST_F(RingtonePreviewTest, ThePlayersStatesFollowTheButtons) {
  EXPECT_EQ(Offered(), "");
  struct Step {
    const char* what;
    std::function<void()> act;
    const char* asked;    // of the player
    const char* offered;  // the buttons, then the state
  };
  const Step steps[] = {
      {"select", [this] { Choose(list_, u"Ode"); }, "", "play FIRST"},
      {"play asks for the tune", [this] { Press(session.cmdPlay); }, "", "FIRST"},
      {"the tick fetches and plays", [this] { Tick(session.Timer1); }, "stop close open seek play",
       "pause stop PLAYING"},
      {"play is not offered", [this] { Press(session.cmdPlay); }, "", "pause stop PLAYING"},
      {"pause", [this] { Press(session.cmdPause); }, "pause", "play pause stop PAUSED"},
      {"pause goes on", [this] { Press(session.cmdPause); }, "play", "pause stop PLAYING"},
      {"pause again", [this] { Press(session.cmdPause); }, "pause", "play pause stop PAUSED"},
      {"play goes on", [this] { Press(session.cmdPlay); }, "play", "pause stop PLAYING"},
      {"stop", [this] { Press(session.cmdStop); }, "stop seek", "play STOPPED"},
      {"play from the start", [this] { Press(session.cmdPlay); }, "seek play",
       "pause stop PLAYING"},
      {"another tune", [this] { Choose(list_, u"bell"); }, "stop seek", "play FIRST"},
      {"one of another kind", [this] { Choose(list_, u"loud"); }, "", "FIRST"},
      {"the same by keys", [this] { Choose(list_, u"Ode", ListAct::ArrowKey); }, "", "play FIRST"},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.what);
    step.act();
    EXPECT_EQ(player.Taken(), step.asked);
    EXPECT_EQ(Offered(), step.offered);
  }
  EXPECT_EQ(player.opened, "MThd ode");
  EXPECT_EQ(Temp("temp.mid"), "MThd ode");
  EXPECT_EQ(Temp("Ode.mid"), "(none)");
  EXPECT_TRUE(list_.enabled);
  EXPECT_TRUE(host.boxes.empty());
  host.RequestEnd();
  EXPECT_EQ(player.Taken(), "stop close");
  EXPECT_EQ(Temp("temp.mid"), "(none)");
}

TEST_F(RingtonePreviewTest, EachTuneTakesThePlaceOfTheOneBeforeWhateverItsName) {
  for (const char16_t* name : {u"Ode", u"temp", u"bell"}) {
    Choose(list_, name);
    Press(session.cmdPlay);
    Tick(session.Timer1);
    const std::string tune = "MThd " + (name == Text(u"Ode") ? "ode" : ToUtf8(name));
    EXPECT_EQ(player.opened, tune);
    EXPECT_EQ(Temp("temp.mid"), tune);
  }
  EXPECT_EQ(Temp("Ode.mid") + Temp("bell"), "(none)(none)");
}

TEST_F(RingtonePreviewTest, ATuneThatDoesNotComeIsSilentAndOneThatCannotBePlayedIsTold) {
  settings.With([](phonesim::Behaviour& b) {
    b.refusedOperations[phonesim::ObexOperation::Get] = {0xC4, 1};
  });
  Choose(list_, u"Ode");
  Press(session.cmdPlay);
  EXPECT_FALSE(list_.enabled);
  Tick(session.Timer1);
  EXPECT_EQ(player.Taken(), "stop close");
  EXPECT_EQ(Offered(), "pause stop PLAYING");
  EXPECT_TRUE(host.boxes.empty());
  ExpectIdle();
  settings.With([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });

  const struct {
    MediaError opens, plays;
    const char16_t* command;
    int error;
  } cases[] = {
      {MediaError::NoSoundFont, MediaError::None, u"MCI_Open", text::error::kNoSoundFont},
      {MediaError::FileDamaged, MediaError::None, u"MCI_Open", text::error::kMediaFileDamaged},
      {MediaError::FileMissing, MediaError::None, u"MCI_Open", text::error::kMediaFileMissing},
      {MediaError::None, MediaError::NoAudioDevice, u"MCI_Play", text::error::kNoAudioDevice},
  };
  for (const auto& c : cases) {
    player.opens = c.opens;
    player.plays = c.plays;
    Choose(list_, u"Ode");
    Press(session.cmdPlay);
    Tick(session.Timer1);
    ASSERT_EQ(host.boxes.size(), 1u);
    const Text words = Error(c.error);
    const Text& told = host.boxes[0].text;
    EXPECT_TRUE(told.starts_with(c.command)) << ToUtf8(told);
    EXPECT_NE(told.find(u"Error Number = "), Text::npos);
    EXPECT_NE(told.find(u"Error Description = " + words.substr(0, words.find(u"###1"))), Text::npos)
        << ToUtf8(told);
    EXPECT_EQ(host.boxes[0].title, Word(text::interface_::kMediaErrorTitle));
    EXPECT_EQ(Offered(), "pause stop PLAYING");
    host.boxes.clear();
  }
  ExpectIdle();
}

TEST_F(RingtonePreviewTest, OnlyAChoiceOfATuneOffersItToTheComputer) {
  const std::pair<ListAct, bool> acts[] = {{ListAct::LeftButton, true},
                                           {ListAct::RightButton, false},
                                           {ListAct::ArrowKey, true},
                                           {ListAct::OtherKey, false},
                                           {ListAct::OtherButton, false}};
  for (const auto& [act, offered] : acts) {
    Choose(list_, u"loud", act);
    EXPECT_EQ(session.icoDownload2.enabled, offered) << static_cast<int>(act);
  }
}

class PicturePreviewTest : public FilePagesBench {
 protected:
  PicturePreviewTest() {
    PutOnPhone("Phone/camera_semc/Rings.GIF", "gif bytes");
    PutOnPhone("Phone/camera_semc/dusk.bmp", "bmp bytes");
    PutOnPhone("Phone/camera_semc/photo.png", "png bytes");
    StartAndConnect();
    OpenAndSearch("Logo", session.TimerPicture);
  }
  void Tick1() { Tick(session.Timer1); }
  void TickBox(bool checked) {
    host.RunEvent([&] {
      session.Check1.checked = checked;
      session.Check1.clicked();
    });
  }
  void Edit() {
    host.RunEvent([this] { session.Toolbar1.clicked("Edit"); });
  }
  std::string Shown() const {
    const Bytes& content = session.previewLogo.content;
    return {content.begin(), content.end()};
  }
  bool EditOffered() const { return session.Toolbar1.Find("Edit")->enabled; }

  ListView& list_ = session.lvwPhoneLogo;
};

TEST_F(PicturePreviewTest, ShowsThePictureThatIsSelectedWhileTheBoxIsTicked) {
  EXPECT_FALSE(session.previewLogo.visible);
  Choose(list_, u"Rings");
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  EXPECT_TRUE(EditOffered());
  TickBox(true);
  EXPECT_TRUE(session.previewLogo.visible);
  Choose(list_, u"Rings");
  EXPECT_FALSE(list_.enabled);
  Tick1();
  EXPECT_EQ(Shown(), "gif bytes");
  EXPECT_TRUE(list_.enabled && session.icoDownload3.enabled && EditOffered());
  ExpectIdle();
  Choose(list_, u"photo");
  EXPECT_EQ(Boxes(), std::vector<Text>{Error(text::error::kNoPreview)});
  EXPECT_EQ(Shown(), "");
  EXPECT_TRUE(session.icoDownload3.enabled);
  EXPECT_FALSE(EditOffered());
  Choose(list_, u"dusk", ListAct::ArrowKey);
  Tick1();
  EXPECT_EQ(Shown(), "bmp bytes");
  settings.With(
      [](phonesim::Behaviour& b) { b.refusedOperations[phonesim::ObexOperation::Get] = {}; });
  Choose(list_, u"Rings");
  Tick1();
  EXPECT_EQ(Shown(), "bmp bytes") << "a picture that does not come leaves the one before";
  EXPECT_TRUE(host.boxes.empty());
  ExpectIdle();
  TickBox(false);
  EXPECT_FALSE(session.previewLogo.visible);
}

TEST_F(PicturePreviewTest, HandsThePictureToTheEditor) {
  Choose(list_, u"Rings", ListAct::RightButton);
  EXPECT_TRUE(session.MainMenu.Entry("edit_Logo").enabled);
  Edit();
  EXPECT_EQ(session.commandState, job::kPictureEdit);
  Tick1();
  EXPECT_EQ(starter.started, std::vector<std::string>{"PictureDesk"});
  EXPECT_EQ(starter.argument, (folder.Path() / "app/Temp/Rings.GIF").string());
  EXPECT_EQ(folder.Read("app/Temp/Rings.GIF"), "gif bytes");
  EXPECT_FALSE(session.MainMenu.Entry("edit_Logo").enabled);
  ExpectIdle();

  TickBox(true);
  Choose(list_, u"dusk");
  Tick1();
  Edit();
  EXPECT_EQ(starter.started.size(), 2u) << "a picture that is shown is handed over at once";
  EXPECT_EQ(folder.Read("app/Temp/dusk.bmp"), "bmp bytes");
  folder.Write("app/Temp/Rings.GIF", "what the user made of it");
  Choose(list_, u"Rings", ListAct::RightButton);
  Edit();
  Tick1();
  EXPECT_EQ(folder.Read("app/Temp/Rings.GIF"), "what the user made of it");
  EXPECT_EQ(starter.argument, (folder.Path() / "app/Temp/Rings (2).GIF").string());
  EXPECT_EQ(folder.Read("app/Temp/Rings (2).GIF"), "gif bytes")
      << "not the one that was shown before";
  settings.With(
      [](phonesim::Behaviour& b) { b.refusedOperations[phonesim::ObexOperation::Get] = {}; });
  Choose(list_, u"dusk", ListAct::RightButton);
  Edit();
  Tick1();
  EXPECT_EQ(starter.started.size(), 3u) << "nothing came that could be edited";
  settings.With([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });

  PutOnPhone("Phone/Other/dusk.bmp", "other bytes");
  Choose(list_, u"dusk");
  Tick1();
  Enter(session.tvwPhoneLogo, u"Phone");
  Enter(session.tvwPhoneLogo, u"Phone\\Other");
  Choose(list_, u"dusk", ListAct::RightButton);
  Edit();
  Tick1();
  EXPECT_EQ(folder.Read("app/Temp/dusk (2).bmp"), "other bytes") << "of the same name elsewhere";
}

}  // namespace
}  // namespace tessarin
