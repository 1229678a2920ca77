// Files on their way between both sides, page by page, as a user moves them.

#include "codecs/Faults.h"
#include "core/PageTable.h"
#include "tests/endtoend/EndToEnd.h"
#include "tests/support/ComputerTree.h"
#include "tests/support/OrdinaryUser.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

std::string Content(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 13 + i / 253);
  return bytes;
}

// A page, where it starts on both sides, and a name that it takes.
struct PageCase {
  const char* page;
  MediaKind kind;
  const char16_t* phoneFolder;
  const char* computerFolder;
  const char* stem;
  const char* extension;
};

const PageCase kPageCases[] = {
    {"File", MediaKind::File, u"Phone\\Other", "app/UserData/Java", "READ ME", ""},
    {"Ringtone", MediaKind::Ringtone, u"Phone\\Sounds\\Ringtones", "app/UserData/Ringtone",
     "a.b Ü 山", "MID"},
    {"Logo", MediaKind::Logo, u"Phone\\Pictures\\camera_semc", "app/UserData/Picture", "DSC",
     "jpg"},
    {"Photo", MediaKind::Photo, u"Phone\\Themes", "app/UserData/Theme", "Dusk", "thm"},
    {"Movie", MediaKind::Movie, u"Phone\\Movies\\camera", "app/UserData/Movie", "MOV", "3gp"},
};

class FilesTest : public EndToEnd {
 protected:
  FilesTest() {
    for (const PageCase& page : kPageCases) {
      fs::create_directories(folder.Path() / OnPhone(page, ""));
      fs::create_directories(folder.Path() / page.computerFolder);
    }
    session.TimerPicture.interval = session.TimerMovie.interval = 10;
    session.timerRingtone.interval = 10;
  }

  static std::string OnPhone(const PageCase& page, const std::string& name) {
    return "phone/" + ToUtf8(Replace(page.phoneFolder, u"\\", u"/")) + "/" + name;
  }
  static std::string OnComputer(const PageCase& page, const std::string& name) {
    return std::string(page.computerFolder) + "/" + name;
  }
  static std::string NameOf(const PageCase& page) {
    return std::string(page.stem) + (*page.extension == '\0' ? "" : ".") + page.extension;
  }
  const FilePanes& Panes(const PageCase& page) const {
    for (const FilePanes& panes : session.filePanes()) {
      if (panes.panel == PanelOf(page.page)) return panes;
    }
    throw BoundsError();
  }

  Timer* SearchOf(MediaKind kind) const {
    if (kind == MediaKind::Ringtone) return &session.timerRingtone;
    if (kind == MediaKind::Logo) return &session.TimerPicture;
    return kind == MediaKind::Movie ? &session.TimerMovie : nullptr;
  }

  // Opens the page on the case's folders of both sides.
  void Open(const PageCase& page) {
    ASSERT_TRUE(Does([&] { session.Toolbar2.clicked(page.page); }));
    Timer* search = SearchOf(page.kind);
    ASSERT_TRUE(host.RunUntil([&] { return search == nullptr || !search->enabled; }));
    const FilePanes& panes = Panes(page);
    for (Text key; const Text& part : Split(page.phoneFolder, u"\\")) {
      key += (key.empty() ? u"" : u"\\") + part;
      ASSERT_TRUE(Does([&] { panes.phoneTree.SelectByUser(key); }));
    }
    EXPECT_EQ(panes.phoneTree.SelectedKey(), page.phoneFolder);
    OpenOnComputer(host, panes.computerTree, folder.Path() / page.computerFolder);
  }
  void Choose(ListView& list, const std::string& name) {
    host.RunEvent([&] {
      for (int row = 0; row < list.Count(); ++row) {
        if (list.Cell(row, 0) == FromUtf8(name)) list.SelectByUser({row}, row);
      }
      list.released(ListAct::LeftButton);
    });
  }
  bool Press(Button& arrow) {
    EXPECT_TRUE(arrow.visible && arrow.enabled) << arrow.name();
    return Does([&] { arrow.clicked(); });
  }
  std::vector<Text> Boxes() {
    std::vector<Text> texts;
    for (const auto& box : host.boxes) texts.push_back(box.text);
    host.boxes.clear();
    return texts;
  }
  Text Prompt(int index) const { return session.language().getTSPromptStr(index); }
  Text Error(int index) const { return session.language().getTSErrStr(index); }
  // The link is in AT mode: the next poll of the battery gets its answer.
  void ExpectGoodPoll() {
    Behave([](phonesim::Behaviour& b) { b.battery.level = b.battery.level == 80 ? 81 : 80; });
    const Text before = PanelText(panel::kBattery);
    EXPECT_TRUE(host.RunUntil([&] { return PanelText(panel::kBattery) != before; }));
    EXPECT_EQ(session.statusPhase, kPhonePresent);
  }
};

TEST_F(FilesTest, EachPageMovesItsFilesBothWays) {
  ASSERT_TRUE(StartsAndConnects());
  for (const PageCase& page : kPageCases) {
    SCOPED_TRACE(page.page);
    const std::string name = NameOf(page);
    const std::string content = Content(3000 + name.size());
    folder.Write(OnPhone(page, name), content);
    Open(page);
    const FilePanes& panes = Panes(page);
    EXPECT_FALSE(panes.download.enabled);
    Choose(panes.phoneList, page.stem);
    ASSERT_TRUE(Press(panes.download));
    EXPECT_EQ(Boxes(), std::vector<Text>{Prompt(text::prompt::kFileReceived)});
    EXPECT_TRUE(folder.Read(OnComputer(page, name)) == content);

    fs::remove(folder.Path() / OnPhone(page, name));
    if (page.kind != MediaKind::File) host.answers = {Answer::Ok};  // the list still has the name
    Choose(panes.computerList, name);
    EXPECT_TRUE(panes.upload.visible) << "the new file is in the list at once";
    ASSERT_TRUE(Press(panes.upload));
    EXPECT_TRUE(folder.Read(OnPhone(page, name)) == content);
    EXPECT_EQ(Boxes().back(), Prompt(text::prompt::kFileSent));
    EXPECT_TRUE(panes.phoneList.enabled && panes.computerList.enabled);
  }
  ExpectGoodPoll();
}

TEST_F(FilesTest, AFileOfThatNameIsReplacedOnlyWhenTheUserAgrees) {
  const PageCase& page = kPageCases[1];
  folder.Write(OnPhone(page, "Song.MID"), "from the phone");
  folder.Write(OnComputer(page, "SONG.mid"), "of the computer");
  ASSERT_TRUE(StartsAndConnects());
  Open(page);
  const FilePanes& panes = Panes(page);
  host.answers = {Answer::Cancel, Answer::Cancel, Answer::Ok};
  Choose(panes.phoneList, "Song");
  ASSERT_TRUE(Press(panes.download));
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].title, u"Song.MID");
  EXPECT_EQ(host.boxes[0].buttons, MessageButtons::OkCancel);
  Choose(panes.computerList, "SONG.mid");
  ASSERT_TRUE(Press(panes.upload));
  EXPECT_EQ(Boxes(), std::vector<Text>(2, Prompt(text::prompt::kReplaceFile)));
  EXPECT_EQ(folder.Read(OnPhone(page, "SONG.mid")), "(none)");
  EXPECT_EQ(folder.Read(OnComputer(page, "Song.MID")), "(none)");
  ASSERT_TRUE(Press(panes.upload));
  EXPECT_EQ(folder.Read(OnPhone(page, "SONG.mid")), "of the computer");
  EXPECT_EQ(panes.phoneList.Count(), 1) << "the phone's list waits for a refresh";
}

// All but the File page, which replaces what is there.
TEST_F(FilesTest, EveryMediaPageAsksBothWays) {
  for (const PageCase& page : kPageCases) {
    folder.Write(OnPhone(page, NameOf(page)), "from the phone");
    folder.Write(OnComputer(page, NameOf(page)), "of the computer");
  }
  ASSERT_TRUE(StartsAndConnects());
  for (const PageCase& page : kPageCases) {
    SCOPED_TRACE(page.page);
    const std::string name = NameOf(page);
    const bool asks = page.kind != MediaKind::File;
    Open(page);
    const FilePanes& panes = Panes(page);
    // Presses the arrow until the file has moved; `target` must stay as it is before that.
    const auto move = [&](Button& arrow, int done, const std::string& target) {
      const std::string before = folder.Read(target);
      std::vector<Text> told = {Prompt(done)};
      if (asks) {
        host.answers = {Answer::Cancel, Answer::Ok};
        ASSERT_TRUE(Press(arrow));
        EXPECT_EQ(folder.Read(target), before);
        told.insert(told.begin(), 2, Prompt(text::prompt::kReplaceFile));
      }
      ASSERT_TRUE(Press(arrow));
      EXPECT_EQ(Boxes(), told);
    };
    Choose(panes.phoneList, page.stem);
    move(panes.download, text::prompt::kFileReceived, OnComputer(page, name));
    EXPECT_EQ(folder.Read(OnComputer(page, name)), "from the phone");
    folder.Write(OnComputer(page, name), "changed meanwhile");
    Choose(panes.computerList, name);
    move(panes.upload, text::prompt::kFileSent, OnPhone(page, name));
    EXPECT_EQ(folder.Read(OnPhone(page, name)), "changed meanwhile");
  }
  ExpectGoodPoll();
}

// The phones that a model's rules are for, one after the other on the same line.
TEST_F(FilesTest, EachModelIsOfferedWhatItTakes) {
  const char* const extensions[] = {"mid", "mp3", "amr", "wav",  "imy", "emy", "jpg", "bmp", "gif",
                                    "png", "svg", "mp4", "wbmp", "3gp", "m4a", "thm", "tpl", "txt"};
  const auto fill = [&](const std::string& computerFolder) {
    fs::create_directories(folder.Path() / computerFolder);
    folder.Write(computerFolder + "/bare", "x");
    for (const char* extension : extensions) {
      folder.Write(computerFolder + "/x." + extension, "x");
    }
  };
  for (const char* name : {"Java", "MMS", "Ringtone", "Picture", "Theme", "Movie"}) {
    fill(std::string("app/UserData/") + name);
  }
  const auto offered = [&](const char* page) {
    EXPECT_TRUE(Does([&] { session.Toolbar2.clicked(page); }));
    std::string names;
    for (const FilePanes& panes : session.filePanes()) {
      if (panes.panel != PanelOf(page)) continue;
      if (panes.panel == kFilePanel) {
        OpenOnComputer(host, panes.computerTree, folder.Path() / "app/UserData/Java");
      }
      for (int row = 0; row < panes.computerList.Count(); ++row) {
        const Text name = panes.computerList.Cell(row, 0);
        Choose(panes.computerList, ToUtf8(name));
        if (panes.upload.visible) names += ToUtf8(name.substr(name.find(u'.') + 1)) + " ";
      }
    }
    return names;
  };
  const std::string pictures = "bmp gif jpg png wbmp ", movies = "3gp amr mid mp3 mp4 wav ";
  const struct {
    const char* model;
    std::string ringtones, pictures, movies;
  } cases[] = {
      {"F500", "mid mp3 ", pictures, movies},
      {"K500", "amr mid mp3 wav ", pictures, movies},
      {"K700", "amr mid mp3 wav ", pictures, movies},
      {"S700", "amr emy imy mid mp3 ", "bmp gif jpg png svg wbmp ", "3gp amr m4a mp3 mp4 wav "},
      {"T610", "mid mp3 ", pictures, movies},
      {"W500", "mid mp3 ", pictures, movies},
      {"Z1010", "amr mid mp3 wav ", pictures, "3gp mp4 "},
      {"Z600", "mid mp3 ", "", movies},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.model);
    Behave([&](phonesim::Behaviour& b) { b.identity.modelCode = b.identity.modelName = c.model; });
    phone.Start();
    if (session.statusPhase == kNoPhone && !session.phoneWasSeen) program.Start();
    ASSERT_TRUE(Connects());
    ASSERT_EQ(ToUtf8(session.phoneModel), c.model);
    EXPECT_EQ(offered("Ringtone"), c.ringtones);
    EXPECT_EQ(offered("Logo"), c.pictures);
    EXPECT_EQ(offered("Movie"), c.movies);
    EXPECT_EQ(offered("Photo"), "thm ");
    EXPECT_EQ(offered("MMS"), "tpl ");
    EXPECT_EQ(offered("File"),
              "bare 3gp amr bmp emy gif imy jpg m4a mid mp3 mp4 png svg thm tpl txt wav wbmp ");
    phone.Stop();
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
  }
}

TEST_F(FilesTest, AMessageTemplateGoesToTheServiceWithoutFolders) {
  fs::create_directories(folder.Path() / "app/UserData/MMS");
  folder.Write("app/UserData/MMS/hello.tpl", Content(2000));
  folder.Write("app/UserData/MMS/hello.txt", "x");
  ASSERT_TRUE(StartsAndConnects());
  ASSERT_TRUE(Does([this] { session.Toolbar2.clicked("MMS"); }));
  Choose(session.lvwPCMMS, "hello.txt");
  EXPECT_FALSE(session.icoUpload1.visible);
  Choose(session.lvwPCMMS, "hello.tpl");
  ASSERT_TRUE(Press(session.icoUpload1));
  EXPECT_EQ(Boxes(), std::vector<Text>{Prompt(text::prompt::kFileSent)});
  EXPECT_TRUE(folder.Read("phone/.books/mms/hello.tpl") == Content(2000));
  for (const auto operation : {phonesim::ObexOperation::Connect, phonesim::ObexOperation::Put}) {
    Behave([&](phonesim::Behaviour& b) { b.refusedOperations = {{operation, {0xC3, 1}}}; });
    ASSERT_TRUE(Press(session.icoUpload1));
    EXPECT_EQ(Boxes(), std::vector<Text>{Error(text::error::kSendFile)});
    ExpectGoodPoll();
  }
}

TEST_F(FilesTest, AStepThatFailsIsToldOnceAndLeavesAGoodLink) {
  using phonesim::ObexOperation;
  const PageCase& page = kPageCases[2];
  const std::string name = NameOf(page);
  folder.Write(OnPhone(page, name), Content(5000));
  folder.Write(OnComputer(page, "up.jpg"), Content(5000));
  ASSERT_TRUE(StartsAndConnects());
  Open(page);
  const FilePanes& panes = Panes(page);
  Choose(panes.phoneList, page.stem);
  Choose(panes.computerList, "up.jpg");
  const auto both = [&](const char* step, bool up, bool down) {
    SCOPED_TRACE(step);
    if (down) {
      std::vector<Text> told = {Error(text::error::kReceiveFile)};
      const auto begun = folder.Path() / OnComputer(page, name);
      if (fs::exists(begun)) told.insert(told.begin(), Prompt(text::prompt::kReplaceFile));
      ASSERT_TRUE(Press(panes.download));
      EXPECT_EQ(Boxes(), told);
      EXPECT_EQ(panes.computerList.Count(), fs::exists(begun) ? 2 : 1)
          << "what came of the file stays, and is seen";
    }
    if (up) {
      // A download shows the list anew, and the arrow waits for a choice.
      Choose(panes.computerList, "up.jpg");
      ASSERT_TRUE(Press(panes.upload));
      EXPECT_EQ(Boxes(), std::vector<Text>{Error(text::error::kSendFile)});
    }
    ExpectGoodPoll();
    Choose(panes.phoneList, page.stem);
  };
  const struct {
    const char* name;
    ObexOperation operation;
    phonesim::ObexRefusal refusal;
    bool up, down;
  } steps[] = {
      {"connect", ObexOperation::Connect, {0xD3, 1}, true, true},
      {"root", ObexOperation::SetPath, {0xC3, 1}, true, true},
      {"get", ObexOperation::Get, {0xC4, 1}, false, true},
      {"get, later", ObexOperation::Get, {0xC4, 3}, false, true},
      {"put", ObexOperation::Put, {0xE0, 1}, true, false},
      {"put, later", ObexOperation::Put, {0xE0, 4}, true, false},
  };
  for (const auto& step : steps) {
    Behave([&](phonesim::Behaviour& b) { b.refusedOperations = {{step.operation, step.refusal}}; });
    both(step.name, step.up, step.down);
  }
  Behave([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
  fs::rename(folder.Path() / OnPhone(page, ""), folder.Path() / "phone/away");
  both("folder", true, true);
  EXPECT_EQ(folder.Read("phone/away/up.jpg"), "(none)");
}

TEST_F(FilesTest, WhatTheComputerCannotKeepIsToldAndHarmsNothingElse) {
  const PageCase& page = kPageCases[4];
  folder.Write(OnPhone(page, "full.3gp"), Content(50000));
  folder.Write(OnComputer(page, "other.3gp"), "untouched");
  fs::create_symlink("/dev/full", folder.Path() / OnComputer(page, "full.3gp"));
  ASSERT_TRUE(StartsAndConnects());
  Open(page);
  const FilePanes& panes = Panes(page);
  Choose(panes.phoneList, "full");
  host.answers = {Answer::Ok};
  ASSERT_TRUE(Press(panes.download));
  EXPECT_EQ(Boxes().back(), Error(text::error::kReceiveFile)) << "the disk is full";
  EXPECT_EQ(folder.Read(OnComputer(page, "other.3gp")), "untouched");
  fs::remove(folder.Path() / OnComputer(page, "full.3gp"));
  const fs::path target = folder.Path() / page.computerFolder;
  fs::permissions(target, fs::perms(0555));
  {
    const OrdinaryUser user;
    ASSERT_TRUE(Press(panes.download));
  }
  fs::permissions(target, fs::perms(0755));
  EXPECT_EQ(Boxes().back(), Error(text::error::kReceiveFile)) << "no rights to the folder";
  EXPECT_EQ(folder.Read(OnComputer(page, "full.3gp")), "(none)");
  fs::remove_all(target);
  ASSERT_TRUE(Press(panes.download));
  EXPECT_EQ(Boxes().back(), Error(text::error::kReceiveFile)) << "the folder is gone";
  ExpectGoodPoll();
}

}  // namespace
}  // namespace tessarin
