#include "tests/phonebook/PhonebookBench.h"

namespace tessarin {
namespace {

class PageTest : public PhonebookBench {};

TEST_F(PageTest, ReadsBothMemoriesWhileConnecting) {
  Connect({{1, {"Zoë", "+441"}}, {2, {"abel", "2"}}, {250, {"Ж \"汉\"", "*#3"}}},
          {{{"given", "Maja"}, {"family", "Björk"}, {"cell", "+46701740601"}, {"home", "1"}},
           {{"given", "李"}, {"work", "2"}, {"fax", "3"}},
           {{"given", "ann"}}});
  EXPECT_EQ(Written("AT+CPBR="), 26u) << "the range, and 25 times ten places";
  EXPECT_EQ(host.gone.back(), "bar");
  EXPECT_EQ(Shown(), (Names{u"ann", u"Maja Björk", u"李"}));
  EXPECT_EQ(list.Cell(1, 1), u"   Home:1   Mobile:+46701740601");
  EXPECT_EQ(list.Cell(2, 1), u"   Work:2");
  EXPECT_EQ(list.Cell(0, 2), u"00006");
  EXPECT_EQ(PanelText(panel::kCount), u"Contacts: 3");
  EXPECT_EQ(session.pbChangeCounter, 3) << "one change for each card";
  Click(u"SM");
  EXPECT_EQ(session.commandState, job::kIdlePoll) << "shown at once";
  EXPECT_EQ(Shown(), (Names{u"abel", u"Zoë", u"Ж \"汉\""}));
  EXPECT_EQ(list.Cell(0, 1), u"2");
  const Contact& first = lists.phoneContacts->item(1);
  EXPECT_EQ(first.GetData(0), Text(clsT610ContactList::GetTEMPID()));
  EXPECT_EQ(first.GetData(1), u"s1");
  EXPECT_EQ(first.GetData(2), u"15/06/2004 00:00:00");
  EXPECT_EQ(lists.phoneContacts->item(4).GetData(1).size(), 13u);
  session.ShowStartPanel();
  EXPECT_EQ(PanelText(panel::kCount), u"");
}

TEST_F(PageTest, ReadsAMemoryOnlyWhenAsked) {
  settings.With([](phonesim::Behaviour& b) {
    b.sim.last = 7;
    b.irmc.logsInTwoPackets = b.irmc.lengthBeforeLogs = true;
  });
  Connect({{7, {"Seven", "7"}}}, {{{"given", "Card"}}}, "Command2");
  EXPECT_EQ(list.emptyText(), Word(words::kChooseMemory));
  EXPECT_EQ(Shown(), Names());
  EXPECT_FALSE(CanDo("Refresh"));
  EXPECT_TRUE(CanDo("New"));
  Click(u"SM");
  EXPECT_EQ(session.commandState, job::kLoadPhonebook);
  Tick();
  EXPECT_EQ(Shown(), Names{u"Seven"});
  EXPECT_EQ(Written("AT+CPBR=1,7\r"), 1u);
  EXPECT_EQ(Written("AT+CPBR="), 2u);
  Click(u"ME");
  Tick();
  EXPECT_EQ(Shown(), Names{u"Card"});

  // What was changed at the phone shows after Refresh.
  AtThePhone([](Books& books) {
    books.contacts.Clear();
    books.sim.Fill({});
  });
  Do("Refresh");
  Tick();
  EXPECT_EQ(Shown(), Names());
  EXPECT_EQ(list.emptyText(), Word(words::kNoContacts));
  EXPECT_EQ(PanelText(panel::kCount), u"Contacts: 0");
  Click(u"SM");
  EXPECT_EQ(Shown(), Names{u"Seven"});
  Do("Refresh");
  Tick();
  EXPECT_EQ(Shown(), Names());
  EXPECT_EQ(lists.phoneContacts->Count(), 0);
  EXPECT_EQ(Boxes(), Names());
}

TEST_F(PageTest, SaysSoWhenAMemoryCannotBeRead) {
  Connect({{1, {"One", "1"}}}, {{{"given", "Card"}}}, "Command2");
  const struct {
    const char16_t* node;
    std::function<void(phonesim::Behaviour&)> spoil;
  } cases[] = {
      {u"SM", [](auto& b) { b.refusedCommands.insert("AT+CPBS"); }},
      {u"SM",
       [](auto& b) {
         b.failingCommands["AT+CPBR"] = {21, 1};
       }},
      {u"SM",
       [](auto& b) {
         b.failingCommands["AT+CPBR"] = {21, 2};
       }},
      {u"SM", [](auto& b) { b.sim.last = 0; }},  // (1-0)
      {u"ME", [](auto& b) { b.refusedOperations[phonesim::ObexOperation::Connect] = {}; }},
      {u"ME",
       [](auto& b) {
         b.refusedOperations[phonesim::ObexOperation::Get] = {0xC4, 1, "telecom/pb.vcf"};
       }},
      {u"ME",
       [](auto& b) {
         b.refusedOperations[phonesim::ObexOperation::Get] = {0xC4, 1, "telecom/pb/luid/cc"};
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    settings.With(c.spoil);
    Click(c.node);
    Tick();
    EXPECT_EQ(Boxes(), Names{Error(text::error::kReadPhonebook)});
    EXPECT_EQ(lists.phoneContacts->Count(), 0);
    EXPECT_TRUE(session.tvwPhonePhonebook.enabled);
    EXPECT_TRUE(CanDo("Refresh"));
    settings.With([](phonesim::Behaviour& b) {
      b.refusedCommands.clear();
      b.failingCommands.clear();
      b.refusedOperations.clear();
      b.sim.last = 250;
    });
  }
  Do("Refresh");
  Tick();
  EXPECT_EQ(Shown(), Names{u"Card"});
  settings.With([](phonesim::Behaviour& b) { b.refusedCommands.insert("AT*EOBEX"); });
  Do("Refresh");
  Tick();
  EXPECT_EQ(Boxes(), Names{Error(text::error::kReadPhonebook)});
  EXPECT_EQ(Shown(), Names{u"Card"}) << "what was read before stays";
  settings.With([](phonesim::Behaviour& b) { b.refusedCommands.clear(); });
}

TEST_F(PageTest, AFailureWhileConnectingEndsTheProgram) {
  settings.With([](phonesim::Behaviour& b) { b.refusedCommands.insert("AT+CPBS"); });
  AnswerAsking("Command1");
  StartAndConnect();
  EXPECT_EQ(Boxes(), Names{Error(text::error::kReadPhonebook)});
  EXPECT_EQ(host.quits, 1);
}

TEST_F(PageTest, ShowsAndSavesDetails) {
  Connect({{1, {"One {1}", "1"}}}, {{{"given", "Åsa"},
                                     {"home", "1"},
                                     {"other", "5"},
                                     {"email1", "a@b.example"},
                                     {"email2", "c@d.example"},
                                     {"org", "汉"},
                                     {"url", "http://a.example/"},
                                     {"home.street", "Vägen 1"},
                                     {"home.state", "hidden"},
                                     {"work.city", "Oslo"},
                                     {"work.country", "hidden"}},
                                    {{"given", "Ben"}}});
  EXPECT_EQ(session.rtbPhonebook.text(), Word(words::kSelectContact));
  EXPECT_FALSE(CanDo("Edit"));
  Select({1});
  EXPECT_EQ(session.rtbPhonebook.text(),
            u"Name:\tÅsa\r\nHome:\t1\r\nOther:\t5\r\nE-mail:\ta@b.example\r\nCompany:\t汉\r\n"
            u"E-mail:\tc@d.example\r\nURL:\thttp://a.example/\r\nHome Street:\tVägen 1\r\n"
            u"Work City:\tOslo\r\n");
  EXPECT_TRUE(CanDo("Edit"));
  const auto file = folder.Path() / "saved.rtf";
  host.files = {file, file, folder.Path() / "none" / "x.rtf"};
  Do("Save");
  EXPECT_EQ(host.questions.back().folder, session.phonebookFolder);
  EXPECT_EQ(host.questions.back().suffix, "rtf");
  std::string saved = folder.Read("saved.rtf");
  EXPECT_NE(saved.find("\\b\\fs24 Name:\\tab \\f0\\b0\\fs24 \\u197?sa\\par\r\n"), saved.npos);
  EXPECT_NE(saved.find("\\u27721?\\par"), saved.npos);
  EXPECT_EQ(saved.find("Ben"), saved.npos) << "only what is selected";
  Click(u"SM");
  Do("Save");
  saved = folder.Read("saved.rtf");
  EXPECT_NE(saved.find("One \\{1\\}\\par\r\n"), saved.npos) << "all when nothing is selected";
  Boxes();
  Do("Save");
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].kind, MessageKind::Error);
  Boxes();
  Do("Save");
  EXPECT_EQ(Boxes(), Names()) << "the user gave up";
}

TEST_F(PageTest, NeverWorksTheRowsOfOneMemoryAsThoseOfTheOther) {
  Connect({{1, {"one", "1"}}}, {{{"given", "Ann"}}}, "Command2");
  Click(u"ME");
  Tick();
  Select({0});
  Click(u"SM");
  EXPECT_EQ(Shown(), Names());
  EXPECT_FALSE(CanDo("Delete"));
  EXPECT_FALSE(CanDo("Edit"));
}

TEST_F(PageTest, SortsByEitherColumn) {
  Connect({{1, {"b", "1"}}, {2, {"C", "3"}}, {3, {"a", "2"}}}, {});
  Click(u"SM");
  Select({1, 2});
  const auto press = [this](int column) { host.RunEvent([&] { list.columnClicked(column); }); };
  press(0);
  EXPECT_EQ(Shown(), (Names{u"C", u"b", u"a"}));
  EXPECT_EQ(list.Current(), 0);
  EXPECT_TRUE(list.Row(1).selected);
  EXPECT_FALSE(list.Row(2).selected);
  press(1);
  EXPECT_EQ(Shown(), (Names{u"b", u"a", u"C"}));
  EXPECT_EQ(PanelText(panel::kCount), u"Contacts: 3   Selected: 2");
}

TEST_F(PageTest, KeepsTheSelectionOverChanges) {
  Connect({}, {{{"given", "a"}}, {{"given", "b"}}, {{"given", "c"}}});
  Select({0});
  WhenEdited([](frmAddContact& editor) { editor.Text1.text = u"z"; });
  Do("Edit");
  EXPECT_EQ(Shown(), (Names{u"b", u"c", u"z"}));
  EXPECT_EQ(list.Current(), 2);
  EXPECT_FALSE(list.Row(0).selected);
  EXPECT_TRUE(list.Row(2).selected);
  WhenEdited([](frmAddContact& editor) { editor.Text1.text = u"aa"; });
  Do("New");
  EXPECT_EQ(Shown(), (Names{u"aa", u"b", u"c", u"z"}));
  EXPECT_EQ(list.Current(), 0) << "the new one";
  EXPECT_FALSE(list.Row(3).selected);
  WhenEdited([](frmAddContact& editor) {
    editor.Option1.clicked();
    editor.Text1.text = u"elsewhere";
    editor.Text2[0].text = u"1";
  });
  Do("New");
  EXPECT_EQ(list.Current(), 0) << "it is not in this memory";
}

TEST_F(PageTest, FollowsLanguageAndLoss) {
  Connect({{1, {"one", "1"}}}, {{{"given", "Ann"}, {"cell", "1"}}});
  Select({0});
  host.RunEvent([this] { session.ChangeLanguage(4); });
  EXPECT_EQ(session.tvwPhonePhonebook.SelectedKey(), u"ME");
  EXPECT_EQ(list.Cell(0, 1), u"   " + Word(words::kMobile) + u":1");
  EXPECT_NE(Word(words::kMobile), u"Mobile");
  EXPECT_TRUE(list.Row(0).selected);
  session.ShowStartPanel();
  session.ShowPage(kPhonebookPanel);
  EXPECT_TRUE(list.Row(0).selected);
  EXPECT_EQ(list.Current(), 0);
  EXPECT_NE(session.rtbPhonebook.text().find(u"Ann"), Text::npos);
  session.ChangeLanguage(0);
  port.levels = {linkport::kNoBatteryLevel, linkport::kNoBatteryLevel, linkport::kNoBatteryLevel};
  Tick();
  EXPECT_EQ(session.statusPhase, kNoPhone);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(session.tvwPhonePhonebook.Count(), 0);
  EXPECT_EQ(list.emptyText(), Word(words::kPageNeedsPhone));
}

}  // namespace
}  // namespace tessarin
