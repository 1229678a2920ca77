#include <gtest/gtest.h>

#include "link/OBEX.h"
#include "link/modOBEX.h"
#include "tests/support/ScriptedPort.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");

class Session : public ::testing::Test {
 protected:
  ScriptedPort port;
  modComLib com{port, kNoPorts};
  OBEX obex{com};
};

TEST_F(Session, EntersObexMode) {
  port.Answer({"AT*EOBEX\r\r\nconnect\r\n"});
  EXPECT_TRUE(obex.EnterOBEXMode());
  EXPECT_EQ(port.written, std::vector<std::string>{"AT*EOBEX\r"});
  port.Answer({"\r\nOK\r\n"});
  EXPECT_FALSE(obex.EnterOBEXMode());
  port.Answer({"\r\nERROR\r\n"});
  EXPECT_FALSE(obex.EnterOBEXMode());
  port.writesLeft = 0;
  EXPECT_FALSE(obex.EnterOBEXMode());
}

TEST_F(Session, EndsInEitherMode) {
  const struct {
    std::string reply;
    int result;
  } cases[] = {
      {Wire("A00003 0D0A 'OK' 0D0A"), -1},
      {Wire("A00003 0D0A 'ok' 0D0A"), -1},
      {Wire("A00003 0D0A 'NO' 0D0A"), 0},
      {Wire("810003"), -1},
      {Wire("810004"), 0},
      {"\r\nERROR\r\n", 0},
  };
  for (const auto& c : cases) {
    port.serial_flush();
    port.Answer({c.reply});
    EXPECT_EQ(obex.EndOBEXSession(), c.result) << Digits(c.reply);
    EXPECT_EQ(port.written.back(), Wire("810003"));
  }
  port.Answer({});
  port.serial_flush();
  EXPECT_THROW(obex.LeaveOBEXMode(), ScriptedPort::Exhausted);
  port.writesLeft = 0;
  EXPECT_EQ(obex.EndOBEXSession(), 0);
}

// Each with: opcode, packet length, version 1.0, no flags, at most 512 bytes a packet, the header.
TEST_F(Session, ConnectsToItsServices) {
  const struct {
    std::function<bool(std::string&)> connect;
    const char* packet;
  } cases[] = {
      {[&](std::string& id) { return obex.ConnectFolderBrowsing(id); },
       "80 001A 10 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09"},
      {[&](std::string& id) { return obex.ConnectIrmcSync(id); },
       "80 0013 10 00 0200 46 000C 'IRMC-SYNC'"},
      {[&](std::string&) { return obex.ConnectMmsTarget(); },
       "80 001A 10 00 0200 4A 0013 B9C7FD98E5F811D1BFCE0000F8753890"},
  };
  for (const auto& c : cases) {
    std::string id = "before";
    port.Answer({"\r\nCONNECT\r\n"});
    port.Answer({Wire("A0 000C 10 00 0200 CB 0A1B2C3D")});
    EXPECT_TRUE(c.connect(id));
    EXPECT_EQ(Digits(port.written.back()), Digits(Wire(c.packet)));
    EXPECT_EQ(id, &c == &cases[2] ? "before" : "0A1B2C3D");

    port.Answer({"\r\nCONNECT\r\n"});
    port.Answer({Wire("C3 0007 10 00 0200")});
    EXPECT_FALSE(c.connect(id));
    port.Answer({"\r\nOK\r\n"});
    EXPECT_FALSE(c.connect(id));
    EXPECT_EQ(port.written.back(), "AT*EOBEX\r");
  }
}

// Bit 7 of the code is forced, the header before the identifier is not looked at, and a reply may
// be too short to have one.
TEST_F(Session, TakesTheConnectionIdFromItsPlace) {
  const struct {
    const char* reply;
    const char* id;
  } cases[] = {
      {"20 000C 10 00 0200 CB 00000001", "00000001"},
      {"A0 001F 10 00 0200 FF DEADBEEF 4A 0013 F9EC7BC4953C11D2984E525400DC9E09", "DEADBEEF"},
      {"A0 0003", ""},
      {"A0 000A 10 00 0200 CB 0102", "0102"},
  };
  for (const auto& c : cases) {
    std::string id;
    port.Answer({"\r\nCONNECT\r\n"});
    port.Answer({Wire(c.reply)});
    EXPECT_TRUE(obex.ConnectFolderBrowsing(id));
    EXPECT_EQ(id, c.id);
  }
}

TEST_F(Session, WalksThroughFolders) {
  const struct {
    std::function<bool()> walk;
    const char* packet;
  } cases[] = {
      {[&] { return obex.SetPathRoot("0A1B2C3D"); }, "85 000D 02 00 CB 0A1B2C3D 01 0003"},
      {[&] { return obex.SetPathDown("0A1B2C3D", u"Zé"); },
       "85 0013 02 00 CB 0A1B2C3D 01 0009 005A 00E9 0000"},
      {[&] { return obex.SetPathDown("0A1B2C3D", u"Ж汉\U0001F600"); },
       "85 0017 02 00 CB 0A1B2C3D 01 000D 0416 6C49 D83D DE00 0000"},
      {[&] { return obex.SetPathDown("1", u""); }, "85 000F 02 00 CB 00000001 01 0005 0000"},
  };
  for (const auto& c : cases) {
    for (const auto* reply : {"A00003", "200003", "900003", "C40003"}) {
      port.Answer({Wire(reply)});
      EXPECT_EQ(c.walk(), reply[0] == 'A' || reply[0] == '2') << reply;
      EXPECT_EQ(Digits(port.written.back()), Digits(Wire(c.packet)));
    }
  }
  port.writesLeft = 0;
  EXPECT_FALSE(obex.SetPathRoot("00000001"));
}

TEST_F(Session, SendsNoPacketBeyond512Bytes) {
  port.Answer({Wire("A00003")});
  EXPECT_TRUE(obex.SetPathDown("00000001", Text(248, u'x')));  // 15 + 496 = 511 bytes
  EXPECT_FALSE(obex.SetPathDown("00000001", Text(249, u'x')));
  EXPECT_FALSE(obex.SetPathDown("00000001", Text(40000, u'x')));
  ASSERT_EQ(port.written.size(), 1u);
  EXPECT_EQ(port.written[0].size(), 511u);
}

TEST(modOBEX, FindsTheBodyBehindAnyHeaders) {
  const char* const kMalformed = nullptr;
  const struct {
    const char* reply;
    const char* body;
  } cases[] = {
      {"A0 0008 49 0005 'ab'", "6162"},
      {"90 000D CB 00000001 48 0005 'ab'", "6162"},
      {"A0 0012 CB 00000001 C3 00004848 49 0005 'ab'", "6162"},  // 48 within the Length
      {"A0 0019 CB 00000001 01 0007 0049 0000 C3 00000002 49 0005 'ab'", "6162"},
      {"A0 000A 97 01 49 0005 'ab'", "6162"},  // a one-byte header
      {"A0 000B 4C 0003 49 0005 'ab'", "6162"},
      {"A0 000B 49 0005 'ab' 4C 0003", "6162"},      // headers behind it
      {"A0 000C 49 0004 'ab' 4C 0003", kMalformed},  // told shorter than it is
      {"A0 0006 49 0003", ""},
      {"A0 0006 49 0000", kMalformed},
      {"A0 0006 49 0002", kMalformed},
      {"A0 0006 49 00FF", ""},  // told longer than it is
      {"A0 0008 49 FFFF 'ab'", "6162"},
      {"A0 0003", ""},
      {"A0 0008 CB 00000001", ""},
      {"A0 0006 C3 0000", ""},
      {"A0 0005 01 00", kMalformed},
      {"A0 0004 49", kMalformed},
      {"A0 000B 01 0002 49 0005 'ab'", kMalformed},
      {"A0", ""},
      {"", ""},
  };
  for (const auto& c : cases) {
    const std::string reply = Digits(Wire(c.reply));
    const auto body = modOBEX::FindBody(reply);
    EXPECT_EQ(body.has_value(), c.body != kMalformed) << c.reply;
    EXPECT_EQ(body.value_or(""), c.body != kMalformed ? c.body : "") << c.reply;
  }
}

TEST(modOBEX, PadsOnTheLeft) {
  std::string text = "1F";
  EXPECT_EQ(&modOBEX::PadHex(text, 4), &text);
  EXPECT_EQ(text, "001F");
  EXPECT_EQ(modOBEX::PadHex(text, 2), "001F");
  EXPECT_EQ(modOBEX::Number(0, 2), "00");
  EXPECT_EQ(modOBEX::Number(0xABCDE, 4), "ABCDE");
  EXPECT_EQ(modOBEX::LengthHeader(0x12345678), "C312345678");
}

TEST(modOBEX, ComparesReplyCodesWithBit7Forced) {
  using modOBEX::Reply;
  const struct {
    const char* hex;
    Reply reply;
  } cases[] = {{"A0", Reply::Success},  {"20", Reply::Success}, {"90", Reply::Continue},
               {"10", Reply::Continue}, {"C3", Reply::Refused}, {"80", Reply::Refused},
               {"A1", Reply::Refused},  {"", Reply::Refused}};
  for (const auto& c : cases) EXPECT_EQ(modOBEX::ReplyCode(c.hex), c.reply) << c.hex;
}

}  // namespace
}  // namespace tessarin
