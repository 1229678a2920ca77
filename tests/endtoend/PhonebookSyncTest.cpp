// The contacts' synchronisation: what is on the phone and in the files of Outlook's folder after
// it.

#include "tests/endtoend/PhonebookSyncBench.h"

namespace tessarin {
namespace {

using phonesim::Books;

using PhonebookSyncTest = PhonebookSyncBench;

TEST_F(PhonebookSyncTest, RowsAreCopiedAndOnlyYesToAllReplaces) {
  ASSERT_TRUE(OpensPhonebook());
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    Select(sync, 0, {0, 3});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "2", "0", "0"));
    EXPECT_EQ(host.Find("frmOverwrite"), nullptr);
    const std::string anna = Holding("FN:Anna\r\n"), ben = Holding("FN:Ben Dale\r\n");
    const Items copied = ReadItems();
    EXPECT_EQ(copied.size(), 2u);
    EXPECT_NE(copied.at(ben).find("TEL;TYPE=WORK"), std::string::npos) << copied.at(ben);

    // Anna is called something else there, and has what the phone knows nothing of.
    Edit(anna, "FN:Anna\r\n", "X-PET;KIND=dog:Rex\r\nFN:Hanna\r\n");
    const Items edited = ReadItems();
    for (const char* button : {"cmdYes", "cmdNo", "cmdNoToAll"}) {
      AnswerOverwrite(button);
      asked.clear();
      Select(sync, 0, {0, 1});
      const bool isFirst = button == std::string("cmdYes");
      EXPECT_EQ(Run(sync, "cmdToRight"),
                " / " + Summary(kOutlook, isFirst ? "1" : "0", "0", isFirst ? "1" : "2"));
      EXPECT_FALSE(asked.empty());
      EXPECT_EQ(ReadItems().at(anna), edited.at(anna)) << button;
    }
    AnswerOverwrite("cmdYesToAll");
    Select(sync, 0, {0, 3});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "0", "2", "0"));
    EXPECT_EQ(asked.substr(0, 5), "Hanna");
    EXPECT_EQ(ReadItems().size(), 3u);
    EXPECT_NE(ReadItems().at(anna).find("X-PET;KIND=dog:Rex\r\nFN:Anna\r\n"), std::string::npos);
    EXPECT_EQ(ReadItems().at(ben), edited.at(ben));
  });
  EXPECT_TRUE(host.boxes.empty());

  // The other way: a contact new to the phone goes into its own memory, one on the SIM stays there.
  WriteItem("carol.vcf", kCarol);
  Edit(Holding("FN:Anna\r\n"), "FN:Anna", "FN:Anneliese");
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(sync.lvwLocation[1].Count(), 4);
    sync.chkLocation[1].checked = true;
    host.RunEvent([&] { sync.chkLocation[1].clicked(); });
    EXPECT_EQ(Run(sync, "cmdToLeft"), Summary(kPhone, "1", "3", "0") + " / ");
  });
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||2\nCarol Diaz|+34600|\n");
  EXPECT_EQ(AtThePhone([](const Books& books) { return books.sim.All().at(1).name; }), "Anneliese");
}

TEST_F(PhonebookSyncTest, ASecondTwoWayRunMovesOnlyWhatWasChanged) {
  WriteItem("carol.vcf", kCarol);
  ASSERT_TRUE(OpensPhonebook());
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "1", "0", "4") + " / " + Summary(kOutlook, "4", "0", "0"));
    EXPECT_EQ(sync.lvwLocation[0].Count(), 5);
    EXPECT_EQ(sync.lvwLocation[1].Count(), 5);
    EXPECT_EQ(Saved("ContactMobile.dat").at(u"Carol Diaz").front(), u"carol") << "saved at once";
  });
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSPromptStr(text::prompt::kSyncWithOutlook));
  const Items first = ReadItems();
  EXPECT_EQ(first.size(), 5u);
  EXPECT_EQ(first.at("carol.vcf"), kCarol);
  const std::string cards = Cards();
  const auto counter = Counter();

  // With nothing changed, read anew by a program that has just been started.
  ReadAgain();
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "0", "5") + " / " + Summary(kOutlook, "0", "0", "5"));
  });
  EXPECT_EQ(ReadItems(), first);
  EXPECT_EQ(Counter(), counter);

  AwaitNextSecond();
  SetWorkNumber("Dale", "999");
  ReadAgain();
  const std::string ben = Holding("FN:Ben Dale\r\n");
  Edit(Holding("+86138"), "+86138", "+86139");
  Edit(Holding("FN:Anna\r\n"), "FN:Anna", "FN:Anneliese");
  Items edited = ReadItems();
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "2", "3") + " / " + Summary(kOutlook, "0", "1", "4"));
  });
  EXPECT_EQ(Cards(), "芳 王|+86139|\nBen Dale||999\nCarol Diaz|+34600|\n");
  EXPECT_EQ(Counter(), counter + 2) << "somebody's at the phone, and ours";
  EXPECT_EQ(AtThePhone([](const Books& books) { return books.sim.All(); }),
            (phonesim::SimBook::Entries{{1, {"Anneliese", "+49176"}}, {4, {"Žofie", "2"}}}));
  Items now = ReadItems();
  EXPECT_NE(now.at(ben).find("999"), std::string::npos);
  now.erase(ben);
  edited.erase(ben);
  EXPECT_EQ(now, edited);

  // What is deleted on one side comes back from the other.
  AtThePhone([](Books& books) { books.contacts.Remove(books.contacts.Entries()[1].luid); });
  ReadAgain();
  std::filesystem::remove(folder.Path() / items_ / "carol.vcf");
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "1", "0", "4") + " / " + Summary(kOutlook, "1", "0", "3"));
  });
  EXPECT_NE(Cards().find("Ben Dale||999\n"), std::string::npos);
  EXPECT_NE(Holding("FN:Carol Diaz\r\n"), "");
}

TEST_F(PhonebookSyncTest, TheOwnBookTakesPartAndIsEditedOnTheWay) {
  ASSERT_TRUE(OpensPhonebook());
  Between(kPhone, kOwnBook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "0", "4") + " / " + Summary(kOwnBook, "4", "0", "0"));
    EXPECT_EQ(host.boxes.back().text,
              session.language().getTSPromptStr(text::prompt::kSyncWithLocalBook));
    EXPECT_FALSE(sync.Toolbar1.Find("edit")->enabled);

    AwaitNextSecond();
    Select(sync, 1, {3});
    EXPECT_TRUE(sync.Toolbar1.Find("edit")->enabled);
    host.WhenShown("frmAddContact", [this](Window& window) {
      auto& editor = static_cast<frmAddContact&>(window);
      EXPECT_EQ(editor.caption(), u"Tessarin " + Word(text::interface_::kMenuEdit));
      EXPECT_EQ(editor.Text1.text(), u"Ben Dale");
      editor.Text2[1].text = u"777";
      ScriptedHost::Press(window, "Command1");
    });
    host.RunEvent([&] { sync.Toolbar1.clicked("edit"); });
    EXPECT_EQ(sync.lvwLocation[1].Cell(3, 3), u"777");
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "1", "3") + " / " + Summary(kOwnBook, "0", "0", "4"));
    EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||777\n");

    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
      Select(sync, 1, {2});
      host.answers = {answer};
      host.RunEvent([&] { sync.Toolbar1.clicked("delete"); });
      EXPECT_EQ(host.boxes.back().text.find(u"###"), Text::npos);
      EXPECT_NE(host.boxes.back().text.find(u"芳 王"), Text::npos);
    }
    EXPECT_EQ(sync.lvwLocation[1].Count(), 3);
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "0", "4") + " / " + Summary(kOwnBook, "1", "0", "3"));
  });
  EXPECT_TRUE(ReadItems().empty());

  AwaitNextSecond();
  WriteItem("carol.vcf", kCarol);
  for (const bool isFirst : {true, false}) {
    Between(kOwnBook, kOutlook, [&](frmPhonebookSync& sync) {
      EXPECT_EQ(Run(sync, "cmdSync"),
                isFirst
                    ? Summary(kOwnBook, "1", "0", "4") + " / " + Summary(kOutlook, "4", "0", "0")
                    : Summary(kOwnBook, "0", "0", "5") + " / " + Summary(kOutlook, "0", "0", "5"));
    });
  }
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||777\n") << "the phone takes no part";
  for (const bool isFirst : {true, false}) {
    Between(kPhone, kOwnBook, [&](frmPhonebookSync& sync) {
      EXPECT_EQ(Run(sync, "cmdSync"),
                isFirst
                    ? Summary(kPhone, "1", "4", "0") + " / " + Summary(kOwnBook, "0", "0", "4")
                    : Summary(kPhone, "0", "0", "5") + " / " + Summary(kOwnBook, "0", "0", "5"));
    });
  }
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||777\nCarol Diaz|+34600|\n");
  host.RequestEnd();
  const auto book = Saved("ContactTSC.dat");
  EXPECT_EQ(book.size(), 5u);
  EXPECT_EQ(book.at(u"Carol Diaz").front(), u"carol");
  EXPECT_EQ(book.at(u"Ben Dale").at(5), u"777");
}

// A memory that was not read looks empty, and all that the other side knows would be added again.
TEST_F(PhonebookSyncTest, ThePhoneTakesPartOnceItIsRead) {
  WriteItem("carol.vcf", kCarol);
  AnswerAsking("Command2");
  ASSERT_TRUE(OpensPhonebook());
  const auto canRun = [](frmPhonebookSync& sync) {
    EXPECT_EQ(sync.cmdSync.enabled(), sync.cmdToLeft.enabled());
    EXPECT_EQ(sync.cmdSync.enabled(), sync.cmdToRight.enabled());
    EXPECT_EQ(sync.cmdSync.enabled(), sync.Toolbar1.Find("sync")->enabled);
    return sync.cmdSync.enabled();
  };
  for (const char16_t* read : {u"", u"SM"}) {
    if (*read != 0) Does([&] { session.tvwPhonePhonebook.SelectByUser(read); });
    Between(kOutlook, kPhone, [&](frmPhonebookSync& sync) {
      EXPECT_FALSE(canRun(sync));
      EXPECT_EQ(sync.lblChoose.text(), Word(text::interface_::kSyncReadPhone));
    });
  }
  Between(kOutlook, kOwnBook, [&](frmPhonebookSync& sync) {
    EXPECT_TRUE(canRun(sync));
    EXPECT_EQ(sync.lblChoose.text(), Word(text::interface_::kSyncChoose));
  });
  Does([&] { session.tvwPhonePhonebook.SelectByUser(u"ME"); });
  Between(kOutlook, kPhone, [&](frmPhonebookSync& sync) {
    EXPECT_TRUE(canRun(sync));
    // Another connection, in which nothing is read.
    phone.HangUp();
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
    phone.Restart();
    ASSERT_TRUE(Connects());
    EXPECT_FALSE(canRun(sync));
    EXPECT_EQ(sync.lvwLocation[1].Count(), 0);
  });
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||2\n");
}

// A click, and the window is left before the tick that would begin the run.
TEST_F(PhonebookSyncTest, ARunThatWasAskedForGoesWithItsWindow) {
  ASSERT_TRUE(OpensPhonebook());
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    Select(sync, 0, {0, 1});
    host.RunEvent([&] { ScriptedHost::Press(sync, "cmdToRight"); });
  });
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
  EXPECT_TRUE(ReadItems().empty());
}

}  // namespace
}  // namespace tessarin
