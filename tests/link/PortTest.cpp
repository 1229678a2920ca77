#include <gtest/gtest.h>

#include "link/AT.h"
#include "link/BatteryReply.h"
#include "link/modComLib.h"
#include "tests/support/ScriptedPort.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");

TEST(modComLib, WritesCommandsAsBytes) {
  ScriptedPort port;
  modComLib com(port, kNoPorts);
  EXPECT_TRUE(com.SendATCommand(u"AT+é€"));
  EXPECT_TRUE(com.SendATRaw(u"0001\x1A"));
  EXPECT_TRUE(com.SendATText(u"AT+CPBW=,\"Жé\""));
  EXPECT_TRUE(com.SendOBEXPacket("830003"));
  EXPECT_TRUE(com.SendOBEXPacket("83000"));
  const std::vector<std::string> written = {Wire("'AT+' E9 '?' 0D"), Wire("'0001' 1A"),
                                            Wire("'AT+CPBW=,' 22 D096 C3A9 22 0D"), Wire("830003"),
                                            Wire("8300")};
  EXPECT_EQ(port.written, written);
  port.writesLeft = 0;
  EXPECT_FALSE(com.SendATCommand(u"AT"));
  EXPECT_FALSE(com.SendOBEXPacket("830003"));
}

TEST(OpenPhonePort, OpensAndAsksForTheModel) {
  ScriptedPort port;
  modComLib com(port, kNoPorts);
  port.Answer({"\r\nT610\r\n\r\nok\r\n"});
  EXPECT_TRUE(com.OpenPhonePort("COM3"));
  com.SetBaudRate(57600);
  port.Answer({"\r\n> "});  // a reply, but no phone's
  EXPECT_FALSE(com.OpenPhonePort("COM256"));
  port.Answer({"\r\nERROR\r\n"});
  EXPECT_FALSE(com.OpenPhonePort("COM4"));
  EXPECT_EQ(port.slept, 10000);
  port.writesLeft = 0;
  EXPECT_FALSE(com.OpenPhonePort("COM5"));
  port.opens = false;
  EXPECT_FALSE(com.OpenPhonePort("COM6"));

  EXPECT_EQ(port.written, std::vector<std::string>(3, "AT+CGMM\r"));
  ASSERT_EQ(port.opened.size(), 5u);
  EXPECT_EQ(port.opened[0].deviceName, "\\\\.\\COM3");
  EXPECT_EQ(port.opened[0].speed, 0);
  EXPECT_EQ(port.opened[1].deviceName, "\\\\.\\COM256");
  EXPECT_EQ(port.opened[1].speed, 57600);
  EXPECT_EQ(port.closes, 0);
  com.ClosePhonePort();
  EXPECT_EQ(port.closes, 1);
}

TEST(PortHasPrinter, ComparesWhatStandsBeforeTheColon) {
  ScriptedPort port;
  const modComLib com(port, kNoPorts, [] {
    return std::vector<std::string>{"LPT1:", "COM3:", "COM14", "", "com5:"};
  });
  for (const auto* name : {"COM3", "COM14"}) EXPECT_TRUE(com.PortHasPrinter(name)) << name;
  for (const auto* name : {"COM1", "COM3:", "COM5"}) EXPECT_FALSE(com.PortHasPrinter(name)) << name;
  EXPECT_FALSE(modComLib(port, kNoPorts).PortHasPrinter("COM3"));
}

TEST(AT, GivesTheFirstLineOfTheAnswer) {
  const struct {
    const char* reply;
    Text line;
  } cases[] = {
      {"\r\nericsson\r\n\r\nOK\r\n", u"ericsson"},
      {"AT+CGMI\r\r\nericsson\r\n\r\nOK\r\n", u"ericsson"},
      {"\r\n T610 \r\nsecond\r\n\r\nok\r\n", u" T610 "},
      {"\r\nOK\r\n", u"OK"},
      {"\r\nT610\r\n\r\nERROR\r\n", u""},
      {"\r\nname\r\n> ", u""},
  };
  for (const auto& c : cases) {
    ScriptedPort port;
    port.Answer({c.reply});
    modComLib com(port, kNoPorts);
    EXPECT_EQ(AT(com).GetManufacturer(), c.line) << c.reply;
  }
}

TEST(AT, SendsItsCommands) {
  ScriptedPort port;
  modComLib com(port, kNoPorts);
  AT at(com);
  for (int i = 0; i < 6; ++i) port.Answer({"\r\nOK\r\n"});
  at.GetManufacturer();
  at.GetModelCode();
  at.GetModelName();
  at.GetSerialNumber();
  at.GetFirmware();
  EXPECT_TRUE(at.SetCharacterSet(u"\"UTF-8\""));
  const std::vector<std::string> commands = {"AT+CGMI\r", "AT+CGMM\r", "AT+GMM\r",
                                             "AT+CGSN\r", "AT+CGMR\r", "AT+CSCS=\"UTF-8\"\r"};
  EXPECT_EQ(port.written, commands);
  port.Answer({"\r\nERROR\r\n"});
  EXPECT_FALSE(at.SetCharacterSet(u"\"UTF-8\""));
  port.writesLeft = 0;
  EXPECT_FALSE(at.SetCharacterSet(u"\"UTF-8\""));
  EXPECT_EQ(at.GetFirmware(), u"");
}

TEST(BatteryReply, IsReadFromWholeLines) {
  constexpr auto kNone = linkport::kNoBatteryLevel;
  const struct {
    const char* received;
    bool ended;
    std::uint16_t level;
  } cases[] = {
      {"\r\n+CBC: 0,85\r\n\r\nOK\r\n", true, 85},
      {"AT+CBC\r\r\n+CBC: 0,85\r\n\r\nOK\r\n", true, 85},
      {"AT+CBC\r+CBC:1, 100\r\nOK\r\n", true, 100},
      {"\r\n+cbc: 0,85\r\n\r\nok\r\n", true, 85},  // case counts in no reply
      {"\r\n+CMS ERROR: 500\r\n", true, kNone},
      {"+CBC: 0,0\nOK\n", true, 0},
      {"\r\n+CBC: 0,101\r\n\r\nOK\r\n", true, kNone},
      {"\r\n+CBC: 0,-1\r\n\r\nOK\r\n", true, kNone},
      {"\r\n+CBC: 0,99999999999\r\n\r\nOK\r\n", true, kNone},
      {"\r\n+CBC: 85\r\n\r\nOK\r\n", true, kNone},
      {"\r\n+CBC: 0,8x\r\n\r\nOK\r\n", true, kNone},
      {"\r\nOK\r\n", true, kNone},
      {"\r\nERROR\r\n", true, kNone},
      {"\r\n+CBC: 0,85\r\n\r\nERROR\r\n", true, kNone},
      {"\r\n+CME ERROR: 14\r\n", true, kNone},
      {"\r\n+CBC: 0,85\r\n\r\nOK\r", false, 85},
      {"\r\n+CBC: 0,8", false, kNone},
      {"\r\n+CBC: 0,85\r", false, kNone},
      {"\r\nERROR", false, kNone},
      {"OKAY\r\nNOOK\r\n", false, kNone},
      {"", false, kNone},
  };
  for (const auto& c : cases) {
    const BatteryReply reply = ReadBatteryReply(c.received);
    EXPECT_EQ(reply.ended, c.ended) << c.received;
    EXPECT_EQ(reply.level, c.level) << c.received;
  }
}

}  // namespace
}  // namespace tessarin
