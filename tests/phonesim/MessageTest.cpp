#include <gtest/gtest.h>

#include <array>
#include <map>

#include "phonesim/Gsm.h"
#include "phonesim/SampleMessages.h"
#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

const std::string kOk = "\r\nOK\r\n";
const std::string kError = "\r\nERROR\r\n";
const std::string kPrompt = "\r\n> ";

std::string Cms(int code) { return "\r\n+CMS ERROR: " + std::to_string(code) + "\r\n"; }

class MessageTest : public testing::Test, protected Bench {
 protected:
  std::string Submit(std::size_t length, const std::string& pdu) {
    EXPECT_EQ(TalkText("AT+CMGS=" + std::to_string(length) + "\r"), kPrompt);
    return TalkText(pdu + "\x1A");
  }
  /// The same with the right length.
  std::string Submit(const std::string& pdu) { return Submit(TpduLength(pdu), pdu); }

  std::string Sent() {
    return phone.GetMemory().With([](Books& books) {
      std::string all;
      for (const SentMessage& m : books.sent.All()) {
        all += m.recipient + "|" + m.text + "|" + std::to_string(m.parts) + "\n";
      }
      return all;
    });
  }
  void Store(const std::string& store, int location, int status, const std::string& pdu) {
    phone.GetMemory().With([&](Books& books) {
      books.messages.Set(store, location, {status, pdu});
    });
  }
};

TEST_F(MessageTest, ReadsAndDeletes) {
  Store("SM", 2, 0, "0791447779078484040B91");
  Store("ME", 100, 3, "00110000");
  EXPECT_EQ(TalkText("AT+CPMS=\"SM\"\r"), "\r\n+CPMS: 1,30,1,30,1,30\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CMGR=1\r"), kOk);
  EXPECT_EQ(TalkText("AT+CMGR=2\r"), "\r\n+CMGR: 0,,3\r\n0791447779078484040B91\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CMGR=2\r").substr(0, 14), "\r\n+CMGR: 1,,3\r") << "no longer new";
  EXPECT_EQ(TalkText("AT+CMGD=2\r"), kOk);
  EXPECT_EQ(TalkText("AT+CMGD=2\r"), Cms(321));
  EXPECT_EQ(TalkText("AT+CMGR=31\r"), Cms(321));
  settings.With([](Behaviour& b) { b.messages.emptyLocation = EmptyLocation::CmsError; });
  EXPECT_EQ(TalkText("AT+CMGR=1\r"), Cms(321));
  settings.With([](Behaviour& b) { b.messages.emptyLocation = EmptyLocation::Error; });
  EXPECT_EQ(TalkText("AT+CMGR=1\r"), kError);
  EXPECT_EQ(TalkText("AT+CPMS=\"ME\"\r"), "\r\n+CPMS: 1,100,1,100,1,100\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CMGR=100\r"), "\r\n+CMGR: 3,,3\r\n00110000\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CMGF=0\r"), kOk);
  EXPECT_EQ(reports.All(), std::vector<std::string>());
  EXPECT_EQ(TalkText("AT+CMGF=1\r") + TalkText("AT+CPMS=ME\r"), kError + kError);
  EXPECT_EQ(reports.Count(), 2U);
}

TEST_F(MessageTest, TakesMessagesApart) {
  EXPECT_EQ(Submit(17, "00110006914421430000FF06C8329BFD8600"), "\r\n+CMGS: 1\r\n" + kOk);
  EXPECT_EQ(Submit("00110005812143F50000FF0131"), "\r\n+CMGS: 2\r\n" + kOk);
  EXPECT_EQ(Submit("079144777907848401000491A1B2000804D83DDE00"), "\r\n+CMGS: 3\r\n" + kOk)
      << "no validity, a service centre, star and hash";
  EXPECT_EQ(Sent(), "+441234|Hello\u0394|1\n12345|1|1\n+1*2#|\U0001F600|1\n");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(MessageTest, JoinsParts) {
  const auto part = [&](int number, const std::string& text) {
    SmsDraft draft;
    draft.outgoing = true;
    draft.address = "12345";
    draft.text = text;
    draft.validity = SmsValidity::Relative;
    draft.part = SmsPart{0xFE, 3, number};
    return "00" + WriteStored(draft).substr(16);
  };
  // Three fill bits less than an octet: the first letter "A" stands in 82, as bits 1 to 7.
  EXPECT_EQ(Submit("00510005812143F50000FF08050003FE030182"), "\r\n+CMGS: 1\r\n" + kOk);
  EXPECT_EQ(Submit(part(3, "C€")), "\r\n+CMGS: 2\r\n" + kOk);
  EXPECT_EQ(Sent(), "");
  EXPECT_EQ(Submit(part(2, std::string(153, 'B'))), "\r\n+CMGS: 3\r\n" + kOk);
  EXPECT_EQ(Sent(), "12345|A" + std::string(153, 'B') + "C€|3\n");
  // The same reference once more, given up in the middle and begun anew.
  for (const int number : {1, 2, 1, 2, 3}) Submit(part(number, std::to_string(number)));
  EXPECT_EQ(Sent().substr(Sent().find('\n') + 1), "12345|123|3\n");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(MessageTest, ReportsWhatIsNoMessage) {
  struct Wrong {
    const char* pdu;
    const char* report;
  };
  const std::array<Wrong, 15> all = {{
      {"001", "PDU is not made of pairs of digits"},
      {"00110006914421*30000FF0131", "PDU is not made of pairs of digits"},
      {"0010", "PDU is no SMS-SUBMIT"},
      {"00110000810000FF0131", "number of 0 or more than 20 digits"},
      {"00110005912143050000FF0131", "odd number without filler F"},
      {"00110006912143F50000FF0131", "filler within the number"},
      {"00110006902143650000FF0131", "number type not 81 or 91"},
      {"00110006912143650010FF0131", "data coding that this phone does not send"},
      {"00110006912143650000FF0231", "user data are not as long as their length"},
      {"00110006912143650000FF013131", "user data are not as long as their length"},
      {"00110006912143650008FFFF", "more than 140 octets of user data"},
      {"00110006912143650000", "PDU ends in validity"},
      {"00510006912143650008FF06050003010000", "part number beyond the number of parts"},
      {"00510006912143650008FF06050003010203", "part number beyond the number of parts"},
      {"00510006912143650008FF03050003", "PDU ends in header"},
  }};
  for (const Wrong& wrong : all) {
    EXPECT_EQ(Submit(std::max<std::size_t>(TpduLength(wrong.pdu), 1), wrong.pdu), Cms(304))
        << wrong.pdu;
    ASSERT_EQ(reports.Count(), 1U) << wrong.pdu;
    EXPECT_EQ(reports.All()[0].substr(0, reports.All()[0].rfind(':')), wrong.report) << wrong.pdu;
    reports.Clear();
  }
  Submit(13, "00110006912143650000FF0131");
  EXPECT_EQ(reports.All()[0].substr(0, 29), "PDU is not as long as announc");
  EXPECT_EQ(Sent(), "");
}

TEST_F(MessageTest, FailsAtEachStage) {
  const std::string pdu = "00110005812143F50000FF0131";
  settings.With([](Behaviour& b) { b.failingCommands["AT+CMGS"] = {512, 0, 1}; });
  EXPECT_EQ(TalkText("AT+CMGS=12\r"), Cms(512));
  EXPECT_EQ(TalkText(pdu) + TalkText("\x1A"), "") << "clients send it all the same";
  settings.With([](Behaviour& b) {
    b.failingCommands["PDU"] = {500, 1, 1};
    b.unansweredCommands["PDU"] = 1;
    b.slowCommands["PDU"] = std::chrono::milliseconds(700);
  });
  EXPECT_EQ(Submit(pdu), "");
  EXPECT_EQ(Submit(pdu), "\r\n+CMGS: 1\r\n" + kOk);
  EXPECT_EQ(Submit(pdu), Cms(500));
  phone.Receive(ToBytes("AT+CMGR=999\r"));
  phone.Receive(ToBytes("AT+CMGS=12\r"));
  phone.Receive(ToBytes(pdu + "\x1A"));
  EXPECT_EQ(phone.Take().back().delay, std::chrono::milliseconds(700));
  EXPECT_EQ(Sent(), "12345|1|1\n12345|1|1\n");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
  phone.Delivered();
  EXPECT_EQ(TalkText("AT+CMGS=12\r"), kPrompt);
  EXPECT_EQ(TalkText("AT\r"), kOk) << "taken for the end of the body";
  EXPECT_EQ(TalkText("AT\r"), kOk);
  EXPECT_EQ(reports.All(), std::vector<std::string>{"message broken off: 41 54"});
  reports.Clear();
  EXPECT_EQ(TalkText("AT+CMGS=12\r"), kPrompt);
  EXPECT_EQ(TalkText("0011\x1B"), kOk) << "the standard's own way out";
  EXPECT_EQ(TalkText("\x1B"
                     "AT\r"),
            kOk);
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(MessageTest, TakesUcs2ThatEndsBeforeItsLengthWhenToldTo) {
  const std::string whole = "00110005812143F50008FF04041F0440";
  const std::string shorter = "00110005812143F50008FF06041F0440";
  EXPECT_EQ(Submit(shorter), "\r\n+CMGS: 1\r\n" + kOk);
  EXPECT_EQ(Sent(), "12345|\u041F\u0440|1\n");
  EXPECT_EQ(Submit("00110005812143F50000FF0531"), Cms(304)) << "septets never";
  EXPECT_EQ(Submit("00110005812143F50008FF05041F0440"), Cms(304)) << "half a character";
  EXPECT_EQ(Submit(17, shorter), Cms(304)) << "the length announced holds";
  reports.Clear();
  settings.With([](Behaviour& b) { b.messages.takesShortUcs2 = false; });
  EXPECT_EQ(Submit(shorter), Cms(304));
  EXPECT_EQ(reports.Count(), 1U);
  EXPECT_EQ(Submit(whole), "\r\n+CMGS: 2\r\n" + kOk);
  reports.Clear();
}

TEST_F(MessageTest, TheSampleHasSixtyOfEveryKind) {
  std::map<std::string, int> kinds;
  for (const auto& [name, store] : MakeSampleMessages(2026)) {
    for (const auto& [location, message] : store) {
      ++kinds["all"];
      ++kinds["status " + std::to_string(message.status)];
      EXPECT_LE(TpduLength(message.pdu), 164U);
      const auto octets = *BytesOfHex(message.pdu);
      ++kinds[(octets[8] & 0x40) != 0 ? "part" : "whole"];
      ++kinds[octets[message.status < 2 ? 10 : 11] == 0xD0 ? "name" : "number"];
      if (message.status >= 2) {
        ++kinds["validity " + std::to_string(octets[8] >> 3 & 3)];
        ReadSubmit(message.pdu, TpduLength(message.pdu));
      }
    }
  }
  EXPECT_EQ(kinds["all"], 60);
  EXPECT_EQ(kinds.size(), 13U);
  EXPECT_EQ(kinds["part"], 17);
}

TEST(Gsm, PacksAsTheStandardDoes) {
  EXPECT_EQ(ToHex(PackSeptets(GsmSeptets("hellohello"))), "E8 32 9B FD 46 97 D9 EC 37");
  EXPECT_EQ(ToHex(PackSeptets(GsmSeptets("A"), 1)), "82");
  EXPECT_EQ(ToHex(GsmSeptets("@€[ß王")), "00 1B 65 1B 3C 1E 3F");
  EXPECT_EQ(TextOfSeptets(Bytes{0x00, 0x1B, 0x65, 0x1B, 0x41, 0x1E, 0x1B}), "@€Aß\x1B");
  const Bytes octets = *BytesOfHex("E8329BFD4697D9EC37");
  EXPECT_EQ(TextOfSeptets(UnpackSeptets(octets, 10)), "hellohello");
}

}  // namespace
}  // namespace phonesim
