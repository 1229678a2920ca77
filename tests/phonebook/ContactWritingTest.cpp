#include "tests/phonebook/PhonebookBench.h"

namespace tessarin {
namespace {

class WritingTest : public PhonebookBench {};

TEST_F(WritingTest, AddsToEitherMemory) {
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

TEST_F(WritingTest, EditsInEitherMemory) {
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
TEST_F(WritingTest, ChangingTwiceLeavesTheStreetsOnThePhone) {
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

TEST_F(WritingTest, AFormThatOutlivesItsPhoneWritesOverNothingElse) {
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

TEST_F(WritingTest, RefusesAndKeepsWhatWasTyped) {
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

TEST_F(WritingTest, EditsAContactOfTheOwnBook) {
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

TEST_F(WritingTest, CopiesNumbersToTheSim) {
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

}  // namespace
}  // namespace tessarin
