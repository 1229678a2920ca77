#include <gtest/gtest.h>

#include "phonesim/SampleSim.h"
#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

const std::string kOk = "\r\nOK\r\n";
const std::string kError = "\r\nERROR\r\n";

class SimTest : public testing::Test, protected Bench {
 protected:
  void Fill(SimBook::Entries entries) {
    phone.GetMemory().With([&](Books& books) { books.sim.Fill(std::move(entries)); });
  }
  SimBook::Entries All() {
    return phone.GetMemory().With([](Books& books) { return books.sim.All(); });
  }
};

TEST_F(SimTest, ReadsRangesWithGaps) {
  Fill({{2, {"Jürgen \"J\", Maß", "+49123"}}, {4, {"", "*100#"}}, {250, {"李小明", "5"}}});
  EXPECT_EQ(TalkText("AT+CPBS=\"SM\"\r"), kOk);
  EXPECT_EQ(TalkText("AT+CPBS?\r"), "\r\n+CPBS: \"SM\",3,250\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CPBR=?\r"), "\r\n+CPBR: (1-250),40,30\r\n" + kOk);
  TalkText("AT+CSCS=\"UTF-8\"\r");
  EXPECT_EQ(
      TalkText("AT+CPBR=1,10\r"),
      "\r\n+CPBR: 2,\"+49123\",145,\"Jürgen \"J\", Maß\"\r\n+CPBR: 4,\"*100#\",129,\"\"\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CPBR=250\r"), "\r\n+CPBR: 250,\"5\",129,\"李小明\"\r\n" + kOk);
  EXPECT_EQ(TalkText("AT+CPBR=3\r") + TalkText("AT+CPBR=5,249\r"), kOk + kOk);
  TalkText("AT+CSCS=\"UCS2\"\r");
  EXPECT_EQ(TalkText("AT+CPBR=250\r"), "\r\n+CPBR: 250,\"5\",129,\"674E5C0F660E\"\r\n" + kOk);
  TalkText("AT+CSCS=\"GSM\"\r");
  EXPECT_EQ(TalkText("AT+CPBR=2\r"),
            "\r\n+CPBR: 2,\"+49123\",145,\"J\x7Ergen \"J\", Ma\x1E\"\r\n" + kOk);
  settings.With([](Behaviour& b) { b.sim.last = 7; });
  EXPECT_EQ(TalkText("AT+CPBR=?\r"), "\r\n+CPBR: (1-7),40,30\r\n" + kOk);
  EXPECT_EQ(reports.All(), std::vector<std::string>());
  for (const char* wrong : {"AT+CPBR=1,8\r", "AT+CPBR=0,7\r", "AT+CPBR=3,2\r", "AT+CPBR=\r",
                            "AT+CPBR=1,\r", "AT+CPBR\r", "AT+CPBS=SM\r"}) {
    EXPECT_EQ(TalkText(wrong), kError);
  }
  EXPECT_EQ(reports.Count(), 7U);
}

TEST_F(SimTest, WritesAndDeletes) {
  TalkText("AT+CSCS=\"UTF-8\"\r");
  settings.With([](Behaviour& b) { b.sim.nameLength = 6; });
  EXPECT_EQ(TalkText("AT+CPBW=3,\"+4477\",145,\"Grüße!\"\r"), kOk);
  EXPECT_EQ(TalkText("AT+CPBW=4,\"\",129,\"A,B\"\r"), kOk);
  EXPECT_EQ(All(), (SimBook::Entries{{3, {"Grüße!", "+4477"}}, {4, {"A,B", ""}}}));
  EXPECT_EQ(TalkText("AT+CPBW=4\r") + TalkText("AT+CPBW=9\r"), kOk + kOk);
  EXPECT_EQ(TalkText("AT+CPBW=3,\"1\",129,\"Grüße!!\"\r"), kError) << "too long";
  EXPECT_EQ(TalkText("AT+CPBW=3,\"1\",129,\"a\"b\"\r"), kError) << "a quotation mark";
  settings.With([](Behaviour& b) { b.failingCommands["AT+CPBW"] = {0, 1, 1}; });
  EXPECT_EQ(TalkText("AT+CPBW=5,\"1\",129,\"\"\r"), kOk);
  EXPECT_EQ(TalkText("AT+CPBW=3\r"), kError);
  EXPECT_EQ(TalkText("AT+CPBW=5\r"), kOk);
  EXPECT_EQ(reports.All(), std::vector<std::string>());
  for (const char* wrong :
       {"AT+CPBW=251\r", "AT+CPBW=0,\"1\",129,\"A\"\r", "AT+CPBW=1,\"+1\",129,\"A\"\r",
        "AT+CPBW=1,\"1\",145,\"A\"\r", "AT+CPBW=1,\"1 2\",129,\"A\"\r", "AT+CPBW=1,\"1\",129,A\r",
        "AT+CPBW=1,1,129,\"A\"\r", "AT+CPBW=\r"}) {
    EXPECT_EQ(TalkText(wrong), kError) << wrong;
  }
  EXPECT_EQ(reports.Count(), 8U);
  EXPECT_EQ(All(), (SimBook::Entries{{3, {"Grüße!", "+4477"}}}));
}

TEST_F(SimTest, TheSampleHasGapsAndAFullBeginning) {
  const SimBook::Entries entries = MakeSampleSim();
  EXPECT_EQ(entries.size(), 120U);
  for (int location = 1; location <= 20; ++location) EXPECT_TRUE(entries.contains(location));
  for (int location = 21; location <= 30; ++location) EXPECT_FALSE(entries.contains(location));
  EXPECT_EQ(entries.rbegin()->first, 250);
  Fill(entries);
  settings.With([](Behaviour& b) { b.sim.nameLength = 18; });
  TalkText("AT+CSCS=\"UTF-8\"\r");
  const std::string all = TalkText("AT+CPBR=1,250\r");
  EXPECT_NE(all.find("\r\n+CPBR: 1,\"+4917604069100\",145,\"Anna Berg\"\r\n"), std::string::npos);
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

}  // namespace
}  // namespace phonesim
