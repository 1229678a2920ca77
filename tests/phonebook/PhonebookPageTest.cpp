#include "phonebook/PhonebookPage.h"

#include <gtest/gtest.h>

#include "tests/support/SessionBench.h"

namespace tessarin {
namespace {

namespace words = text::interface_;
using Contact = clsT610Contact;
using phonesim::Books;
using Names = std::vector<Text>;

class PageTest : public SessionBench {
 protected:
  PageTest() {
    session.AddPart(lists);
    session.AddPage(page);
    session.Timer1.interval = 1;  // ticks inside of modal windows
  }

  template <class Use>
  auto AtThePhone(Use use) {
    return phone.GetMemory().With(use);
  }
  // The phone's books, the page in front, and which memory is read.
  void Connect(const phonesim::SimBook::Entries& sim, const std::vector<phonesim::Fields>& cards,
               const char* answer = "Command1") {
    AtThePhone([&](Books& books) {
      books.sim.Fill(sim);
      books.contacts.Fill(cards);
    });
    AnswerAsking(answer);
    StartAndConnect();
    ASSERT_EQ(session.statusPhase, kPhonePresent);
    session.ShowPage(kPhonebookPanel);
  }
  void Click(const Text& node) {
    host.RunEvent([&] { session.tvwPhonePhonebook.SelectByUser(node); });
  }
  void Do(const std::string& action) {
    host.RunEvent([&] { session.Toolbar1.clicked(action); });
  }
  void Tick() { SessionBench::Tick(session.Timer1); }
  void Select(const std::vector<int>& rows) {
    host.RunEvent([&] { list.SelectByUser(rows, rows.empty() ? -1 : rows.back()); });
  }
  Names Shown() const {
    Names names;
    for (const auto& row : list.rows()) names.push_back(row.cells.front());
    return names;
  }
  Names Boxes() {
    Names texts;
    for (const auto& box : std::exchange(host.boxes, {})) texts.push_back(box.text);
    return texts;
  }
  Text Error(int index) const { return language.getTSErrStr(index); }
  Text Prompt(int index) const { return language.getTSPromptStr(index); }
  bool CanDo(const char* action) const { return session.Toolbar1.Find(action)->enabled; }
  // What the editor is filled with before OK is pressed.
  void WhenEdited(std::function<void(frmAddContact&)> fill) {
    host.WhenShown("frmAddContact", [fill](Window& window) {
      fill(static_cast<frmAddContact&>(window));
      ScriptedHost::Press(window, "Command1");
    });
  }
  // The next message is that of a refusal: the form is looked at, then cancelled.
  void CancelAtTheBox() {
    host.whileBoxStands = [this] {
      stayedOpen = page.editor().IsLoaded();
      ScriptedHost::Press(page.editor(), "Command2");
    };
  }
  // The phone goes away and another connection is made, with what `change` makes of the phone.
  void ConnectAnew(const std::function<void()>& change) {
    port.levels = {linkport::kNoBatteryLevel, linkport::kNoBatteryLevel, linkport::kNoBatteryLevel};
    Tick();
    ASSERT_EQ(session.statusPhase, kNoPhone);
    change();
    SessionBench::Tick(session.Timer2);
    ASSERT_EQ(session.statusPhase, kPhonePresent);
  }
  phonesim::Fields CardAtThePhone() {
    return AtThePhone([](Books& books) { return books.contacts.Entries().at(0).fields; });
  }
  std::size_t Written(std::string_view part) const {
    return static_cast<std::size_t>(std::count_if(
        port.written.begin(), port.written.end(),
        [part](const std::string& written) { return written.find(part) != written.npos; }));
  }

  bool stayedOpen = false;
  frmSplashTransmission busyWindow{session};
  PhonebookLists lists{files};
  PhonebookPage page{session, link, busyWindow, lists};
  ListView& list = session.lvwPhonePhonebook;
};

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

TEST_F(PageTest, DeletesWhatIsSelected) {
  std::vector<phonesim::Fields> cards;
  for (const char* name : {"a", "b", "c", "d", "e", "f"}) cards.push_back({{"given", name}});
  Connect({{1, {"one", "1"}}, {2, {"two", "2"}}, {3, {"three", "3"}}}, cards);
  Select({1, 4});
  Do("Delete");
  Tick();
  EXPECT_EQ(Shown(), (Names{u"a", u"c", u"d", u"f"}));
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactsDeleted)});
  std::vector<std::string> left;
  AtThePhone([&](Books& books) {
    for (const auto& entry : books.contacts.Entries()) left.push_back(entry.fields.at("given"));
  });
  EXPECT_EQ(left, (std::vector<std::string>{"a", "c", "d", "f"}));

  settings.With([](phonesim::Behaviour& b) {
    b.refusedOperations[phonesim::ObexOperation::Delete] = {};
    b.failingCommands["AT+CPBW"] = {21, 1};
  });
  Select({0, 1});
  Do("Delete");
  Tick();
  EXPECT_EQ(Shown().size(), 4u);
  EXPECT_EQ(Boxes(),
            (Names{Error(text::error::kDeleteContact), Prompt(text::prompt::kContactsDeleted)}));
  Click(u"SM");
  Select({0, 1, 2});
  Do("Delete");
  Tick();
  EXPECT_EQ(Boxes(),
            (Names{Error(text::error::kDeleteContact), Prompt(text::prompt::kContactsDeleted)}));
  EXPECT_EQ(Shown(), (Names{u"one", u"two"})) << "the last place first";
  EXPECT_EQ(AtThePhone([](Books& books) { return books.sim.All().size(); }), 2u);
}

TEST_F(PageTest, SkipsWhatItCannotDeleteAndSaysSo) {
  constexpr int kCmsFailure = 21;
  const struct {
    const char16_t* node;
    std::function<void(phonesim::Behaviour&)> spoil;
    const char* command;
    std::size_t tries, left;
  } cases[] = {
      {u"SM",
       [](auto& b) {
         b.failingCommands["AT+CPBS"] = {kCmsFailure, 1, 1};
       },
       "AT+CPBS", 4, 1},
      {u"SM", [](auto& b) { b.failingCommands["AT+CPBS"] = {kCmsFailure}; }, "AT+CPBS", 2, 4},
      {u"ME",
       [](auto& b) {
         b.failingCommands["AT*EOBEX"] = {kCmsFailure, 1, 1};
       },
       "AT*EOBEX", 4, 1},
      {u"ME", [](auto& b) { b.failingCommands["AT*EOBEX"] = {kCmsFailure}; }, "AT*EOBEX", 2, 4},
  };
  Connect({}, {}, "Command1");
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    AtThePhone([](Books& books) {
      const std::vector<phonesim::Fields> cards(4, {{"given", "a"}});
      books.sim.Fill({{1, {"a", "1"}}, {2, {"b", "2"}}, {3, {"c", "3"}}, {4, {"d", "4"}}});
      books.contacts.Fill(cards);
    });
    Click(c.node);
    Do("Refresh");
    Tick();
    Select({0, 1, 2, 3});
    settings.With(c.spoil);
    port.written.clear();
    Do("Delete");
    Tick();
    EXPECT_EQ(Written(c.command), c.tries);
    EXPECT_EQ(Shown().size(), c.left);
    EXPECT_EQ(Boxes(),
              (Names{Error(text::error::kDeleteContact), Prompt(text::prompt::kContactsDeleted)}));
    settings.With([](phonesim::Behaviour& b) { b.failingCommands.clear(); });
  }
}

TEST_F(PageTest, NeitherWritesNorDeletesACardWithoutAName) {
  port.spoil = [](std::string& sent) {
    const auto name = sent.find("X-IRMC-LUID");
    if (name != sent.npos) sent[name] = 'Y';
  };
  Connect({}, {{{"given", "Ann"}}});
  port.spoil = nullptr;
  port.written.clear();
  Select({0});
  WhenEdited([](frmAddContact& editor) { editor.Text1.text = u"Anne"; });
  CancelAtTheBox();
  Do("Edit");
  EXPECT_EQ(Boxes(), Names{Error(text::error::kWriteContact)});
  host.whileBoxStands = nullptr;
  Do("Delete");
  Tick();
  EXPECT_EQ(Boxes(),
            (Names{Error(text::error::kDeleteContact), Prompt(text::prompt::kContactsDeleted)}));
  EXPECT_EQ(Written("IRMC-SYNC"), 0u);
  EXPECT_EQ(Shown(), Names{u"Ann"});
}

TEST_F(PageTest, SaysHowFarDeletingIs) {
  Connect({}, {{{"given", "a"}}, {{"given", "b"}}, {{"given", "c"}}});
  std::vector<std::pair<Text, int>> steps;
  host.WhenShown("frmSplashTransmission", [&](Window&) {
    EXPECT_EQ(busyWindow.Label1.text(), Word(words::kWorkDeleteContacts));
    busyWindow.lblAmount.changed.Always([&] {
      steps.push_back({busyWindow.lblAmount.text, busyWindow.prgTransfer.value});
    });
  });
  Select({0, 1, 2});
  Do("Delete");
  Tick();
  EXPECT_TRUE(busyWindow.prgTransfer.visible);
  const std::vector<std::pair<Text, int>> expected = {
      {u"0 of 3", 0}, {u"1 of 3", 333}, {u"2 of 3", 666}};
  EXPECT_EQ(steps, expected);
  EXPECT_FALSE(busyWindow.IsLoaded());
  EXPECT_EQ(Shown(), Names());
}

TEST_F(PageTest, AddsToEitherMemory) {
  Connect({{1, {"one", "1"}}, {3, {"three", "3"}}}, {});
  WhenEdited([this](frmAddContact& editor) {
    EXPECT_TRUE(editor.Option2.checked) << "the memory that is shown";
    EXPECT_EQ(editor.caption(), Word(words::kContactNewTitle));
    editor.Option1.clicked();
    EXPECT_FALSE(editor.Text3.enabled);
    EXPECT_FALSE(editor.Text2[1].enabled);
    EXPECT_TRUE(editor.Text2[0].enabled);
    editor.Text1.text = u" Жуков ";
    editor.Text2[0].text = u" 2*# ";
  });
  Do("New");
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactAdded)});
  EXPECT_FALSE(page.editor().IsLoaded());
  EXPECT_EQ(AtThePhone([](Books& books) { return books.sim.All().at(2); }),
            (phonesim::SimBook::Entry{"Жуков", "2*#"}));
  Click(u"SM");
  EXPECT_EQ(Shown(), (Names{u"one", u"three", u"Жуков"}));
  const int added = lists.phoneContacts->FindExistingMobileID(u"s2");
  EXPECT_EQ(lists.phoneContacts->item(added).GetData(Contact::kHome), u"2*#");

  Click(u"ME");
  WhenEdited([](frmAddContact& editor) {
    EXPECT_EQ(editor.Text1.text(), u"") << "nothing is left of the one before";
    editor.Text1.text = u"Žofie";
    editor.Text2[4].text = u"5";
    editor.Text5.text = u"Org";
    editor.Text3.text = u"1@x";
    editor.Text6.text = u"2@x";
    editor.Text4.text = u"3@x";
    editor.Text7.text = u"http://x/";
    editor.HomeAddress[0].text = u"Home street";
    editor.HomeAddress[3].text = u"H1";
    editor.WorkAddress[0].text = u"Work street";
    editor.WorkAddress[4].text = u"汉";
  });
  Do("New");
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactAdded)});
  phonesim::Fields fields;
  AtThePhone([&](Books& books) { fields = books.contacts.Entries().at(0).fields; });
  EXPECT_EQ(fields, (phonesim::Fields{{"given", "Žofie"},
                                      {"other", "5"},
                                      {"org", "Org"},
                                      {"email1", "1@x"},
                                      {"email2", "2@x"},
                                      {"email3", "3@x"},
                                      {"url", "http://x/"},
                                      {"home.street", "Home street"},
                                      {"home.zip", "H1"},
                                      {"work.street", "Work street"},
                                      {"work.country", "汉"}}));
  EXPECT_EQ(Shown(), Names{u"Žofie"});
  const Contact& record = lists.phoneContacts->item(lists.phoneContacts->Count());
  EXPECT_EQ(record.GetData(Contact::kHomeAddress), u"Work street");
  EXPECT_EQ(record.GetData(Contact::kWorkAddress), u"");
  EXPECT_EQ(record.GetData(Contact::kGuid), Text(clsT610ContactList::GetTEMPID()));
}

TEST_F(PageTest, EditsInEitherMemory) {
  Connect({{4, {"four", "4"}}},
          {{{"given", "Ann"}, {"cell", "1"}, {"email1", "a@x"}, {"email2", "b@x"}}});
  const Text id = lists.phoneContacts->item(2).GetData(Contact::kMobileId);
  Select({0});
  WhenEdited([this](frmAddContact& editor) {
    EXPECT_EQ(editor.caption(), Word(words::kContactEditTitle));
    EXPECT_FALSE(editor.Option1.enabled);
    EXPECT_EQ(editor.Text1.text(), u"Ann");
    EXPECT_EQ(editor.Text2[2].text(), u"1");
    EXPECT_EQ(editor.Text6.text(), u"b@x");
    editor.Text1.text = u"Anne";
    clock.now += 1;
  });
  host.RunEvent([this] { list.activated(); });
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactChanged)});
  EXPECT_EQ(Shown(), Names{u"Anne"});
  AtThePhone([&](Books& books) {
    EXPECT_EQ(books.contacts.Entries().at(0).luid, ToUtf8(id.substr(1)));
    EXPECT_EQ(
        books.contacts.Entries().at(0).fields,
        (phonesim::Fields{{"given", "Anne"}, {"cell", "1"}, {"email1", "a@x"}, {"email2", "b@x"}}));
  });
  EXPECT_EQ(lists.phoneContacts->item(2).GetData(Contact::kMobileId), id);
  EXPECT_EQ(lists.phoneContacts->item(2).GetData(Contact::kModified), u"16/06/2004 00:00:00");

  Click(u"SM");
  Select({0});
  WhenEdited([](frmAddContact& editor) {
    EXPECT_EQ(editor.Text2[0].text(), u"4");
    editor.Text2[0].text = u"44";
  });
  Do("Edit");
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactChanged)});
  EXPECT_EQ(list.Cell(0, 1), u"44");
  EXPECT_EQ(AtThePhone([](Books& books) { return books.sim.All(); }),
            (phonesim::SimBook::Entries{{4, {"four", "44"}}}));
}

// The list has the work street in the home street's place after the first change.
TEST_F(PageTest, ChangingTwiceLeavesTheStreetsOnThePhone) {
  const phonesim::Fields card = {{"given", "Ann"},
                                 {"home.street", "Home 1\r\nFlat 2"},
                                 {"home.city", "Å"},
                                 {"work.street", "W"}};
  Connect({}, {card});
  phonesim::Fields expected = card;
  expected["home.street"] = "Home 1 Flat 2";
  for (const Text name : {u"Anne", u"Anna"}) {
    Select({0});
    WhenEdited([&](frmAddContact& editor) {
      EXPECT_EQ(editor.HomeAddress[0].text(), u"Home 1 Flat 2");
      EXPECT_EQ(editor.WorkAddress[0].text(), u"W");
      editor.Text1.text = name;
    });
    Do("Edit");
    EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kContactChanged)});
    expected["given"] = ToUtf8(name);
    EXPECT_EQ(CardAtThePhone(), expected);
    EXPECT_EQ(lists.phoneContacts->item(1).GetData(Contact::kHomeAddress), u"W");
  }
  // What somebody changes at the phone is what the form shows after the next reading.
  AtThePhone([](Books& books) {
    books.contacts.Fill({{{"given", "Ann"}, {"home.street", "New"}, {"work.street", "V"}}});
  });
  Do("Refresh");
  Tick();
  Select({0});
  WhenEdited([](frmAddContact& editor) { EXPECT_EQ(editor.HomeAddress[0].text(), u"New"); });
  Do("Edit");
}

TEST_F(PageTest, AFormThatOutlivesItsPhoneWritesOverNothingElse) {
  const auto otherPhone = [this] {
    settings.With([](phonesim::Behaviour& b) { b.identity.serial = "350000000000000"; });
  };
  const auto otherSim = [this] {
    AtThePhone([](Books& books) { books.sim.Set(4, {"somebody", "9"}); });
  };
  const struct {
    const char16_t* node;
    std::function<void()> change;
    bool written;
  } cases[] = {{u"ME", [] {}, true},
               {u"SM", [] {}, true},
               {u"SM", otherSim, false},
               {u"SM", otherPhone, false},
               {u"ME", otherPhone, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    AnswerAsking("Command1");
    AtThePhone([](Books& books) {
      books.sim.Fill({{4, {"four", "4"}}});
      books.contacts.Fill({{{"given", "Ann"}}});
    });
    settings.With([](phonesim::Behaviour& b) { b.identity = {}; });
    if (session.statusPhase == kPhonePresent) ConnectAnew([] {});
    if (session.statusPhase == kNoPhone) StartAndConnect();
    session.ShowPage(kPhonebookPanel);
    Click(c.node);
    Select({0});
    AnswerAsking("Command2");
    WhenEdited([&](frmAddContact& editor) {
      editor.Text1.text = u"changed";
      ConnectAnew(c.change);
      port.written.clear();
    });
    if (!c.written) CancelAtTheBox();
    Do("Edit");
    EXPECT_EQ(Boxes(), Names{c.written ? Prompt(text::prompt::kContactChanged)
                                       : Error(text::error::kWriteContact)});
    EXPECT_EQ(stayedOpen, !c.written);
    EXPECT_EQ(Written("changed"), c.written ? 1u : 0u);
    host.whileBoxStands = nullptr;
    stayedOpen = false;
  }
}

TEST_F(PageTest, RefusesAndKeepsWhatWasTyped) {
  settings.With([](phonesim::Behaviour& b) { b.sim.last = 2; });
  Connect({{1, {"one", "1"}}, {2, {"two", "2"}}}, {});
  const Text longText(25, u'Ж');
  const struct {
    bool onSim;
    std::function<void(frmAddContact&)> fill;
    int error;
  } cases[] = {
      {true, [](auto& e) { e.Text1.text = u"  "; }, text::error::kNameMissing},
      {true, [](auto& e) { e.Text1.text = u"a"; }, text::error::kNumberMissing},
      {true, [](auto& e) { e.Text1.text = u"a", e.Text2[0].text = u"+1"; },
       text::error::kPhoneNumber},
      {true, [](auto& e) { e.Text1.text = u"a", e.Text2[0].text = u"1"; },
       text::error::kWriteContact},  // the SIM is full
      {false, [](auto& e) { e.Text2[3].text = u"x"; }, text::error::kNameMissing},
      {false, [](auto& e) { e.Text1.text = u"a", e.Text2[3].text = u"1 2"; },
       text::error::kPhoneNumber},
      {false,  // longer than a packet has room for
       [&](auto& e) {
         e.Text1.text = longText;
         for (auto& part : e.HomeAddress) part.text = longText;
         for (auto& part : e.WorkAddress) part.text = longText;
       },
       text::error::kWriteContact},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    WhenEdited([&](frmAddContact& editor) {
      (c.onSim ? editor.Option1 : editor.Option2).clicked();
      c.fill(editor);
    });
    CancelAtTheBox();
    Do("New");
    EXPECT_EQ(Boxes(), Names{Error(c.error)});
    EXPECT_TRUE(stayedOpen);
  }
  EXPECT_EQ(lists.phoneContacts->Count(), 2);
  // The packet went out beyond its 512 bytes, which is all that the phone has to complain of.
  EXPECT_EQ(reports.All().size(), 1u);
  reports.Clear();
}

TEST_F(PageTest, EditsAContactOfTheOwnBook) {
  Connect({}, {}, "Command2");
  lists.tscContacts->AddContact(Contact());
  Contact& record = lists.tscContacts->item(1);
  record.LetData(u"second", Contact::kEmail2);
  record.LetData(u"third", Contact::kEmail3);
  record.LetData(u"First line\r\nsecond line", Contact::kHomeAddress);
  const Text longText(300, u'x');
  WhenEdited([&](frmAddContact& editor) {
    EXPECT_FALSE(editor.Option1.visible);
    EXPECT_EQ(editor.caption(), u"Tessarin Edit");
    EXPECT_EQ(editor.Text6.text(), u"second");
    EXPECT_EQ(editor.HomeAddress[0].text(), u"First line second line");
    EXPECT_EQ(editor.Text5.maximumLength, 0);
    editor.Text1.text = u"+ any ";
    editor.Text5.text = longText;
  });
  host.RunEvent([&] { page.editor().OpenRecord(1); });
  EXPECT_EQ(record.GetData(Contact::kCompany), longText);
  EXPECT_EQ(record.GetData(Contact::kHomeAddress), u"First line\r\nsecond line");
  EXPECT_EQ(record.GetData(Contact::kName), u"+ any ");
  EXPECT_EQ(record.GetData(Contact::kEmail2), u"third");
  EXPECT_EQ(record.GetData(Contact::kEmail3), u"second");
  EXPECT_EQ(record.GetData(Contact::kModified), u"15/06/2004 00:00:00");
  EXPECT_EQ(Written("IRMC-SYNC"), 0u);
}

TEST_F(PageTest, CopiesNumbersToTheSim) {
  settings.With([](phonesim::Behaviour& b) { b.sim.last = 2; });
  Connect({}, {{{"given", "Ann"}, {"home", "1"}, {"fax", "2"}},
               {{"given", "Ben"}},
               {{"given", "Cid"}, {"cell", "+3"}}});
  std::vector<frmCopyToSIM*> dialogs;
  host.WhenShown("frmCopyToSIM", [&dialogs](Window& window) {
    dialogs.push_back(static_cast<frmCopyToSIM*>(&window));
  });
  Select({0, 1, 2});
  host.RunEvent([this] { session.MainMenu.clicked("copy_Phone_to_SIM"); });
  ASSERT_EQ(page.copyDialogs().simCopyCount(), 3u);
  ASSERT_EQ(dialogs.size(), 3u);
  auto* const ann = dialogs[2];  // they open from the last row to the first
  auto* const ben = dialogs[1];
  auto* const cid = dialogs[0];
  EXPECT_FALSE(ben->Command1.enabled) << "the most recent is answered first";
  EXPECT_EQ(ann->Label2.text(), u"Ann");
  ASSERT_EQ(ann->List1.Count(), 2);
  EXPECT_EQ(ann->List1.Item(1), u"Fax:2");
  host.RunEvent([&] { ScriptedHost::Press(*ann, "Command1"); });
  EXPECT_EQ(Boxes(), Names{Error(text::error::kNoNumberSelected)});
  ann->List1.Select(1);
  host.RunEvent([&] { ScriptedHost::Press(*ann, "Command1"); });
  Tick();
  EXPECT_EQ(Boxes(), Names{Prompt(text::prompt::kCopiedToSim)});
  EXPECT_EQ(page.copyDialogs().simCopyCount(), 2u);
  EXPECT_EQ(host.shown.back(), "TessarinMenu") << "it comes forward";

  EXPECT_EQ(ben->Label2.text(), u"Ben");
  EXPECT_TRUE(ben->Command1.enabled);
  EXPECT_EQ(ben->List1.Count(), 0);
  host.RunEvent([&] { ScriptedHost::Press(*ben, "Command2"); });
  AtThePhone([](Books& books) { books.sim.Set(2, {"full", "0"}); });
  cid->List1.Select(0);
  host.RunEvent([&] { ScriptedHost::Press(*cid, "Command1"); });
  Tick();
  EXPECT_EQ(Boxes(), Names{Error(text::error::kCopyToSim)});
  EXPECT_EQ(page.copyDialogs().simCopyCount(), 1u) << "the dialog stays open";
  AtThePhone([](Books& books) { books.sim.Remove(2); });
  host.RunEvent([&] { ScriptedHost::Press(*cid, "Command1"); });
  Tick();
  EXPECT_EQ(page.copyDialogs().simCopyCount(), 0u);
  EXPECT_EQ(AtThePhone([](Books& books) { return books.sim.All(); }),
            (phonesim::SimBook::Entries{{1, {"Ann", "2"}}, {2, {"Cid", "+3"}}}));
  Click(u"SM");
  EXPECT_EQ(Shown().size(), 2u);
  EXPECT_EQ(lists.phoneContacts->item(4).GetData(Contact::kName).size(), 50u);
}

// Whatever was going on when the line was lost: it is told, the phone is found again in AT mode,
// and no link to Outlook is gone.
TEST_F(PageTest, ALineLostAtAnyStepIsToldAndCostsNoLink) {
  const struct {
    const char16_t* node;
    const char* action;
    int error, success;
  } acts[] = {
      {u"SM", "Refresh", text::error::kReadPhonebook, -1},
      {u"ME", "Refresh", text::error::kReadPhonebook, -1},
      {u"SM", "New", text::error::kWriteContact, text::prompt::kContactAdded},
      {u"ME", "New", text::error::kWriteContact, text::prompt::kContactAdded},
      {u"SM", "Edit", text::error::kWriteContact, text::prompt::kContactChanged},
      {u"ME", "Edit", text::error::kWriteContact, text::prompt::kContactChanged},
      {u"SM", "Delete", text::error::kDeleteContact, text::prompt::kContactsDeleted},
      {u"ME", "Delete", text::error::kDeleteContact, text::prompt::kContactsDeleted},
      {u"ME", "copy_Phone_to_SIM", text::error::kCopyToSim, text::prompt::kCopiedToSim},
  };
  settings.With([](phonesim::Behaviour& b) { b.sim.last = 20; });
  WhenEdited([](frmAddContact& editor) {
    editor.Text1.text = u"written";
    editor.Text2[0].text = u"0";
  });
  std::vector<Window*> dialogs;
  host.WhenShown("frmCopyToSIM", [&dialogs](Window& dialog) {
    dialogs.push_back(&dialog);
    static_cast<frmCopyToSIM&>(dialog).List1.Select(0);
    ScriptedHost::Press(dialog, "Command1");
  });
  host.whileBoxStands = [&] {
    ScriptedHost::Press(page.editor(), "Command2");
    for (Window* dialog : std::exchange(dialogs, {})) ScriptedHost::Press(*dialog, "Command2");
  };
  const auto prepare = [this](const char16_t* node) {
    AtThePhone([](Books& books) {
      books.sim.Fill({{1, {"one", "1"}}, {12, {"twelve", "12"}}});
      books.contacts.Fill({{{"given", "Ann"}, {"home", "1"}}, {{"given", "Ben"}}});
    });
    Click(node);
    Do("Refresh");
    Tick();
    for (const auto& contact : *lists.phoneContacts) {
      contact->LetData(u"entry " + contact->GetData(Contact::kMobileId), Contact::kGuid);
    }
    Select({0});
  };
  Connect({}, {});
  for (const auto& act : acts) {
    // Either the line is gone when something is to be sent, or the answer never comes. That of an
    // OBEX exchange would be waited for until the end of the program.
    for (const bool answerLost : {false, true}) {
      bool lost = true;
      for (std::size_t sent = 0; lost && (!answerLost || act.node == Text(u"SM")); ++sent) {
        SCOPED_TRACE(act.action + std::to_string(sent));
        prepare(u"ME");
        prepare(u"SM");
        prepare(act.node);
        if (answerLost) {
          settings.With([&](phonesim::Behaviour& b) { b.dropAfterRequests = sent + 1; });
        } else {
          port.writesLeft = sent;
        }
        act.action[0] == 'c' ? host.RunEvent([&] { session.MainMenu.clicked(act.action); })
                             : Do(act.action);
        if (session.commandState != job::kIdlePoll) Tick();
        lost = port.IsLost();
        const Names said = Boxes();
        ASSERT_LT(sent, 15u);
        const bool isTold = !said.empty() && said.front() == Error(act.error);
        // When only the closing of the session was lost, what was to be done is done.
        if (!lost || !isTold) {
          EXPECT_EQ(said, act.success < 0 ? Names() : Names{Prompt(act.success)});
        }
        settings.With([](phonesim::Behaviour& b) { b.dropAfterRequests.reset(); });
        if (lost) {
          Tick();
          ASSERT_EQ(session.statusPhase, kNoPhone);
          SessionBench::Tick(session.Timer2);
        }
        port.writesLeft = SIZE_MAX;
        ASSERT_EQ(session.statusPhase, kPhonePresent);
        EXPECT_FALSE(phone.InObexMode());
        Tick();
        EXPECT_EQ(PanelText(panel::kBattery), u"85%");
        session.ShowPage(kPhonebookPanel);
        for (const auto& contact : *lists.phoneContacts) {
          const bool isOnNewPlace = contact->GetData(Contact::kMobileId) == u"s2";
          if (isOnNewPlace || contact->GetData(Contact::kName) == u"written") continue;
          EXPECT_EQ(contact->GetData(Contact::kGuid),
                    u"entry " + contact->GetData(Contact::kMobileId));
        }
      }
    }
  }
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
