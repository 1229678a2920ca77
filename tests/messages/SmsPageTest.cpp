#include "messages/SmsPage.h"

#include <algorithm>

#include "tests/messages/MessageBench.h"

namespace tessarin {
namespace {

namespace words = text::interface_;

class SmsPageTest : public MessageBench {
 protected:
  void FillStores() {
    stores[u"\"SM\""] = {{1, {0, Deliver('a')}}, {4, {1, Deliver('b')}}, {5, {1, Deliver('c')}}};
    stores[u"\"ME\""] = {{2, {1, PartOfThree(1, 'x')}},
                         {3, {1, PartOfThree(2, 'y')}},
                         {9, {1, PartOfThree(3, 'z')}}};
  }
};

TEST_F(SmsPageTest, ReadsBothStoresIntoItsFolders) {
  FillStores();
  EXPECT_FALSE(session.tvwPhoneSMS.enabled);
  OpenPage();
  std::string tree;
  for (const auto& node : session.tvwPhoneSMS.roots()[0]->children) {
    tree += ToUtf8(node->key + u"=" + node->text) + " ";
  }
  EXPECT_EQ(session.tvwPhoneSMS.roots()[0]->key, u"Node1");
  EXPECT_EQ(tree, "S0=Unread S1=Read S2=Unsent S3=Sent ");
  EXPECT_TRUE(session.tvwPhoneSMS.enabled);
  EXPECT_EQ(Keys(), "SIM0 ") << "the unread ones come first";
  EXPECT_TRUE(session.lvwPhoneSMS.Row(0).bold);
  EXPECT_EQ(session.lvwPhoneSMS.Row(0).toolTip, language.Filled(words::kSenderTip, {Text(u"Bob")}));
  OpenFolder(u"S1");
  EXPECT_EQ(Keys(), "SIM1 SIM2 MEM0MEM1MEM2 ");
  OpenFolder(u"S3");
  EXPECT_EQ(Keys(), "");
  EXPECT_EQ(session.lvwPhoneSMS.emptyText(), Word(words::kFolderEmpty));
  OpenFolder(u"Node1");
  EXPECT_EQ(Keys(), "");
  EXPECT_EQ(session.commandState, job::kIdlePoll);
  EXPECT_FALSE(busyWindow.IsLoaded());
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(SmsPageTest, CountsItsMessagesOnlyInFront) {
  FillStores();
  OpenPage();
  EXPECT_EQ(session.StatusBar1.Panel(panel::kCount).text, u"Messages: 1");
  host.RunEvent([this] { session.Toolbar1.clicked("Refresh"); });
  session.ShowStartPanel();
  Tick(session.Timer1);
  EXPECT_EQ(Keys(), "SIM0 ");
  EXPECT_EQ(session.StatusBar1.Panel(panel::kCount).text, u"");
}

TEST_F(SmsPageTest, ShowsARowAndOffersWhatCanBeDoneWithIt) {
  FillStores();
  OpenPage();
  for (const char* action : {"New", "Refresh"}) EXPECT_TRUE(CanDo(action)) << action;
  for (const char* action : {"Save", "Delete", "Reply", "Forward"}) {
    EXPECT_FALSE(CanDo(action)) << action;
  }
  OpenFolder(u"S1");
  Select({2});
  EXPECT_EQ(session.rtbSMS.text(), u"Date:\t15/06/2004 13:05:18\nFrom/To:\t1234\n\nText:\nxyz");
  EXPECT_EQ(page.currentMessageText(), u"xyz");
  for (const char* action : {"Save", "Delete", "Reply", "Forward"}) {
    EXPECT_TRUE(CanDo(action)) << action;
  }
  host.RunEvent([this] { session.ChangeLanguage(4); });
  EXPECT_EQ(session.tvwPhoneSMS.Find(u"S1")->text, Word(words::kMessageFolders + 1));
  EXPECT_TRUE(session.rtbSMS.text->starts_with(Word(words::kReadingDate)));
  EXPECT_EQ(session.lvwPhoneSMS.Current(), 2);
  OpenFolder(u"S0");
  EXPECT_EQ(session.rtbSMS.text(), u"");
  EXPECT_FALSE(CanDo("Reply"));
}

TEST_F(SmsPageTest, SortsByTheHeadsOfItsColumns) {
  stores[u"\"SM\""] = {{1, {1, Deliver('b')}}, {2, {1, Deliver('a')}}, {3, {1, Deliver('c')}}};
  stores[u"\"SM\""][1].pdu.replace(16, 2, "50");  // the year 2005; text order is not date order
  OpenPage();
  OpenFolder(u"S1");
  Select({0});
  const auto sorted = [this](int column) {
    host.RunEvent([&] { session.lvwPhoneSMS.columnClicked(column); });
    return Keys();
  };
  EXPECT_EQ(sorted(3), "SIM1 SIM0 SIM2 ");
  EXPECT_EQ(session.lvwPhoneSMS.sortColumn, 3);
  EXPECT_EQ(session.lvwPhoneSMS.Current(), 1) << "the selection goes with its row";
  EXPECT_EQ(sorted(3), "SIM2 SIM0 SIM1 ");
  EXPECT_EQ(sorted(4), "SIM2 SIM1 SIM0 ");
  EXPECT_EQ(sorted(4), "SIM0 SIM2 SIM1 ");
  EXPECT_FALSE(session.lvwPhoneSMS.sortAscending);
  EXPECT_EQ(sorted(1), "SIM0 SIM2 SIM1 ");
  Click("Refresh");
  EXPECT_EQ(session.lvwPhoneSMS.sortColumn, -1);
}

TEST_F(SmsPageTest, AStoreThatCannotBeReadIsToldAndLeavesTheListsEmpty) {
  FillStores();
  refuses = u"AT+CPMS=\"ME\"";
  OpenPage();
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(text::error::kReadMessages));
  EXPECT_EQ(Keys(), "");
  EXPECT_EQ(page.mailbox().simMessages.size(), 3u);
  EXPECT_TRUE(session.tvwPhoneSMS.enabled);
  EXPECT_TRUE(CanDo("Refresh"));
  refuses.clear();
  Click("Refresh");
  EXPECT_EQ(Keys(), "SIM0 ");
  stores[u"\"SM\""].clear();
  stores[u"\"ME\""].clear();
  Click("Refresh");
  EXPECT_EQ(Keys(), "") << "nothing of an earlier reading stays";
  EXPECT_EQ(host.boxes.size(), 1u);
}

TEST_F(SmsPageTest, DeletesEveryPartOfWhatIsSelected) {
  FillStores();
  OpenPage();
  OpenFolder(u"S1");
  Select({0, 2});
  host.answers = {Answer::Cancel};
  Click("Delete");
  EXPECT_EQ(stores[u"\"ME\""].size(), 3u);
  line.sent.clear();
  Click("Delete");
  ASSERT_EQ(host.boxes.size(), 2u);
  EXPECT_EQ(host.boxes[1].text, language.getTSPromptStr(text::prompt::kDeleteMessages));
  EXPECT_EQ(host.boxes[1].buttons, MessageButtons::OkCancel);
  EXPECT_EQ(line.sent,
            (std::vector<Text>{u"AT+CPMS=\"SM\"", u"AT+CMGD=4", u"AT+CPMS=\"ME\"", u"AT+CMGD=2",
                               u"AT+CPMS=\"ME\"", u"AT+CMGD=3", u"AT+CPMS=\"ME\"", u"AT+CMGD=9"}));
  EXPECT_EQ(session.commandState, job::kLoadMessages);
  Tick(session.Timer1);
  EXPECT_EQ(Keys(), "SIM1 ") << "the folder that stood open stands open again";

  refuses = u"AT+CMGD";
  Select({0});
  Click("Delete");
  Tick(session.Timer1);
  EXPECT_EQ(Keys(), "SIM1 ") << "what could not be deleted shows again";
  EXPECT_EQ(host.boxes.size(), 3u);
}

// Up to a second passes between the user's answer and the job.
TEST_F(SmsPageTest, DeletesWhatWasConfirmedWhateverIsSelectedThen) {
  FillStores();
  OpenPage();
  OpenFolder(u"S1");
  const auto confirm = [this] {
    Select({0});
    line.sent.clear();
    host.RunEvent([this] { session.Toolbar1.clicked("Delete"); });
  };
  const std::vector<std::pair<const char*, std::function<void()>>> meanwhile = {
      {"the next row", [this] { Select({1}); }},
      {"another folder", [this] { OpenFolder(u"S0"); }},
      {"another order", [this] { session.lvwPhoneSMS.columnClicked(3); }},
  };
  for (const auto& [name, act] : meanwhile) {
    stores[u"\"SM\""][4] = {1, Deliver('b')};
    Click("Refresh");
    OpenFolder(u"S1");
    confirm();
    host.RunEvent(act);
    Tick(session.Timer1);
    EXPECT_EQ(line.sent, (std::vector<Text>{u"AT+CPMS=\"SM\"", u"AT+CMGD=4"})) << name;
    Tick(session.Timer1);
  }
  // A reading that was asked for last takes the place of the deletion, once and for all.
  OpenFolder(u"S1");
  confirm();
  Click("Refresh");
  session.commandState = job::kDeleteMessages;
  Tick(session.Timer1);
  EXPECT_EQ(std::count(line.sent.begin(), line.sent.end(), u"AT+CMGD=5"), 0);
}

// With Ctrl a row can be current without being selected.
TEST_F(SmsPageTest, ThePaneAndTheAnswerKeepToASelectedRow) {
  FillStores();
  stores[u"\"SM\""][5].pdu.replace(8, 4, "6587");  // another sender
  OpenPage();
  OpenFolder(u"S1");
  const auto select = [this](const std::vector<int>& rows, int current) {
    host.RunEvent([&] { session.lvwPhoneSMS.SelectByUser(rows, current); });
  };
  Text recipients, text;
  host.WhenShown("frmComposeSMS", [&](Window& window) {
    recipients = static_cast<frmComposeSMS&>(window).Text1.text();
    text = static_cast<frmComposeSMS&>(window).RichTextBox1.text();
    ScriptedHost::Press(window, "cmdCancel");
  });
  select({0, 1}, 1);
  EXPECT_EQ(page.currentMessageText(), u"c");
  select({0}, 1);
  EXPECT_EQ(page.currentMessageText(), u"b");
  Click("Reply");
  EXPECT_EQ(recipients, u"1234");
  EXPECT_EQ(text, u"b");
  select({1, 2}, -1);
  EXPECT_EQ(page.currentMessageText(), u"c");
  EXPECT_TRUE(CanDo("Delete"));
  Click("Reply");
  EXPECT_EQ(recipients, u"5678");
  select({}, 1);
  EXPECT_EQ(session.rtbSMS.text(), u"");
  EXPECT_FALSE(CanDo("Save"));
}

TEST_F(SmsPageTest, SavesWhatIsSelectedAsOneDocument) {
  FillStores();
  OpenPage();
  OpenFolder(u"S1");
  Select({1, 2});
  Click("Save");
  EXPECT_TRUE(page.rtbSMSBuffer().Runs().empty()) << "no name, no file";
  const auto file = folder.Path() / "messages";
  host.files = {file};
  Click("Save");
  ASSERT_EQ(host.questions.size(), 2u);
  EXPECT_EQ(host.questions[1].caption, Word(words::kSaveTitle));
  EXPECT_EQ(host.questions[1].folder, session.smsFolder);
  const Text head = u"Date:\t15/06/2004 13:05:18\r\nFrom/To:\t1234\r\n\r\nText:\r\n";
  const RichText::Style style = {u"Times New Roman", 12, true};
  ASSERT_EQ(page.rtbSMSBuffer().Runs().size(), 1u);
  EXPECT_EQ(page.rtbSMSBuffer().Runs()[0].style, style);
  EXPECT_EQ(page.rtbSMSBuffer().Runs()[0].text,
            head + u"c\r\n\r\n\r\n" + head + u"xyz\r\n\r\n\r\n");
  EXPECT_EQ(folder.Read("messages"), page.rtbSMSBuffer().Document());
  EXPECT_TRUE(host.boxes.empty());

  host.files = {folder.Path() / "nowhere" / "messages"};
  Click("Save");
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
  EXPECT_EQ(host.boxes[0].text.find(u"###"), Text::npos);
}

TEST_F(SmsPageTest, OpensTheComposerWithRecipientAndText) {
  FillStores();
  OpenPage();
  OpenFolder(u"S1");
  Select({2});
  std::string opened;
  host.WhenShown("frmComposeSMS", [&](Window& window) {
    auto& shown = static_cast<frmComposeSMS&>(window);
    opened += ToUtf8(shown.Text1.text() + u"|" + shown.RichTextBox1.text()) + " ";
    ScriptedHost::Press(window, "cmdCancel");
  });
  for (const char* action : {"New", "Reply", "Forward"}) Click(action);
  EXPECT_EQ(opened, "| 1234|xyz |xyz ");
}

TEST_F(SmsPageTest, ALostPhoneTakesItsMessagesAlong) {
  FillStores();
  OpenPage();
  Select({0});
  port.levels = {65535, 65535, 65535};
  port.level = 65535;
  Tick(session.Timer1);
  EXPECT_EQ(session.statusPhase, kNoPhone);
  EXPECT_EQ(session.tvwPhoneSMS.Count(), 0);
  EXPECT_EQ(session.lvwPhoneSMS.Count(), 0);
  EXPECT_EQ(session.rtbSMS.text(), u"");
  EXPECT_FALSE(page.CanDo("New"));
  EXPECT_FALSE(page.CanDo("Delete"));
}

}  // namespace
}  // namespace tessarin
