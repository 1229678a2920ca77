#include "tests/phonebook/PhonebookBench.h"

namespace tessarin {
namespace {

class DeletionTest : public PhonebookBench {};

TEST_F(DeletionTest, DeletesWhatIsSelected) {
  std::vector<phonesim::Fields> cards;
  for (const char* name : {"a", "b", "c", "d", "e", "f"}) cards.push_back({{"given", name}});
  Connect({{1, {"one", "1"}}, {2, {"two", "2"}}, {3, {"three", "3"}}}, cards);
  Select({1, 4});
  Do("Delete");
  Names behindTheBox;
  host.whileBoxStands = [&] { behindTheBox = Shown(); };
  Tick();
  host.whileBoxStands = nullptr;
  EXPECT_EQ(Shown(), (Names{u"a", u"c", u"d", u"f"}));
  EXPECT_EQ(behindTheBox, Shown());
  EXPECT_EQ(list.Current(), 1) << "the place of the first one is kept";
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

TEST_F(DeletionTest, SkipsWhatItCannotDeleteAndSaysSo) {
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

TEST_F(DeletionTest, NeitherWritesNorDeletesACardWithoutAName) {
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

TEST_F(DeletionTest, SaysHowFarDeletingIs) {
  Connect({}, {{{"given", "a"}}, {{"given", "b"}}, {{"given", "c"}}});
  std::vector<std::pair<Text, int>> steps;
  host.WhenShown("frmSplashTransmission", [&](Window&) {
    EXPECT_EQ(busyWindow.Label1.text(), Word(words::kWorkDeleteContacts));
    EXPECT_EQ(list.emptyText(), Word(words::kWorkDeleteContacts));
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

}  // namespace
}  // namespace tessarin
