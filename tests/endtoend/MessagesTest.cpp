// Reading, deleting and sending messages, against the simulated phone's own stores and decoder.

#include <algorithm>
#include <set>

#include "messages/frmAddTextTemplate.h"
#include "phonesim/SampleMessages.h"
#include "phonesim/SmsPdu.h"
#include "tests/endtoend/EndToEnd.h"
#include "tests/support/RtfReader.h"

namespace tessarin {
namespace {

using phonesim::SmsCoding;
using phonesim::SmsDraft;

// Letters that both alphabets have at the same place, no blank among them.
std::string Letters(std::size_t count) {
  std::string text(count, 'a');
  for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<char>('a' + i * 7 % 26);
  return text;
}

class MessagesTest : public EndToEnd {
 protected:
  void Store(const std::string& store, int location, int status, SmsDraft draft) {
    draft.outgoing = status >= 2;
    draft.time = "40605131508100";
    phone.GetMemory().With([&](phonesim::Books& books) {
      books.messages.Set(store, location, {status, phonesim::WriteStored(draft)});
    });
  }
  static SmsDraft Draft(const std::string& address, const std::string& text,
                        SmsCoding coding = SmsCoding::Gsm) {
    SmsDraft draft;
    draft.address = address;
    draft.text = text;
    draft.coding = coding;
    return draft;
  }
  static SmsDraft Part(int number, const std::string& text, int reference = 41) {
    SmsDraft draft = Draft("+447700900150", text);
    draft.part = phonesim::SmsPart{reference, 3, number};
    return draft;
  }
  std::size_t Stored(const std::string& store) {
    return phone.GetMemory().With(
        [&](const phonesim::Books& books) { return books.messages.Of(store).size(); });
  }
  // What the recipients got, one a line: number, text, parts.
  std::vector<std::string> Sent() {
    return phone.GetMemory().With([](const phonesim::Books& books) {
      std::vector<std::string> sent;
      for (const auto& message : books.sent.All()) {
        sent.push_back(message.recipient + "|" + message.text + "|" +
                       std::to_string(message.parts));
      }
      return sent;
    });
  }

  bool OpensPage() {
    return StartsAndConnects() && Does([this] { session.Toolbar2.clicked("SMS"); });
  }
  // The rows of a folder, one a word: sender and joined text.
  std::string Folder(TextView key) {
    host.RunEvent([&] { session.tvwPhoneSMS.SelectByUser(key); });
    std::string rows;
    for (int row = 0; row < session.lvwPhoneSMS.Count(); ++row) {
      host.RunEvent([&] { session.lvwPhoneSMS.SelectByUser({row}, row); });
      rows += ToUtf8(session.lvwPhoneSMS.Cell(row, 1) + u":" + session.lvwPhoneSMS.Cell(row, 2) +
                     u":" + program.smsPage().currentMessageText()) +
              " ";
    }
    return rows;
  }
  // Sends from a composer that stands open; the boxes that came.
  std::vector<Text> Send(const Text& recipients, const Text& text) {
    host.boxes.clear();
    host.RunEvent([&] {
      composer.SetVariable(recipients, text);
      composer.Show(Modality::Modeless);
    });
    EXPECT_TRUE(Does([this] { composer.CmdSend.clicked(); }));
    std::vector<Text> texts;
    for (const auto& box : host.boxes) texts.push_back(box.text);
    return texts;
  }
  std::vector<Text> Error(int index) { return {session.language().getTSErrStr(index)}; }

  frmComposeSMS& composer = program.composer();
};

TEST_F(MessagesTest, ReadsBothStoresOverGaps) {
  Behave([](phonesim::Behaviour& b) {
    b.messages.emptyLocation = phonesim::EmptyLocation::CmsError;
    b.splitBytes = 7;
  });
  const std::string story = Letters(320);
  Store("SM", 2, 0, Draft("Harbour", "Boarding from 16:45"));
  Store("SM", 5, 1, Part(1, story.substr(0, 153)));
  Store("SM", 9, 1, Part(2, story.substr(153, 153)));
  Store("SM", 10, 1, Part(3, story.substr(306)));
  Store("SM", 30, 1, Draft("+447700900108", "好的，到时候见！", SmsCoding::Ucs2));
  Store("ME", 1, 1, Part(1, "first"));
  Store("ME", 2, 1, Part(3, "third"));
  Store("ME", 3, 1, Part(2, "second"));
  Store("ME", 4, 1, Part(2, "orphan", 7));
  Store("ME", 7, 3, Draft("5550199", "BALANCE"));
  SmsDraft absolute = Draft("+467017406033", "Ring mig");
  absolute.validity = phonesim::SmsValidity::Absolute;
  Store("ME", 100, 2, absolute);
  ASSERT_TRUE(OpensPage());
  EXPECT_EQ(Folder(u"S0"), "SIM:Harbour:Boarding from 16:45 ");
  EXPECT_EQ(Folder(u"S1"), "SIM:447700900150:" + story +
                               " SIM:447700900108:好的，到时候见！ MEM:447700900150:firstsecond ");
  EXPECT_EQ(Folder(u"S2"), "MEM:467017406033:Ring mig ");
  EXPECT_EQ(Folder(u"S3"), "MEM:5550199:BALANCE ");
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(MessagesTest, EverySampleMessageCanBeReadOrHasAReason) {
  phone.GetMemory().With(
      [](phonesim::Books& books) { books.messages.Fill(phonesim::MakeSampleMessages(2005)); });
  const std::size_t records = Stored("SM") + Stored("ME");
  EXPECT_EQ(records, 60u);
  ASSERT_TRUE(OpensPage());
  const auto& mailbox = program.smsPage().mailbox();
  EXPECT_EQ(mailbox.simMessages.size() + mailbox.memMessages.size(), records);
  std::size_t shown = 0;
  for (const char16_t* key : {u"S0", u"S1", u"S2", u"S3"}) {
    Folder(key);
    for (const ListRow& row : session.lvwPhoneSMS.rows()) {
      shown += mailbox.PlacesOf(row.key).size();
    }
  }
  // Behind a gap, before their predecessor, or without their first part stand three.
  EXPECT_EQ(shown, records - 3);
  // The parts of each long message that are joined. One reference is in both stores; one message
  // lies in another order and is joined, one does and is not, one has a gap.
  std::multiset<std::string> joined;
  for (const char16_t* key : {u"S0", u"S1", u"S3"}) {
    Folder(key);
    for (const ListRow& row : session.lvwPhoneSMS.rows()) {
      const auto places = mailbox.PlacesOf(row.key);
      const SMSMessage& head = *places[0].record;
      if (head.concatenated == 0) continue;
      joined.insert(row.key.substr(0, 3) + " " + std::to_string(head.reference) + ": " +
                    std::to_string(places.size()) + " of " + std::to_string(head.partCount));
    }
  }
  EXPECT_EQ(joined,
            (std::multiset<std::string>{"MEM 103: 3 of 3", "MEM 104: 1 of 3", "MEM 200: 3 of 3",
                                        "MEM 41: 2 of 2", "SIM 41: 3 of 3", "SIM 77: 2 of 3"}));
  EXPECT_TRUE(host.boxes.empty());
}

TEST_F(MessagesTest, AFailureIsToldAndTheNextReadingShowsAll) {
  Store("SM", 1, 1, Draft("5550199", "one"));
  Behave([](phonesim::Behaviour& b) { b.failingCommands["AT+CPMS"] = {302, 1}; });
  ASSERT_TRUE(OpensPage());
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSErrStr(text::error::kReadMessages));
  EXPECT_EQ(session.lvwPhoneSMS.Count(), 0);
  Behave([](phonesim::Behaviour& b) { b.failingCommands.clear(); });
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("Refresh"); }));
  EXPECT_EQ(Folder(u"S1"), "SIM:5550199:one ");
  EXPECT_EQ(host.boxes.size(), 1u);
}

// The memory of the phone dies while it is read: what the SIM holds is not shown as if it were all.
TEST_F(MessagesTest, AMemoryThatDiesOnTheWayIsTold) {
  for (const int location : {1, 2}) Store("SM", location, 1, Draft("5550199", "one"));
  Store("ME", 1, 1, Draft("5550199", "two"));
  Behave([](phonesim::Behaviour& b) { b.failingCommands["AT+CPMS"] = {302, 1}; });
  ASSERT_TRUE(OpensPage());
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSErrStr(text::error::kReadMessages));
  EXPECT_EQ(session.lvwPhoneSMS.Count(), 0);
}

// The battery's answer comes when the question was given up, and the reading has begun.
TEST_F(MessagesTest, ALateAnswerAboutTheBatteryShiftsNoMessage) {
  for (const int location : {1, 2, 4}) {
    Store("SM", location, 1, Draft("555010" + std::to_string(location), "x"));
  }
  ASSERT_TRUE(StartsAndConnects());
  ASSERT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
  Behave(
      [](phonesim::Behaviour& b) { b.slowCommands["AT+CBC"] = std::chrono::milliseconds(2500); });
  ASSERT_TRUE(host.RunUntil([this, yields = host.yields] { return host.yields > yields + 20; }));
  ASSERT_TRUE(Does([this] { session.Toolbar2.clicked("SMS"); }));
  Behave([](phonesim::Behaviour& b) { b.slowCommands.clear(); });
  EXPECT_EQ(Folder(u"S1"), "SIM:5550101:x SIM:5550102:x SIM:5550104:x ");
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({1}, 1); });
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("Delete"); }));
  EXPECT_EQ(Folder(u"S1"), "SIM:5550101:x SIM:5550104:x ");
  EXPECT_EQ(Stored("SM"), 2u);
  phone.GetReports().Clear();  // it was asked again before it had answered
}

TEST_F(MessagesTest, DeletesAMessageWithAllItsParts) {
  for (const int part : {1, 2, 3}) Store("ME", 2 * part, 1, Part(part, "x"));
  Store("ME", 9, 1, Draft("5550199", "stays"));
  Store("SM", 4, 1, Draft("5550199", "stays"));
  ASSERT_TRUE(OpensPage());
  Folder(u"S1");
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({1}, 1); });
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("Delete"); }));
  EXPECT_EQ(Stored("ME"), 1u);
  EXPECT_EQ(Stored("SM"), 1u);
  EXPECT_EQ(Folder(u"S1"), "SIM:5550199:stays MEM:5550199:stays ");
}

// As a user does it: New, three people out of the phonebook, a template and a smiley.
TEST_F(MessagesTest, SendsALongMessageToThreePeopleOfThePhonebook) {
  ASSERT_TRUE(OpensPage());
  const auto add = [this](const Text& id, const Text& name, int field, const Text& number) {
    auto contact = std::make_shared<clsT610Contact>();
    contact->LetData(id, 1);
    contact->LetData(name, 3);
    contact->LetData(number, field);
    program.phonebookLists().phoneContacts->Add(contact);
  };
  add(u"s1", u"Ann", 4, u"5550101");
  add(u"s2", u"Bob", 4, u"+447700900102");
  add(u"p03", u"Cy", 6, u"*103#");
  host.WhenShown("frmAddGroup", [](Window& window) {
    auto& contacts = static_cast<ListView&>(*window.Find("ListView1"));
    auto& numbers = static_cast<ListView&>(*window.Find("ListView3"));
    for (int i = 0; i < 2; ++i) {
      contacts.SelectByUser({0}, 0);
      ScriptedHost::Press(window, "Command3");
    }
    contacts.SelectByUser({0}, 0);
    contacts.activated();
    numbers.SelectByUser({0}, 0);
    ScriptedHost::Press(window, "Command3");
    ScriptedHost::Press(window, "Command1");
  });
  host.WhenShown("frmAddTextTemplate", [](Window& window) {
    static_cast<frmAddTextTemplate&>(window).Text1.text = u"On my way";
    ScriptedHost::Press(window, "Command1");
  });
  const std::string letters = Letters(320);
  host.WhenShown("frmComposeSMS", [&](Window& window) {
    ScriptedHost::Press(window, "toPhoneBook");
    EXPECT_EQ(composer.Text1.text(), u"Ann<5550101>;Bob<+447700900102>;Cy(Mobile)<*103#>");
    composer.RichTextBox1.text = FromUtf8(letters);
    composer.RichTextBox1.caret = 320;
    ScriptedHost::Press(window, "Command5");  // a new template, which is then selected
    ScriptedHost::Press(window, "Command6");
    composer.Command1[1]->clicked();
    EXPECT_EQ(composer.lblParts.text(), u"Parts: 3");
    ScriptedHost::Press(window, "CmdSend");
  });
  ASSERT_TRUE(Does([this] { session.Toolbar1.clicked("New"); }));
  EXPECT_FALSE(composer.IsLoaded());
  ASSERT_EQ(host.boxes.size(), 1u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSPromptStr(text::prompt::kMessageSent));
  const std::string text = letters + "On my way:-)|3";
  EXPECT_EQ(Sent(), (std::vector<std::string>{"5550101|" + text, "+447700900102|" + text,
                                              "*103#|" + text}));
}

// A phone that was lost and comes back has a list of contacts of its own.
TEST_F(MessagesTest, TheChoiceOfRecipientsOutlivesALostPhone) {
  ASSERT_TRUE(OpensPage());
  auto contact = std::make_shared<clsT610Contact>();
  contact->LetData(u"p03", 1);
  contact->LetData(u"Cy", 3);
  contact->LetData(u"5550103", 6);
  program.phonebookLists().phoneContacts->Add(contact);
  host.WhenShown("frmAddGroup", [this](Window& window) {
    auto& contacts = static_cast<ListView&>(*window.Find("ListView1"));
    auto& numbers = static_cast<ListView&>(*window.Find("ListView3"));
    phone.Stop();
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
    phone.Start();
    ASSERT_TRUE(Connects());
    EXPECT_EQ(program.phonebookLists().phoneContacts->Count(), 0);
    contacts.SelectByUser({0}, 0);
    contacts.activated();
    numbers.SelectByUser({0}, 0);
    ScriptedHost::Press(window, "Command3");
    ScriptedHost::Press(window, "Command1");
  });
  host.WhenShown("frmComposeSMS", [this](Window& window) {
    ScriptedHost::Press(window, "toPhoneBook");
    EXPECT_EQ(composer.Text1.text(), u"Cy(Mobile)<5550103>");
    ScriptedHost::Press(window, "cmdCancel");
  });
  host.RunEvent([this] { session.Toolbar1.clicked("New"); });
  EXPECT_FALSE(composer.IsLoaded());
}

TEST_F(MessagesTest, SavesAnswersAndPassesOn) {
  const std::string story = Letters(200);
  for (const int part : {1, 2}) {
    SmsDraft draft = Draft("+447700900150", story.substr(part == 1 ? 0 : 153, 153));
    draft.part = phonesim::SmsPart{41, 2, part};
    Store("SM", part, 1, draft);
  }
  Store("ME", 3, 1, Draft("5550199", "{好的} \\par 😀", SmsCoding::Ucs2));
  ASSERT_TRUE(OpensPage());
  Folder(u"S1");
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({0, 1}, 0); });
  host.files = {folder.Path() / "saved"};
  host.RunEvent([this] { session.Toolbar1.clicked("Save"); });
  const std::string head = "Date:\t15/06/2004 13:05:18\nFrom/To:\t";
  EXPECT_EQ(ToUtf8(RtfReader::Read(folder.Read("saved"))),
            head + "447700900150\n\nText:\n" + story + "\n\n\n" + head +
                "5550199\n\nText:\n{好的} \\par 😀\n\n\n");

  const auto sendTo = [this](const Text& recipients, const char* action) {
    host.WhenShown("frmComposeSMS", [this, recipients](Window& window) {
      if (!recipients.empty()) composer.Text1.text = recipients;
      ScriptedHost::Press(window, "CmdSend");
    });
    ASSERT_TRUE(Does([this, action] { session.Toolbar1.clicked(action); }));
    EXPECT_FALSE(composer.IsLoaded());
  };
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({0}, 0); });
  sendTo(u"", "Reply");
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({1}, 1); });
  sendTo(u"+447700900108", "Forward");
  EXPECT_EQ(Sent(), (std::vector<std::string>{"447700900150|" + story + "|2",
                                              "+447700900108|{好的} \\par 😀|1"}));
}

TEST_F(MessagesTest, WhatIsSentBeforeAFailureIsSent) {
  ASSERT_TRUE(OpensPage());
  const Text hi = u"Привет 😀";
  EXPECT_EQ(Send(u"5550101;nobody;5550103", hi), Error(text::error::kPhoneNumber));
  EXPECT_EQ(Send(u"5550102;", hi), Error(text::error::kPhoneNumber));
  EXPECT_EQ(Sent(), (std::vector<std::string>{"5550101|Привет 😀|1", "5550102|Привет 😀|1"}));
  Behave([](phonesim::Behaviour& b) { b.failingCommands["AT+CMGS"] = {500, 1, 1}; });
  EXPECT_EQ(Send(u"5550103;5550104;5550105", hi), Error(text::error::kSendMessage));
  EXPECT_EQ(Sent().back(), "5550103|Привет 😀|1");
  Behave([](phonesim::Behaviour& b) { b.failingCommands = {{"PDU", {500, 1, 1}}}; });
  EXPECT_EQ(Send(u"5550106", FromUtf8(Letters(400))), Error(text::error::kSendMessage));
  EXPECT_EQ(Sent().size(), 3u);
  EXPECT_EQ(phone.GetMemory().With([](const auto& books) { return books.sent.Waiting(); }), 1u)
      << "the first of three parts has gone out";
  // A text that fills its two parts arrives, is told as failed, and nobody else gets it.
  Behave([](phonesim::Behaviour& b) { b.failingCommands.clear(); });
  EXPECT_EQ(Send(u"5550107;5550108", FromUtf8(Letters(306))), Error(text::error::kSendMessage));
  EXPECT_EQ(Sent().back(), "5550107|" + Letters(306) + "|2");
  EXPECT_TRUE(composer.IsLoaded());
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
}

TEST_F(MessagesTest, ASlowNetworkIsWaitedFor) {
  ASSERT_TRUE(OpensPage());
  Behave([](phonesim::Behaviour& b) { b.slowCommands["PDU"] = std::chrono::milliseconds(700); });
  const int yields = host.yields;
  EXPECT_EQ(Send(u"5550101", u"Hi"),
            std::vector<Text>{session.language().getTSPromptStr(text::prompt::kMessageSent)});
  EXPECT_GT(host.yields, yields + 10) << "the screen goes on meanwhile";
  EXPECT_EQ(Sent(), std::vector<std::string>{"5550101|Hi|1"});
}

}  // namespace
}  // namespace tessarin
