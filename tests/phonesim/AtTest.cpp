#include <gtest/gtest.h>

#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

struct Exchange {
  const char* request;
  const char* answer;
};

class AtTest : public testing::Test, protected Bench {};

TEST_F(AtTest, AnswersBetweenCrLfPairs) {
  const Exchange exchanges[] = {
      {"AT\r", "\r\nOK\r\n"},
      {"AT+CGMI\r", "\r\nEricsson\r\n\r\nOK\r\n"},
      {"at+cgmm\r", "\r\n1021011-BVT610\r\n\r\nOK\r\n"},
      {"AT+GMM\r", "\r\nT610\r\n\r\nOK\r\n"},
      {"AT+CGSN\r", "\r\n001017006100427\r\n\r\nOK\r\n"},
      {"AT+CSCS?\r", "\r\n+CSCS: \"GSM\"\r\n\r\nOK\r\n"},
      {"AT+CSCS=\"UTF-8\"\r", "\r\nOK\r\n"},
      {"AT+CSCS?\r", "\r\n+CSCS: \"UTF-8\"\r\n\r\nOK\r\n"},
      {"AT+CSCS=?\r", "\r\n+CSCS: (\"GSM\",\"IRA\",\"8859-1\",\"UTF-8\",\"UCS2\")\r\n\r\nOK\r\n"},
      {"AT+CBC\r", "\r\n+CBC: 0,85\r\n\r\nOK\r\n"},
      {"AT*EOBEX\r", "\r\nCONNECT\r\n"},
  };
  for (const Exchange& exchange : exchanges) {
    EXPECT_EQ(TalkText(exchange.request), exchange.answer) << exchange.request;
  }
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(AtTest, EchoComesBeforeTheAnswerAndIsSwitchedByItsCommand) {
  EXPECT_EQ(TalkText("ATE1\r"), "\r\nOK\r\n");
  EXPECT_EQ(TalkText("AT+CG"), "AT+CG");
  EXPECT_EQ(TalkText("MI\r"), "MI\r\r\nEricsson\r\n\r\nOK\r\n");
  EXPECT_EQ(TalkText("ATE0\r"), "ATE0\r\r\nOK\r\n");
  EXPECT_EQ(TalkText("AT\r"), "\r\nOK\r\n");
}

TEST_F(AtTest, DisconnectIsGivenBackAndLeavesNoRubbish) {
  for (const bool echo : {false, true}) {
    settings.With([echo](Behaviour& b) { b.echo = echo; });
    EXPECT_EQ(Talk("81 00 03"), "81 00 03");
    EXPECT_EQ(Talk("81"), "");
    EXPECT_EQ(Talk("00"), "");
    EXPECT_EQ(Talk("03"), "81 00 03");
    EXPECT_EQ(TalkText("AT\r"), echo ? "AT\r\r\nOK\r\n" : "\r\nOK\r\n");
  }
  EXPECT_EQ(reports.Count(), 0U);
}

TEST_F(AtTest, Utf8ThatHoldsByte81IsNoDisconnect) {
  settings.With([](Behaviour& b) { b.echo = true; });
  EXPECT_EQ(TalkText("AT+\u0401\r"), "AT+\u0401\r\r\nERROR\r\n");
}

TEST_F(AtTest, BreachesAreReported) {
  struct Breach {
    const char* wire;
    const char* answer;
    const char* report;
  };
  const Breach breaches[] = {
      {"'AT+NONE' 0D", "0D 0A 45 52 52 4F 52 0D 0A",
       "unknown AT command AT+NONE: 41 54 2B 4E 4F 4E 45"},
      {"'AT+CSCS=UTF-8' 0D", "0D 0A 45 52 52 4F 52 0D 0A",
       "unknown AT command AT+CSCS=UTF-8: 41 54 2B 43 53 43 53 3D 55 54 46 2D 38"},
      {"'ATX4' 0D", "0D 0A 45 52 52 4F 52 0D 0A", "unknown AT command ATX4: 41 54 58 34"},
      {"83 00 03", "", "OBEX packet in AT mode: 83 00 03"},
      {"81 00 04 00", "", "bytes that belong to no command: 81 00 04 00"},
      {"'AT+C' 81 00 03", "81 00 03", "bytes that belong to no command: 41 54 2B 43"},
      {"'AT' 0D 0A", "0D 0A 4F 4B 0D 0A", "bytes that belong to no command: 0A"},
  };
  for (const Breach& breach : breaches) {
    EXPECT_EQ(Talk(breach.wire), breach.answer) << breach.wire;
    EXPECT_EQ(reports.All(), std::vector<std::string>{breach.report});
    reports.Clear();
    EXPECT_EQ(TalkText("AT\r"), "\r\nOK\r\n") << "after " << breach.wire;
  }
}

TEST_F(AtTest, ASecondCommandBeforeTheAnswerIsABreach) {
  EXPECT_EQ(TalkText("AT\rAT\r"), "\r\nOK\r\n\r\nOK\r\n");
  EXPECT_EQ(reports.All(),
            std::vector<std::string>{"request before the answer to the one before: 41 54"});
}

TEST_F(AtTest, FaultsOnDemand) {
  settings.With([](Behaviour& b) {
    b.refusedCommands = {"AT+CSCS"};
    b.unansweredCommands["AT+CBC"] = 2;
    b.battery = {98, Battery::Trend::Charging};
  });
  EXPECT_EQ(TalkText("AT+CSCS=\"UTF-8\"\r"), "\r\nERROR\r\n");
  EXPECT_EQ(TalkText("AT+CBC\r"), "");
  EXPECT_EQ(TalkText("AT+CBC\r"), "");
  EXPECT_EQ(TalkText("AT+CBC\r"), "\r\n+CBC: 1,99\r\n\r\nOK\r\n");
  EXPECT_EQ(TalkText("AT+CBC\r"), "\r\n+CBC: 1,100\r\n\r\nOK\r\n");
  EXPECT_EQ(TalkText("AT+CBC\r"), "\r\n+CBC: 1,100\r\n\r\nOK\r\n");
  settings.With([](Behaviour& b) { b.silence = Silence::Everything; });
  EXPECT_EQ(TalkText("AT\r") + Talk("81 00 03"), "");
  EXPECT_EQ(reports.Count(), 0U);
}

}  // namespace
}  // namespace phonesim
