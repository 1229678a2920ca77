// The phonebook from the question at the connection to the file that the next start reads.

#include <algorithm>

#include "codecs/ListFile.h"
#include "phonebook/ContactRecord.h"
#include "tests/endtoend/EndToEnd.h"

namespace tessarin {
namespace {

using phonesim::Books;
using Contact = clsT610Contact;
using Names = std::vector<Text>;

class PhonebookTest : public EndToEnd {
 protected:
  PhonebookTest() {
    AtThePhone([](Books& books) {
      books.sim.Fill({{1, {"Anna", "+4917604069100"}}, {4, {"Žofie", "2"}}});
      books.contacts.Fill({{{"given", "王芳"}, {"cell", "+8613800000"}, {"email1", "f@x.example"}},
                           {{"given", "Ben"}, {"family", "Dale"}, {"home", "1"}, {"work", "2"}}});
    });
    Behave([](phonesim::Behaviour& b) { b.sim.last = 20; });
  }
  template <class Use>
  void AtThePhone(Use use) {
    phone.GetMemory().With(use);
  }
  static std::ptrdiff_t Lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  }
  std::string Mobile() const { return folder.Read("app/Pb/ContactMobile.dat"); }
  clsT610ContactList& Contacts() { return *program.phonebookLists().phoneContacts; }
  Names Shown() const {
    Names names;
    for (const auto& row : session.lvwPhonePhonebook.rows()) names.push_back(row.cells.front());
    return names;
  }
  bool Click(const Text& node) {
    return Does([&] { session.tvwPhonePhonebook.SelectByUser(node); });
  }
  void Select(const std::vector<int>& rows) {
    host.RunEvent([&] { session.lvwPhonePhonebook.SelectByUser(rows, rows.back()); });
  }
  bool Do(const char* action) {
    return Does([&] { session.Toolbar1.clicked(action); });
  }
  // What is typed into the editor before OK is pressed.
  void WhenEdited(const std::function<void(frmAddContact&)>& type) {
    host.WhenShown("frmAddContact", [type](Window& window) {
      type(static_cast<frmAddContact&>(window));
      ScriptedHost::Press(window, "Command1");
    });
  }
  bool ReadsBothMemories() {
    AnswerAsking("Command1");
    if (!StartsAndConnects()) return false;
    Does([this] { session.Toolbar2.clicked("Phonebook"); });
    return session.lvwPhonePhonebook.Count() > 0;
  }
  // As a synchronisation would leave it: linked, at an earlier time.
  void LinkAll() {
    for (const auto& contact : Contacts()) {
      contact->LetData(u"entry " + contact->GetData(Contact::kMobileId), Contact::kGuid);
      contact->LetData(u"01/01/2004 00:00:00", Contact::kModified);
    }
    program.phonebookLists().SavePhoneContacts();
  }
  Text SaidLast() const { return host.boxes.empty() ? Text() : host.boxes.back().text; }
};

TEST_F(PhonebookTest, AskedToReadItShowsBothBarsAndKeepsEverything) {
  AnswerAsking("Command1");
  int simValue = 0, phoneValue = 0;
  host.WhenShown("bar", [&](Window& window) {
    auto& bars = static_cast<bar&>(window);
    bars.simBar.changed.Always([&] { simValue = bars.simBar.value; });
    bars.phoneBar.changed.Always([&] { phoneValue = bars.phoneBar.value; });
  });
  ASSERT_TRUE(StartsAndConnects());
  EXPECT_EQ(host.shown.back(), "bar");
  EXPECT_EQ(host.gone.back(), "bar");
  EXPECT_EQ(simValue, bar::kSimLength);
  EXPECT_EQ(phoneValue, bar::kPhoneLength);
  EXPECT_TRUE(session.ToolFrame[9]->visible);
  Does([this] { session.Toolbar2.clicked("Phonebook"); });
  EXPECT_EQ(Shown(), (Names{u"Ben Dale", u"王芳"}));
  ASSERT_TRUE(Click(u"SM"));
  EXPECT_EQ(Shown(), (Names{u"Anna", u"Žofie"}));
  LinkAll();
  host.RequestEnd();
  EXPECT_EQ(Lines(Mobile()), 4);

  // The next start finds a changed phone: links stay, and a change has the time of reading.
  AtThePhone([](Books& books) {
    books.sim.Set(4, {"Žofie", "3"});
    books.sim.Remove(1);
  });
  ScriptedHost second;
  second.WhenShown("Asking", [](Window& asking) { ScriptedHost::Press(asking, "Command1"); });
  Program again{second,
                {folder.Path() / "app", TESSARIN_SHARE, folder.Path() / "registry.ini",
                 folder.Path() / "no-devices"}};
  again.session().Timer2.interval = 1;
  again.Start();
  ASSERT_TRUE(second.RunUntil([&] { return again.session().statusPhase == kPhonePresent; }));
  const auto& contacts = *again.phonebookLists().phoneContacts;
  ASSERT_EQ(contacts.Count(), 3);
  for (const auto& contact : contacts) {
    EXPECT_EQ(contact->GetData(Contact::kGuid), u"entry " + contact->GetData(Contact::kMobileId));
    EXPECT_EQ(contact->GetData(Contact::kModified) == u"01/01/2004 00:00:00", contact->IsIn(u'p'));
  }
  second.RequestEnd();
}

TEST_F(PhonebookTest, NotReadingItCostsNoneOfItsLinks) {
  const std::string saved = "0041" + std::string(1, ',') + "00730031" + std::string(22, ',') +
                            "\r\n0042,00700039" + std::string(22, ',') + "\r\n";
  folder.Write("app/Pb/ContactMobile.dat", saved);
  ASSERT_TRUE(StartsAndConnects());
  Does([this] { session.Toolbar2.clicked("Phonebook"); });
  host.RequestEnd();
  EXPECT_EQ(Mobile(), saved);
}

// An AT reply that does not come is given up; the phone is searched for and found again.
TEST_F(PhonebookTest, ALineLostWhileTheSimIsReadIsFoundAgain) {
  ASSERT_TRUE(StartsAndConnects());
  Does([this] { session.Toolbar2.clicked("Phonebook"); });
  Behave([&](phonesim::Behaviour& b) { b.dropAfterRequests = 3; });
  host.RunEvent([&] { session.tvwPhonePhonebook.SelectByUser(u"SM"); });
  ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
  EXPECT_EQ(host.boxes.back().text, session.language().getTSErrStr(text::error::kReadPhonebook));
  EXPECT_EQ(host.Find("frmSplashTransmission"), nullptr);
  EXPECT_EQ(host.Find("bar"), nullptr);
  Behave([](phonesim::Behaviour& b) { b.dropAfterRequests.reset(); });
  phone.Restart();
  ASSERT_TRUE(Connects());
  session.ShowPage(kPhonebookPanel);
  EXPECT_TRUE(session.tvwPhonePhonebook.enabled);
  ASSERT_TRUE(Click(u"SM"));
  EXPECT_EQ(Shown(), (Names{u"Anna", u"Žofie"}));
}

// An OBEX reply is waited for until the program is ended, and what it knows is kept then.
struct Loss {
  const char* name;
  std::size_t answered;  // so many requests of the job; the reply to the next one never comes
  void (*act)(PhonebookTest&);
};

void PrintTo(const Loss& loss, std::ostream* out) { *out << loss.name; }

class LosingTheLine : public PhonebookTest, public testing::WithParamInterface<Loss> {
 public:
  static void Reading(PhonebookTest& test) { Press(test, "Refresh"); }
  static void Deleting(PhonebookTest& test) {
    Choose(test);
    Press(test, "Delete");
  }
  static void Adding(PhonebookTest& test) { Writing(test, "New"); }
  static void Replacing(PhonebookTest& test) {
    Choose(test);
    Writing(test, "Edit");
  }

 private:
  static LosingTheLine& Of(PhonebookTest& test) { return static_cast<LosingTheLine&>(test); }
  static void Choose(PhonebookTest& test) { Of(test).Select({0}); }
  static void Press(PhonebookTest& test, const char* action) {
    auto& self = Of(test);
    self.host.RunEvent([&] { self.session.Toolbar1.clicked(action); });
  }
  static void Writing(PhonebookTest& test, const char* action) {
    Of(test).WhenEdited([](frmAddContact& editor) { editor.Text1.text = u"Written"; });
    Press(test, action);
  }
};

TEST_P(LosingTheLine, InASessionCostsNoneOfTheLinks) {
  ASSERT_TRUE(ReadsBothMemories());
  LinkAll();
  Behave([](phonesim::Behaviour& b) { b.dropAfterRequests = GetParam().answered; });
  int waits = 0;
  host.whileWaiting = [&] {
    if (!phone.LineUp() && ++waits == 20) host.RequestEnd();
  };
  GetParam().act(*this);
  EXPECT_TRUE(host.RunUntilQuit());
  EXPECT_TRUE(host.boxes.empty());
  ASSERT_EQ(Lines(Mobile()), 4);
  for (const auto& line : ListFile::ReadLines(folder.Path() / "app/Pb/ContactMobile.dat")) {
    const auto fields = clsT610ContactList::DecodeContactStr(line);
    EXPECT_EQ(fields.at(Contact::kGuid), u"entry " + fields.at(Contact::kMobileId));
  }
}

INSTANTIATE_TEST_SUITE_P(Phonebook, LosingTheLine,
                         testing::Values(Loss{"BeforeIt", 0, LosingTheLine::Reading},
                                         Loss{"AtItsConnect", 2, LosingTheLine::Reading},
                                         Loss{"AtTheLog", 3, LosingTheLine::Reading},
                                         Loss{"AtTheObject", 4, LosingTheLine::Reading},
                                         Loss{"AtTheCounter", 5, LosingTheLine::Reading},
                                         Loss{"AtItsEnd", 6, LosingTheLine::Reading},
                                         Loss{"AtAnAdd", 3, LosingTheLine::Adding},
                                         Loss{"AtAReplace", 3, LosingTheLine::Replacing},
                                         Loss{"AtADelete", 3, LosingTheLine::Deleting}),
                         [](const auto& instance) { return instance.param.name; });

// A whole afternoon with both memories, and the next start shows what was left.
class AnAfternoon : public PhonebookTest {
 protected:
  using Fields = phonesim::Fields;

  AnAfternoon() {
    for (const char* name : {"a", "b", "c", "d", "e", "f"}) cards_.push_back({{"given", name}});
    cards_[0] = {{"given", "a"},      {"home", "1"},
                 {"work", "2"},       {"cell", "3"},
                 {"fax", "4"},        {"other", "5"},
                 {"email1", "1@x"},   {"email2", "2@x"},
                 {"email3", "3@x"},   {"org", "Å"},
                 {"url", "http://x"}, {"home.street", "字"},
                 {"home.zip", "0H"},  {"work.street", "汉字"},
                 {"work.city", "W"}};
    AtThePhone([&](Books& books) { books.contacts.Fill(cards_); });
    Behave([](phonesim::Behaviour& b) { b.sim.last = 5; });
  }
  Text Prompt(int index) const { return session.language().getTSPromptStr(index); }

  void DeleteTwo() {
    Select({1, 4});
    ASSERT_TRUE(Do("Delete"));
    EXPECT_EQ(Shown(), (Names{u"a", u"c", u"d", u"f"}));
    EXPECT_EQ(SaidLast(), Prompt(text::prompt::kContactsDeleted));
  }
  void ChangeOneAndAddOne() {
    Select({0});
    WhenEdited([](frmAddContact& editor) { editor.Text2[3].text = u"44"; });
    ASSERT_TRUE(Do("Edit"));
    cards_[0]["fax"] = "44";
    WhenEdited([](frmAddContact& editor) { editor.Text1.text = u"王"; });
    ASSERT_TRUE(Do("New"));
    AtThePhone([&](Books& books) {
      ASSERT_EQ(books.contacts.Entries().size(), 5u);
      EXPECT_EQ(books.contacts.Entries()[0].fields, cards_[0]);
      EXPECT_EQ(books.contacts.Entries()[4].fields, (Fields{{"given", "王"}}));
    });
  }
  // Two dialogs stand open at once; the SIM has three free places.
  void CopyTwice() {
    std::vector<frmCopyToSIM*> dialogs;
    host.WhenShown("frmCopyToSIM", [&dialogs](Window& window) {
      dialogs.push_back(static_cast<frmCopyToSIM*>(&window));
      dialogs.back()->List1.Select(4);
    });
    Select({0});
    for (int i = 0; i < 2; ++i) {
      host.RunEvent([this] { session.MainMenu.clicked("copy_Phone_to_SIM"); });
    }
    ASSERT_EQ(dialogs.size(), 2u);
    for (frmCopyToSIM* dialog : {dialogs[1], dialogs[0]}) {
      EXPECT_TRUE(Does([&] { ScriptedHost::Press(*dialog, "Command1"); }));
      EXPECT_EQ(SaidLast(), Prompt(text::prompt::kCopiedToSim));
    }
  }
  void AddToSim(const Text& name) {
    WhenEdited([name](frmAddContact& editor) {
      editor.Text1.text = name;
      editor.Text2[0].text = u"0";
    });
    ASSERT_TRUE(Do("New"));
  }
  void FillTheSim() {
    ASSERT_TRUE(Click(u"SM"));
    Select({3});
    WhenEdited([](frmAddContact& editor) { editor.Text2[0].text = u"#2"; });
    ASSERT_TRUE(Do("Edit"));
    AddToSim(u"last");
    host.whileBoxStands = [this] {
      ScriptedHost::Press(program.phonebookPage().editor(), "Command2");
    };
    AddToSim(u"too many");
    host.whileBoxStands = nullptr;
    EXPECT_EQ(SaidLast(), session.language().getTSErrStr(text::error::kWriteContact));
  }
  Names NamesAtTheNextStart() {
    ScriptedHost second;
    second.WhenShown("Asking", [](Window& asking) { ScriptedHost::Press(asking, "Command1"); });
    Program again{second,
                  {folder.Path() / "app", TESSARIN_SHARE, folder.Path() / "registry.ini",
                   folder.Path() / "no-devices"}};
    again.session().Timer2.interval = 1;
    again.Start();
    Names names;
    if (second.RunUntil([&] { return again.session().statusPhase == kPhonePresent; })) {
      for (const auto& contact : *again.phonebookLists().phoneContacts) {
        names.push_back(OneLine(contact->GetData(Contact::kName)));
      }
    }
    second.RequestEnd();
    return names;
  }

 private:
  std::vector<Fields> cards_;
};

TEST_F(AnAfternoon, IsFoundAgainAtTheNextStart) {
  ASSERT_TRUE(ReadsBothMemories());
  DeleteTwo();
  ChangeOneAndAddOne();
  CopyTwice();
  FillTheSim();
  AtThePhone([](Books& books) {
    EXPECT_EQ(books.sim.All(), (phonesim::SimBook::Entries{{1, {"Anna", "+4917604069100"}},
                                                           {2, {"a", "5"}},
                                                           {3, {"a", "5"}},
                                                           {4, {"Žofie", "#2"}},
                                                           {5, {"last", "0"}}}));
  });
  host.RequestEnd();
  EXPECT_EQ(NamesAtTheNextStart(),
            (Names{u"Anna", u"a", u"a", u"Žofie", u"last", u"a", u"c", u"d", u"f", u"王"}));
}

}  // namespace
}  // namespace tessarin
