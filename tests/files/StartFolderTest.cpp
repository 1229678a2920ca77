#include "tests/files/FilePagesBench.h"

namespace tessarin {
namespace {

class StartFolderTest : public FilePagesBench {
 protected:
  StartFolderTest() {
    PutOnPhone("Phone/A/Deep/x.txt", "x");
    PutOnPhone("Phone/Pictures/camera_semc/DSC.JPG", "jpg");
    PutOnPhone("Phone/Sounds/Ringtones/Ode.mid", "MThd");
    PutOnPhone("Phone/Movies/Camera/MOV.3gp", "3gp");
    PutOnPhone("Card/Pictures/camera_semc/none.jpg", "");
    PutOnPhone("Card/Pictures/Image/chess.gif", "gif");
    PutOnPhone("Card/readme.txt", "card");
    StartAndConnect();
  }
  void ChooseStorage(ComboBox& box, int index, Timer& search) {
    host.RunEvent([&] {
      box.Select(index);
      box.clicked();
    });
    Tick(search);  // comes too early: the old tree still stands
    Tick(session.Timer1);
    Tick(search);
  }
};

TEST_F(StartFolderTest, EachPageFindsTheFolderItStartsIn) {
  const struct {
    const char* page;
    Timer& search;
    TreeView& tree;
    ListView& list;
    const char16_t* folder;
    const char* files;
  } cases[] = {
      {"Ringtone", session.timerRingtone, session.tvwPhoneRingtone, session.lvwPhoneRingtone,
       u"Phone\\Sounds\\Ringtones", "Ode|4|mid "},
      {"Logo", session.TimerPicture, session.tvwPhoneLogo, session.lvwPhoneLogo,
       u"Phone\\Pictures\\camera_semc", "DSC|3|JPG "},
      {"Movie", session.TimerMovie, session.tvwPhoneMovie, session.lvwPhoneMovie,
       u"Phone\\Movies\\Camera", "MOV|3|3gp "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.page);
    OpenAndSearch(c.page, c.search);
    EXPECT_EQ(c.tree.SelectedKey(), c.folder);
    EXPECT_EQ(Files(c.list), c.files);
    EXPECT_FALSE(c.search.enabled) << "one search an opening";
    ExpectIdle();
  }
  EXPECT_TRUE(host.boxes.empty());
}

// The whole path counts, and the first folder that fits, wherever it lies.
TEST_F(StartFolderTest, TheFirstPathThatHoldsTheWordIsTheOne) {
  PutOnPhone("Phone/A/My cameras/one.3gp", "3gp");
  OpenAndSearch("Movie", session.TimerMovie);
  EXPECT_EQ(session.tvwPhoneMovie.SelectedKey(), u"Phone\\A\\My cameras");
  std::filesystem::rename(folder.Path() / "phone/Phone/A", folder.Path() / "phone/Phone/CAMERA");
  OpenAndSearch("Movie", session.TimerMovie);
  EXPECT_EQ(session.tvwPhoneMovie.SelectedKey(), u"Phone\\CAMERA");
}

// Behind the click on an arrow, a page is opened that has nothing to read.
TEST_F(StartFolderTest, ATemplateIsNotSentOnceMore) {
  PutOnComputer("MMS/hello.tpl", "hello");
  PutOnComputer("Ringtone/song.mid", "MThd song");
  Open("MMS");
  Choose(session.lvwPCMMS, u"hello.tpl");
  Press(session.icoUpload1);
  Tick(session.Timer1);
  EXPECT_EQ(Boxes(), std::vector<Text>{Prompt(text::prompt::kFileSent)});
  OpenAndSearch("Ringtone", session.timerRingtone);
  Choose(session.lvwPCRingtone, u"song.mid");
  Press(session.icoUpload2);
  EXPECT_FALSE(session.tvwPCRingtone.enabled) << "where the files are, and go, stays until then";
  Open("MMS");
  EXPECT_EQ(Boxes(), std::vector<Text>());
  OpenAndSearch("Ringtone", session.timerRingtone);
  EXPECT_TRUE(session.tvwPCRingtone.enabled && session.lvwPCRingtone.enabled);
  ExpectIdle();
}

TEST_F(StartFolderTest, TheChoiceOfAStorageSearchesAfterTheReload) {
  OpenAndSearch("Logo", session.TimerPicture);
  ChooseStorage(session.combostore, 1, session.TimerPicture);
  EXPECT_EQ(session.storageRoot, u"Card");
  EXPECT_EQ(session.tvwPhoneLogo.SelectedKey(), u"Card\\Pictures\\Image")
      << "the second storage has the second word";
  EXPECT_EQ(Files(session.lvwPhoneLogo), "chess|3|gif ");
  host.RunEvent([this] { session.Toolbar1.clicked("Refresh"); });
  Tick(session.Timer1);
  EXPECT_EQ(session.tvwPhoneLogo.SelectedKey(), u"Card");
  Tick(session.TimerPicture);
  EXPECT_EQ(session.tvwPhoneLogo.SelectedKey(), u"Card\\Pictures\\Image");
  OpenAndSearch("Ringtone", session.timerRingtone);
  ChooseStorage(session.comboStorage, 1, session.timerRingtone);
  EXPECT_EQ(session.tvwPhoneRingtone.SelectedKey(), u"Card") << "there is no such folder";
  EXPECT_EQ(Files(session.lvwPhoneRingtone), "readme|4|txt ");
  Open("Ringtone");
  EXPECT_EQ(session.storageRoot2, u"Phone") << "the page opens on the first storage again";
}

TEST_F(StartFolderTest, ThemesShowThePhonesRootUntilAStorageIsChosen) {
  Open("Photo");
  EXPECT_EQ(session.tvwPhonePhoto.roots()[0]->text, u"T610");
  EXPECT_EQ(session.tvwPhonePhoto.Count(), 3);
  host.RunEvent([this] {
    session.comboStorage3.Select(1);
    session.comboStorage3.clicked();
  });
  Tick(session.Timer1);
  EXPECT_EQ(session.tvwPhonePhoto.roots()[0]->key, u"Card");
  EXPECT_EQ(Files(session.lvwPhonePhoto), "readme|4|txt ");
}

TEST_F(StartFolderTest, MessagesHaveNoFolderButOnAPhoneThatHasOne) {
  Open("MMS");
  ASSERT_EQ(session.tvwPhoneMMS.Count(), 1);
  EXPECT_EQ(session.tvwPhoneMMS.roots()[0]->text, u"unavailable");
  EXPECT_FALSE(session.icoDownload1.visible);
  host.RunEvent([this] { session.tvwPhoneMMS.SelectByUser(u"unavailable"); });
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  session.storageNames.push_back(u"Mms");
  PutOnPhone("Mms/hello.tpl", "hello");
  Open("MMS");
  EXPECT_EQ(session.tvwPhoneMMS.roots()[0]->key, u"Mms");
  EXPECT_EQ(Files(session.lvwPhoneMMS), "hello|5|tpl ");
}

TEST_F(StartFolderTest, APageThatCouldNotBeReadIsNotSearched) {
  settings.With([](phonesim::Behaviour& b) {
    b.refusedOperations[phonesim::ObexOperation::SetPath] = {0xC4, 1};
  });
  OpenAndSearch("Movie", session.TimerMovie);
  EXPECT_EQ(session.tvwPhoneMovie.Count(), 0);
  ExpectIdle();
  settings.With([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
  OpenAndSearch("Movie", session.TimerMovie);
  EXPECT_EQ(session.tvwPhoneMovie.SelectedKey(), u"Phone\\Movies\\Camera");
}

}  // namespace
}  // namespace tessarin
