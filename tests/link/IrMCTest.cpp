#include "link/IrMC.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedPort.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");

std::string Reply(char code, const std::string& headers) {
  const std::size_t length = headers.size() + 3;
  return std::string{code, static_cast<char>(length >> 8), static_cast<char>(length)} + headers;
}

// A reply with contents, behind the headers that some phones put before them.
std::string Contents(char code, const std::string& data, const std::string& before = "") {
  const std::size_t length = data.size() + 3;
  return Reply(code, before +
                         std::string{code == '\xA0' ? '\x49' : '\x48',
                                     static_cast<char>(length >> 8), static_cast<char>(length)} +
                         data);
}

constexpr char kOn = '\x90', kEnd = '\xA0';

class Objects : public ::testing::Test {
 protected:
  void Answer(const std::string& reply) { port.Answer({reply}); }
  void AnswerEnd(const std::string& data) { Answer(Contents(kEnd, data)); }
  std::string Written(std::size_t index) const {
    return index < port.written.size() ? Digits(port.written[index]) : "nothing";
  }
  void Restart() {
    port.Forget();
    port.written.clear();
  }

  ScriptedPort port;
  modComLib com{port, kNoPorts};
  IrMC irmc{com};
  int count = -1, room = -1;
  Text text = u"before";
};

TEST_F(Objects, ReadsThePhonebook) {
  AnswerEnd("Total-Records:2  \r\nMaximum-Records:510\r\n");
  Answer(Contents(kOn, "BEGIN:VCARD\r\nTEL:+-4412"));
  Answer(Contents(kOn, "34567+BBY"));
  AnswerEnd("-\r\n");
  AnswerEnd("258\r\n");
  std::vector<int> steps;
  ASSERT_TRUE(
      irmc.ReadPhonebookObject(count, text, room, [&](int step) { steps.push_back(step); }));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(room, 100);
  EXPECT_EQ(text, TextView(u"BEGIN:VCARD\r\nTEL:+441234567Ж\r\n\0", 31));
  EXPECT_EQ(irmc.pbChangeCounter(), 258);
  EXPECT_EQ(steps, (std::vector<int>{1, 2}));
  const char* const kPackets[] = {
      // telecom/pb/info.log
      "83 002E 01 002B 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 0069 006E 0066 006F "
      "002E 006C 006F 0067 0000",
      // telecom/pb.vcf
      "83 0024 01 0021 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002E 0076 0063 0066 0000",
      "83 0003", "83 0003",
      // telecom/pb/luid/cc.log
      "83 0034 01 0031 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 006C 0075 0069 0064 "
      "002F 0063 0063 002E 006C 006F 0067 0000"};
  ASSERT_EQ(port.written.size(), std::size(kPackets));
  for (std::size_t i = 0; i < std::size(kPackets); ++i) {
    EXPECT_EQ(Written(i), Digits(Wire(kPackets[i])));
  }
}

TEST_F(Objects, ReadsTheCalendar) {
  Answer(Contents(kOn, "Total-Records:1\r\nMaximum-Records:300\r\nx:"));
  AnswerEnd("1\r\n");
  AnswerEnd("BEGIN:VCALENDAR\r\n");
  ASSERT_TRUE(irmc.ReadCalendarObject(count, text, room));
  EXPECT_EQ(count, 1);
  EXPECT_EQ(room, 300);
  EXPECT_EQ(text, TextView(u"BEGIN:VCALENDAR\r\n\0", 18));
  // telecom/cal/luid/0.log, a continuation, telecom/cal.vcs
  EXPECT_EQ(Written(0), Digits(Wire("83 0034 01 0031 0074 0065 006C 0065 0063 006F 006D 002F 0063 "
                                    "0061 006C 002F 006C 0075 0069 0064 002F 0030 002E 006C 006F "
                                    "0067 0000")));
  EXPECT_EQ(Written(1), "830003");
  EXPECT_EQ(Written(2), Digits(Wire("83 0026 01 0023 0074 0065 006C 0065 0063 006F 006D 002F 0063 "
                                    "0061 006C 002E 0076 0063 0073 0000")));
  EXPECT_EQ(port.written.size(), 3u);
}

// A count of -1 stands for a log that cannot be read.
TEST_F(Objects, CountsByTheInformationLog) {
  const struct {
    std::string log;
    int count;
    int room = -1;  // of the calendar; -1 when only that fails
  } cases[] = {
      {"Total-Records:0\r\nMaximum-Records:510\r\n", 0, 510},
      {"Last:x\r\nTotal-Records:0\r\na1-Records:0\r\nMaximum-Records: 20 \r\n", 0, 20},
      {"Total-Records:0\nMaximum-Records:9", 0, 9},
      {"Total-Records:0\r\n", 0},
      {"Total-Records:0\r\nMaximum-Records:many\r\n", 0},
      {"Total-Records:0\r\nMaximum-Records:65536\r\n", 0},
      {"Total-Records:\r\nMaximum-Records:510\r\n", -1},
      {"Total-Records:ten\r\nMaximum-Records:510\r\n", -1},
      {"Total-Records:-1\r\nMaximum-Records:510\r\n", -1},
      {"Total-Records:99999999999999999999\r\nMaximum-Records:510\r\n", -1},
      {"Maximum-Records:510\r\n", -1},
      {"", -1},
  };
  for (const auto& c : cases) {
    // The Length header counts as little as that the log comes in two packets.
    for (const std::string& before : {std::string(), Wire("C3 00004849")}) {
      Restart();
      Answer(Contents(kOn, c.log.substr(0, 7), before));
      AnswerEnd(c.log.substr(std::min<std::size_t>(c.log.size(), 7)));
      EXPECT_EQ(irmc.ReadPhonebookObject(count, text, room), c.count == 0) << c.log;
      EXPECT_EQ(port.written.size(), 2u);
      Restart();
      Answer(Contents(kEnd, c.log, before));
      EXPECT_EQ(irmc.ReadCalendarObject(count, text, room), c.room >= 0) << c.log;
      EXPECT_EQ(port.written.size(), 1u);
      if (c.room >= 0) {
        EXPECT_EQ(room, c.room);
        EXPECT_EQ(count, c.count);
        EXPECT_EQ(text, u"");
      }
    }
  }
}

TEST_F(Objects, TellsNoMoreThan37Packets) {
  AnswerEnd("Total-Records:65535\r\n");
  for (int packet = 0; packet < 50; ++packet) Answer(Contents(kOn, "x"));
  AnswerEnd("");
  AnswerEnd("70000\r\n");
  std::vector<int> steps;
  ASSERT_TRUE(
      irmc.ReadPhonebookObject(count, text, room, [&](int step) { steps.push_back(step); }));
  EXPECT_EQ(count, 65535);
  EXPECT_EQ(text.size(), 51u);
  EXPECT_EQ(irmc.pbChangeCounter(), 70000 - 65536);
  ASSERT_EQ(steps.size(), 50u);
  EXPECT_EQ(steps[36], 37);
  EXPECT_EQ(steps[49], 37);
}

TEST_F(Objects, FailsAtWhateverStepFails) {
  const std::string log = Contents(kEnd, "Total-Records:1\r\nMaximum-Records:1\r\n");
  const std::string card = Contents(kEnd, "BEGIN:VCARD"), counter = Contents(kEnd, "1\r\n");
  const std::string refused = Wire("C4 0003"), lying = Wire("A0 0009 48 0004 'ab' 4C"),
                    wordy = Contents(kEnd, "one\r\n");
  const struct {
    std::vector<std::string> replies;
    bool phonebook, calendar;
  } cases[] = {
      {{log, card, counter}, true, true},
      {{refused}, false, false},
      {{lying}, false, false},
      {{log, refused}, false, false},
      {{log, lying}, false, false},
      {{log, Contents(kOn, "BEGIN"), refused}, false, false},
      {{log, card, refused}, false, true},
      {{log, card, wordy}, false, true},
      {{log, card, Contents(kEnd, "")}, false, true},
  };
  for (const auto& c : cases) {
    for (const bool calendar : {false, true}) {
      Restart();
      for (const auto& reply : c.replies) Answer(reply);
      const bool read = calendar ? irmc.ReadCalendarObject(count, text, room)
                                 : irmc.ReadPhonebookObject(count, text, room);
      EXPECT_EQ(read, calendar ? c.calendar : c.phonebook);
    }
  }
  for (std::size_t writes = 0; writes < 3; ++writes) {
    Restart();
    for (const auto& reply : {log, card, counter}) Answer(reply);
    port.writesLeft = writes;
    EXPECT_FALSE(irmc.ReadPhonebookObject(count, text, room)) << writes;
  }
}

TEST_F(Objects, AddsReplacesAndDeletesAnEntry) {
  const struct {
    std::function<bool()> act;
    const char* packet;
  } cases[] = {
      // An entry of two bytes: 2 + 56 in all.
      {[&] { return irmc.AddPhonebookEntry("4142", text); },
       "82 003A 01 002D 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 006C 0075 0069 0064 "
       "002F 002E 0076 0063 0066 0000 C3 00000002 49 0005 4142"},
      {[&] { return irmc.AddCalendarEntry("4142", text); },
       "82 003C 01 002F 0074 0065 006C 0065 0063 006F 006D 002F 0063 0061 006C 002F 006C 0075 0069 "
       "0064 002F 002E 0076 0063 0073 0000 C3 00000002 49 0005 4142"},
      // Two bytes more for each character of the identifier, in both lengths.
      {[&] { return irmc.ReplacePhonebookEntry(u"00000100002A", ""); },
       "82 0050 01 0045 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 006C 0075 0069 0064 "
       "002F 0030 0030 0030 0030 0030 0031 0030 0030 0030 0030 0032 0041 002E 0076 0063 0066 0000 "
       "C3 00000000 49 0003"},
      {[&] { return irmc.ReplaceCalendarEntry(u"7", "FF0"); },  // half a byte is none
       "82 003D 01 0031 0074 0065 006C 0065 0063 006F 006D 002F 0063 0061 006C 002F 006C 0075 0069 "
       "0064 002F 0037 002E 0076 0063 0073 0000 C3 00000001 49 0004 FF"},
      {[&] { return irmc.DeletePhonebookEntry(u"00000100002A"); },
       "82 0050 01 0045 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 006C 0075 0069 0064 "
       "002F 0030 0030 0030 0030 0030 0031 0030 0030 0030 0030 0032 0041 002E 0076 0063 0066 0000 "
       "4C 0008 4C 0005 12 00"},
      {[&] { return irmc.DeleteCalendarEntry(u"00000100002A"); },
       "82 0052 01 0047 0074 0065 006C 0065 0063 006F 006D 002F 0063 0061 006C 002F 006C 0075 0069 "
       "0064 002F 0030 0030 0030 0030 0030 0031 0030 0030 0030 0030 0032 0041 002E 0076 0063 0073 "
       "0000 4C 0008 4C 0005 12 00"},
      // The packet's lengths are made for twelve characters.
      {[&] { return irmc.DeletePhonebookEntry(u"7"); },
       "82 0050 01 0045 0074 0065 006C 0065 0063 006F 006D 002F 0070 0062 002F 006C 0075 0069 0064 "
       "002F 0037 002E 0076 0063 0066 0000 4C 0008 4C 0005 12 00"},
  };
  for (const auto& c : cases) {
    for (const auto* reply : {"A00003", "200003", "900003", "C30003", "D30003"}) {
      Restart();
      Answer(Wire(reply));
      EXPECT_EQ(c.act(), reply[0] == 'A' || reply[0] == '2') << reply;
      EXPECT_EQ(Written(0), Digits(Wire(c.packet)));
    }
    port.writesLeft = 0;
    EXPECT_FALSE(c.act());
    port.writesLeft = SIZE_MAX;
  }
}

TEST_F(Objects, TakesTheIdentifierOfANewEntryFromItsPlace) {
  const struct {
    const char* reply;
    Text luid;
  } cases[] = {
      {"A0 0014 4C 0011 01 0C '00000100002A'", u"00000100002A"},
      {"A0 0016 4C 0013 01 0E '00000100002A' 2D31", u"00000100002A"},
      {"A0 000A 4C 0007 01 02 '7A'", u"7A"},
      {"A0 0003", u""},
  };
  for (const auto& c : cases) {
    Answer(Wire(c.reply));
    ASSERT_TRUE(irmc.AddPhonebookEntry("", text)) << c.reply;
    EXPECT_EQ(text, c.luid);
  }
}

TEST_F(Objects, GivesUpABookThatHasNoEnd) {
  constexpr std::size_t kPart = 60000;
  AnswerEnd("Total-Records:2\r\n");
  std::size_t sent = 0;
  for (; sent <= 4 << 20; sent += kPart) Answer(Contents(kOn, std::string(kPart, 'A')));
  EXPECT_FALSE(irmc.ReadPhonebookObject(count, text, room));
  EXPECT_LE(port.written.size(), 1 + sent / kPart);
}

TEST_F(Objects, SendsAnEntryBeyond512BytesAllTheSame) {
  Answer(Wire("CD0003"));
  EXPECT_FALSE(irmc.AddPhonebookEntry(std::string(2 * 600, '4'), text));
  ASSERT_EQ(port.written.size(), 1u);
  EXPECT_EQ(port.written[0].size(), 656u);
  EXPECT_EQ(Written(0).substr(0, 6), "820290");
}

}  // namespace
}  // namespace tessarin
