#include <gtest/gtest.h>

#include "link/modComLib.h"
#include "tests/support/ScriptedPort.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");

using Pieces = ScriptedPort::Pieces;

Pieces SingleBytes(std::string_view bytes) {
  Pieces pieces;
  for (const char byte : bytes) pieces.emplace_back(1, byte);
  return pieces;
}

TEST(ReadATResponse, EndsAtItsFourTerminatorsOnly) {
  const struct {
    Pieces pieces;
    bool ends;
  } cases[] = {
      {{"\r\nOK\r\n"}, true},
      {{"\r\nCONNECT\r\n"}, true},
      {{"\r\n> "}, true},
      {{"\r\n+CMS ERROR: 500"}, true},
      {{"AT+CGMM\r\r\nT610\r\n\r\nok\r\n"}, true},
      {{"\r\ncOnNeCt\r\n"}, true},
      {{"\r\n+cms error:"}, true},
      {{"\r\nOK\r\nand more"}, true},
      {{"\r\nT6", "10\r\n", "", "\r", "\nO", "K\r", "\n"}, true},
      {SingleBytes("\r\n+CMS ERROR:"), true},
      {{"\r\nERROR\r\n"}, false},
      {{"\r\n+CME ERROR: 3\r\n"}, false},
      {{"OK"}, false},
      {{"OK\r\n"}, false},
      {{"\r\nOK"}, false},
      {{"\r\nCONNECT 9600\r\n"}, false},
      {{">"}, false},
      {{"\r\n+CMS ERROR"}, false},
      {{}, false},
  };
  for (const auto& c : cases) {
    ScriptedPort port(c.pieces);
    std::string all;
    for (const auto& piece : c.pieces) all += piece;
    EXPECT_EQ(modComLib(port, kNoPorts).ReadATResponse(), c.ends ? FromLatin1(all) : u"ERROR")
        << Digits(all);
    EXPECT_EQ(port.reads, c.ends ? static_cast<int>(c.pieces.size()) : 100) << Digits(all);
    EXPECT_EQ(port.sleeps, c.ends ? port.reads - 1 : 100) << Digits(all);
    EXPECT_EQ(port.slept, 100 * port.sleeps);
  }
}

// The end that is whole with the last of the hundred polls still counts, the next does not.
TEST(ReadATResponse, CountsPollsThatBroughtBytesLikeEmptyOnes) {
  for (const std::size_t polls : {100u, 101u}) {
    Pieces pieces(polls - 1, "x");
    pieces.emplace_back("\r\nOK\r\n");
    ScriptedPort port(pieces);
    const Text reply = modComLib(port, kNoPorts).ReadATResponse();
    EXPECT_EQ(reply, polls == 100 ? Text(99, u'x') + u"\r\nOK\r\n" : u"ERROR");
    EXPECT_EQ(port.reads, 100);
  }
}

TEST(ReadATResponse, KeepsEveryByteAndReadsAtMost255) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  all += all + "\r\nOK\r\n";
  ScriptedPort port({all});
  EXPECT_EQ(modComLib(port, kNoPorts).ReadATResponse(), FromLatin1(all));
  EXPECT_EQ(port.largestRead, 255u);
  EXPECT_EQ(port.reads, 3);
}

TEST(ReadATResponse, LeavesWhatComesLaterToTheNextReader) {
  ScriptedPort port({"\r\nOK\r\n", "\r\nlate\r\n\r\nOK\r\n"});
  modComLib com(port, kNoPorts);
  EXPECT_EQ(com.ReadATResponse(), u"\r\nOK\r\n");
  EXPECT_EQ(com.ReadATResponse(), u"\r\nlate\r\n\r\nOK\r\n");
}

TEST(ReadATResponseWait, WaitsWithoutSleepForItsTwoTerminators) {
  for (const std::string end : {"\r\nOK\r\n", "\r\n+Cms Error:"}) {
    Pieces pieces(500, "");
    pieces.insert(pieces.end(), {"\r\n> ", "\r\nCONNECT\r\n", "\r\n+CMGS: 7\r\n", end});
    ScriptedPort port(pieces);
    EXPECT_EQ(modComLib(port, kNoPorts).ReadATResponseWait(),
              u"\r\n> \r\nCONNECT\r\n\r\n+CMGS: 7\r\n" + FromLatin1(end));
    EXPECT_EQ(port.sleeps, 0);
  }
  ScriptedPort silent({"\r\nERROR\r\n"});
  EXPECT_THROW(modComLib(silent, kNoPorts).ReadATResponseWait(), ScriptedPort::Exhausted);
}

TEST(ReadLongResponse, DecodesUtf8AndEndsInAZero) {
  const Text zero(1, u'\0');
  const struct {
    Pieces pieces;
    Text reply;
    int reads;
  } cases[] = {
      {{"+CPBR: 1,\"\xD0", "\x96\xE6\xB1\x89\"\r\nOK\r\n"},
       u"+CPBR: 1,\"Ж汉\"\r\nOK\r\n" + zero,
       2},
      {{"xok\r\n"}, u"xok\r\n" + zero, 1},
      {{"\r\n+CMS ERROR: 321\r\n"}, u"\r\n+CMS ERROR: 321\r\n" + zero, 1},
      {{"\xFF\r\nOK\r\n"}, u"\uFFFD\r\nOK\r\n" + zero, 1},
      {{"\r\n> ", "\r\nCONNECT\r\n", "\r\nERROR\r\n"}, u"ERROR", 100},
  };
  for (const auto& c : cases) {
    ScriptedPort port(c.pieces);
    EXPECT_EQ(modComLib(port, kNoPorts).ReadLongResponse(), c.reply);
    EXPECT_EQ(port.reads, c.reads);
    EXPECT_EQ(port.slept, c.reads == 100 ? 10000 : 100 * (c.reads - 1));
  }
}

// Null where the reader never ends.
TEST(ReadOBEXResponse, EndsWhenExactlyTheToldLengthIsThere) {
  const struct {
    Pieces pieces;
    const char* hex;
  } cases[] = {
      {{Wire("A00003")}, "A00003"},
      {{Wire("A0"), Wire("00"), "", Wire("03")}, "A00003"},
      {{Wire("90 0008 48 0005"), "ab"},
       "900008480005"
       "6162"},
      {{Wire("A000"), Wire("04 7F")}, "A000047F"},
      {{Wire("A00003 0D")}, nullptr},  // one byte too many in the same read
      {{Wire("A00004"), Wire("7F7F")}, nullptr},
      {{Wire("A00004")}, nullptr},  // one too few
      {{Wire("A00000")}, nullptr},  // lengths that no packet can have
      {{Wire("A00002")}, nullptr},
      {{Wire("A000")}, nullptr},
      {{}, nullptr},
  };
  for (const auto& c : cases) {
    ScriptedPort port(c.pieces);
    std::string hex;
    if (c.hex == nullptr) {
      EXPECT_THROW(modComLib(port, kNoPorts).ReadOBEXResponse(hex), ScriptedPort::Exhausted);
      EXPECT_EQ(port.emptyReadsLeft, 0);
    } else {
      EXPECT_TRUE(modComLib(port, kNoPorts).ReadOBEXResponse(hex));
      EXPECT_EQ(hex, c.hex);
    }
    EXPECT_EQ(port.sleeps, 0);
  }
}

TEST(ReadOBEXResponse, TakesThePacketOfGreatestLength) {
  const std::string packet = Wire("A0FFFF") + std::string(0xFFFC, '\x5A');
  ScriptedPort port({packet});
  std::string hex;
  EXPECT_TRUE(modComLib(port, kNoPorts).ReadOBEXResponse(hex));
  EXPECT_EQ(hex, Digits(packet));
  EXPECT_EQ(port.reads, 257);
}

TEST(ReadOBEXCloseResponse, KnowsTheTwoRepliesToADisconnect) {
  enum class Outcome { True, False, Never };
  const struct {
    Pieces pieces;
    Outcome outcome;
    Text text;
    int reads;
  } cases[] = {
      {{Wire("A00003 0D0A 'OK' 0D0A")}, Outcome::True, Text(u"\u00A0\0\3\r\nOK\r\n", 9), 1},
      {SingleBytes(Wire("A00003 0D0A 'OK' 0D0A")), Outcome::True, Text(u"\u00A0\0\3\r\nOK\r\n", 9),
       9},
      {{Wire("810003")}, Outcome::True, u"810003", 1},
      {{"", Wire("81"), Wire("0003")}, Outcome::True, u"810003", 3},
      {{Wire("C30003")}, Outcome::False, u"", 1},
      {{Wire("0D0A 'OK' 0D0A")}, Outcome::False, u"", 1},
      {{"A00003"}, Outcome::False, u"", 1},  // the letter A is no 0xA0
      {{Wire("20")}, Outcome::False, u"", 1},
      {{Wire("A00003 0D0A 'OK' 0D")}, Outcome::Never, u"", 0},
      {{Wire("8100")}, Outcome::Never, u"", 0},
      {{}, Outcome::Never, u"", 0},
  };
  for (const auto& c : cases) {
    ScriptedPort port(c.pieces);
    modComLib com(port, kNoPorts);
    Text text;
    if (c.outcome == Outcome::Never) {
      EXPECT_THROW(com.ReadOBEXCloseResponse(text), ScriptedPort::Exhausted);
      continue;
    }
    EXPECT_EQ(com.ReadOBEXCloseResponse(text), c.outcome == Outcome::True);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(port.reads, c.reads);
    EXPECT_EQ(port.sleeps, 0);
  }
}

}  // namespace
}  // namespace tessarin
