// A phone that takes longer over its answers than a reply is waited for: no answer may be taken for
// another's, since deleting goes by the place at which a message was read.

#include "messages/MessageJobs.h"
#include "messages/SmsPage.h"
#include "phonesim/SmsPdu.h"
#include "tests/support/SessionBench.h"

namespace tessarin {
namespace {

using std::chrono::milliseconds;

class SlowPhoneTest : public SessionBench {
 protected:
  SlowPhoneTest() {
    for (const int location : {1, 2, 4}) Store("SM", location, "sim" + std::to_string(location));
    for (const int location : {2, 3}) Store("ME", location, "mem" + std::to_string(location));
    settings.With([](phonesim::Behaviour& b) {
      b.messages.simTotal = 5;
      b.messages.phoneTotal = 5;
    });
    session.AddPage(page);
    StartAndConnect();
    port.keepsTime = true;
  }
  // The phone notes a question that comes before its answer to the one before.
  void TearDown() override {
    reports.Clear();
    SessionBench::TearDown();
  }

  void Store(const std::string& store, int location, const std::string& text) {
    phonesim::SmsDraft draft;
    draft.address = "5550199";
    draft.text = text;
    draft.time = "40605131508100";
    phone.GetMemory().With([&](phonesim::Books& books) {
      books.messages.Set(store, location, {1, phonesim::WriteStored(draft)});
    });
  }
  void Slow(const std::string& command, int limit) {
    settings.With([&](phonesim::Behaviour& b) {
      b.slowCommands = {{command, milliseconds(limit)}};
    });
  }
  // How the battery's question is given up: its answer is still to come.
  void AskBatteryInVain() {
    Slow("AT+CBC", 2500);
    ASSERT_TRUE(com.SendATCommand(u"AT+CBC"));
    port.XSleep(2000);
    Slow("AT+CBC", 0);
  }
  void Do(std::int32_t job) {
    session.commandState = job;
    Tick(session.Timer1);
  }
  // Every message read, as its location and text; or the error that was told.
  std::string Read() {
    host.boxes.clear();
    Do(job::kLoadMessages);
    if (!host.boxes.empty()) {
      EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(text::error::kReadMessages));
      return "error";
    }
    std::string read;
    for (const auto* records : {&page.mailbox().simMessages, &page.mailbox().memMessages}) {
      for (const SMSMessage& record : *records) {
        read += std::to_string(record.location) + "=" + ToUtf8(record.text.Trimmed()) + " ";
      }
    }
    return read;
  }

  static constexpr char kAll[] = "1=sim1 2=sim2 4=sim4 2=mem2 3=mem3 ";

  ATMessages messages{com};
  frmSplashTransmission busyWindow{session};
  frmComposeSMS composer{session, messages};
  SmsPage page{session, port, messages, busyWindow, composer, nullptr};
};

TEST_F(SlowPhoneTest, EveryMessageKeepsItsOwnLocationOrIsNotShown) {
  EXPECT_EQ(Read(), kAll);
  for (const bool echo : {false, true}) {
    settings.With([echo](phonesim::Behaviour& b) { b.echo = echo; });
    AskBatteryInVain();
    EXPECT_EQ(Read(), kAll) << "behind the battery's question";
    const struct {
      const char* command;
      int milliseconds;
      const char* read;
    } cases[] = {{"AT+CPMS", 9000, kAll},
                 {"AT+CPMS", 11000, "error"},
                 {"AT+CMGR", 9000, kAll},
                 {"AT+CMGR", 11000, kAll},
                 {"AT+CMGR", 25000, "error"}};
    for (const auto& c : cases) {
      Slow(c.command, c.milliseconds);
      EXPECT_EQ(Read(), c.read) << c.command << " " << c.milliseconds << (echo ? " echo" : "");
      Slow(c.command, 0);
      port.XSleep(30000);  // all that was still to come
    }
    EXPECT_EQ(Read(), kAll);
  }
}

TEST_F(SlowPhoneTest, DeletesWhatTheUserSaw) {
  host.RunEvent([this] { session.Toolbar2.clicked("SMS"); });
  EXPECT_EQ(Read(), kAll);
  host.RunEvent([this] { session.tvwPhoneSMS.SelectByUser(u"S1"); });
  host.RunEvent([this] { session.lvwPhoneSMS.SelectByUser({2, 3}, 3); });
  host.RunEvent([this] { session.Toolbar1.clicked("Delete"); });
  AskBatteryInVain();
  Do(job::kDeleteMessages);
  EXPECT_EQ(Read(), "1=sim1 2=sim2 3=mem3 ");
}

TEST_F(SlowPhoneTest, AStoreThatDiesOnTheWayIsAFailure) {
  for (const int code : {0, 302}) {
    settings.With([code](phonesim::Behaviour& b) { b.failingCommands["AT+CPMS"] = {code, 1}; });
    EXPECT_EQ(Read(), "error") << code;
    settings.With([](phonesim::Behaviour& b) { b.failingCommands.clear(); });
  }
  EXPECT_EQ(Read(), kAll);
  // Silent from the second message of the phone memory on.
  int messagesRead = 0;
  port.spoil = [&](std::string& sent) {
    if (sent.find("+CMGR:") == std::string::npos || ++messagesRead != 4) return;
    settings.With([](phonesim::Behaviour& b) { b.silence = phonesim::Silence::Everything; });
  };
  EXPECT_EQ(Read(), "error");
  EXPECT_EQ(page.mailbox().memMessages.size(), 1u);
  EXPECT_EQ(session.lvwPhoneSMS.Count(), 0);
  settings.With([](phonesim::Behaviour& b) { b.silence = phonesim::Silence::None; });
  EXPECT_EQ(Read(), kAll);
}

// A phone that stands at its prompt takes every command for a piece of the message.
TEST_F(SlowPhoneTest, APromptThatComesTooLateIsLeft) {
  for (const int limit : {11000, 19000, 21000}) {
    Slow("AT+CMGS", limit);
    host.boxes.clear();
    composer.SetVariable(u"5550101", u"Hi");
    composer.Show(Modality::Modeless);
    Do(job::kSendMessage);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, language.getTSErrStr(text::error::kSendMessage));
    Slow("AT+CMGS", 0);
    port.XSleep(30000);
    port.serial_flush();
    ASSERT_TRUE(com.SendATCommand(u"AT+CBC"));
    EXPECT_NE(com.ReadATResponse().find(u"+CBC: 0,85"), Text::npos) << limit;
    composer.Unload();
  }
  EXPECT_EQ(phone.GetMemory().With([](const auto& books) { return books.sent.All().size(); }), 0u);
}

}  // namespace
}  // namespace tessarin
