// The phonebook from the question at the connection to the file that the next start reads.

#include <algorithm>

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
  // As a synchronisation would leave it: linked, at an earlier time.
  for (const auto& contact : Contacts()) {
    contact->LetData(u"entry " + contact->GetData(Contact::kMobileId), Contact::kGuid);
    contact->LetData(u"01/01/2004 00:00:00", Contact::kModified);
  }
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
TEST_F(PhonebookTest, ALineLostWhilePhoneMemoryIsReadCostsNothing) {
  const std::string saved = "0042,00700039" + std::string(22, ',') + "\r\n";
  folder.Write("app/Pb/ContactMobile.dat", saved);
  ASSERT_TRUE(StartsAndConnects());
  Does([this] { session.Toolbar2.clicked("Phonebook"); });
  ASSERT_TRUE(Click(u"SM"));
  Behave([&](phonesim::Behaviour& b) { b.dropAfterRequests = 4; });
  int waits = 0;
  host.whileWaiting = [&] {
    if (!phone.LineUp() && ++waits == 20) host.RequestEnd();
  };
  host.RunEvent([&] { session.tvwPhonePhonebook.SelectByUser(u"ME"); });
  EXPECT_TRUE(host.RunUntilQuit());
  EXPECT_EQ(Lines(Mobile()), 3);
  EXPECT_TRUE(Mobile().ends_with(saved)) << Mobile();
}

}  // namespace
}  // namespace tessarin
