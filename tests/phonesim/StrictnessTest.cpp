#include <gtest/gtest.h>

#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

struct Breach {
  const char* name;
  std::vector<const char*> requests;  ///< the last of them is the breach; ID is the session's own
  const char* answer;                 ///< how its answer begins
  const char* report;                 ///< how the only report begins
};

std::string WithId(std::string text, const std::string& id) {
  for (std::size_t at = 0; (at = text.find("ID", at)) != std::string::npos;) {
    text.replace(at, 2, id);
  }
  return text;
}

void ExpectBreach(Bench& bench, const Breach& breach) {
  std::string answer;
  for (const char* request : breach.requests) {
    EXPECT_EQ(bench.reports.All(), std::vector<std::string>()) << breach.name << ": too early";
    answer = bench.Talk(WithId(request, bench.id));
  }
  const std::size_t compared =
      *breach.answer == '\0' ? answer.size() : std::string(breach.answer).size();
  EXPECT_EQ(answer.substr(0, compared), breach.answer) << breach.name;
  ASSERT_EQ(bench.reports.Count(), 1U) << breach.name;
  const std::string report = bench.reports.All().front();
  EXPECT_EQ(report.substr(0, report.rfind(':')), breach.report) << breach.name;
  EXPECT_EQ(bench.Talk("81 00 03"), "A0 00 03 0D 0A 4F 4B 0D 0A") << "after " << breach.name;
}

TEST(Strictness, BeforeConnect) {
  const Breach breaches[] = {
      {"operation", {"85 000D 02 00 CB 00000001 01 0003"}, "C0 00 03", "request before Connect"},
      {"version",
       {"80 001A 11 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07 10 00 02 00",
       "OBEX version is not 1.0"},
      {"flags",
       {"80 001A 10 01 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07",
       "Connect with flags"},
      {"maximum",
       {"80 001A 10 00 00FE 46 0013 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07",
       "maximum packet length below 255"},
      {"no target", {"80 0007 10 00 0200"}, "C0 00 07", "Connect without exactly one Target"},
      {"unknown target",
       {"80 0010 10 00 0200 46 0009 'NOBODY'"},
       "D3 00 07",
       "Connect to an unknown service"},
      {"target id as Who",
       {"80 001A 10 00 0200 4A 0013 F9EC7BC4953C11D2984E525400DC9E09"},
       "D3 00 07",
       "Connect to an unknown service"},
      {"header beyond",
       {"80 001A 10 00 0200 46 0014 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07",
       "header length beyond the packet"},
      {"header short",
       {"80 001A 10 00 0200 46 0012 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07",
       "header cut off"},
      {"AT text", {"'AT+CBC' 0D"}, "", "AT text in OBEX mode"},
      {"no opcode", {"77 0003"}, "", "no OBEX packet"},
      {"unserved opcode", {"03 0003"}, "D1 00 03", "opcode that this phone does not serve"},
      {"too short", {"83 0002"}, "C0 00 03", "packet length below 3"},
      {"too long", {"02 0201 48 01FE"}, "C0 00 03", "packet of more than 512 bytes"},
  };
  for (const Breach& breach : breaches) {
    Bench bench;
    bench.TalkText("AT*EOBEX\r");
    ExpectBreach(bench, breach);
  }
}

TEST(Strictness, InASession) {
  const char* const down = "85 0019 02 00 CB ID 01 000F 00500068006F006E0065 0000";
  const char* const put = "02 0020 CB ID 01 0009 00750070 0000 C3 00000008 48 000A 'abcdefg'";
  const Breach breaches[] = {
      {"Connect",
       {"80 001A 10 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09"},
       "C0 00 07",
       "Connect within a session"},
      {"no id", {"85 0008 02 00 01 0003"}, "C0 00 03", "no Connection Id"},
      {"id behind",
       {"85 000D 02 00 01 0003 CB ID"},
       "C0 00 03",
       "Connection Id is not the first header"},
      {"other id",
       {"85 000D 02 00 CB 5E560102 01 0003"},
       "D3 00 03",
       "Connection Id of another session"},
      {"constants", {"85 000D 02 01 CB ID 01 0003"}, "C0 00 03", "SetPath constants are not 0"},
      {"flags", {"85 000D 00 00 CB ID 01 0003"}, "C0 00 03", "SetPath flags are neither 02 nor 03"},
      {"no name", {"85 000A 02 00 CB ID"}, "C0 00 03", "headers are not 01 in this order"},
      {"name open",
       {"85 0011 02 00 CB ID 01 0007 0050 0068"},
       "C0 00 03",
       "text header not terminated"},
      {"name odd",
       {"85 0010 02 00 CB ID 01 0006 005000"},
       "C0 00 03",
       "text header of an odd size"},
      {"name with NUL",
       {"85 0013 02 00 CB ID 01 0009 0050 0000 0000"},
       "C0 00 03",
       "Name is no well-formed text"},
      {"half a pair",
       {"85 0011 02 00 CB ID 01 0007 D83D 0000"},
       "C0 00 03",
       "Name is no well-formed text"},
      {"type open",
       {"83 0020 CB ID 42 0018 'x-obex/folder-listing'"},
       "C0 00 03",
       "Type header not terminated"},
      {"type long",
       {"83 0022 CB ID 42 001A 'x-obex/folder-listing' 0000"},
       "C0 00 03",
       "Type header goes on behind its end"},
      {"header of 2", {"83 000B CB ID 42 0002"}, "C0 00 03", "header length below 3"},
      {"two names",
       {"83 0012 CB ID 01 0005 0000 01 0005 0000"},
       "C0 00 03",
       "headers are not 01 in this order"},
      {"goes on", {"83 0008 CB ID"}, "C0 00 03", "Get goes on, but none was begun"},
      {"disconnect", {"81 0008 CB ID"}, "C0 00 03", "headers where none belong"},
      {"length first",
       {"82 0020 CB ID C3 00000007 01 0009 00750070 0000 49 000A 'abcdefg'"},
       "C0 00 03",
       "headers are not 01 C3 in this order"},
      {"no length",
       {"82 001B CB ID 01 0009 00750070 0000 49 000A 'abcdefg'"},
       "C0 00 03",
       "headers are not 01 C3 in this order"},
      {"no body",
       {"82 0016 CB ID 01 0009 00750070 0000 C3 00000000"},
       "C0 00 03",
       "Put without a Body as last header"},
      {"too much", {put, "82 0008 49 0005 'hi'"}, "C0 00 03", "Put of more data than its Length"},
      {"too little", {put, "82 0006 49 0003"}, "C0 00 03", "Put of less data than its Length"},
      {"Body last", {put, "82 0007 48 0004 'h'"}, "C0 00 03", "last Put without End of Body last"},
      {"End too soon",
       {put, "02 0007 49 0004 'h'"},
       "C0 00 03",
       "Put with more to come without Body last"},
      {"id again", {put, "82 000C CB ID 49 0004 'h'"}, "C0 00 03", "headers where none belong"},
      {"SetPath in Put", {put, down}, "C0 00 03", "request within another operation"},
      {"Get in Put", {put, "83 0003"}, "C0 00 03", "Get within a Put"},
      {"AT text", {"'AT' 0D"}, "", "AT text in OBEX mode"},
  };
  for (const Breach& breach : breaches) {
    Bench bench;
    bench.Connect();
    ExpectBreach(bench, breach);
  }
}

TEST(Strictness, WithinAGet) {
  Bench bench;
  bench.content.Write("big", std::string(2000, 'x'));
  for (const char* request : {"82 0006 49 0003", "85 000D 02 00 CB ID 01 0003",
                              "83 0013 CB ID 01 000B 006200690067 0000"}) {
    bench.Connect();
    EXPECT_EQ(bench.Request("83", "01 000B 006200690067 0000").substr(0, 8), "90 02 00");
    EXPECT_EQ(bench.Talk(WithId(request, bench.id)), "C0 00 03") << request;
    EXPECT_EQ(bench.reports.Count(), 1U) << request;
    bench.reports.Clear();
    bench.Talk("81 00 03");
  }
}

TEST(Strictness, PacketLengthsThatLieAreReported) {
  Bench bench;
  bench.Connect();
  EXPECT_EQ(bench.Talk("85 000C 02 00 CB" + bench.id + "01 0003"), "C0 00 03");
  EXPECT_EQ(bench.reports.Count(), 2U) << "the header cut off, and the byte left over";
  bench.reports.Clear();
  EXPECT_EQ(bench.Talk("85 000E 02 00 CB" + bench.id + "01 0003"), "");
  ASSERT_TRUE(bench.phone.MidPacket());
  bench.phone.Stalled();
  EXPECT_EQ(bench.Talk(""), "C0 00 03");
  bench.Talk("83 00");
  bench.phone.LineClosed();
  EXPECT_EQ(bench.reports.Count(), 2U);
  EXPECT_EQ(bench.TalkText("AT\r"), "\r\nOK\r\n") << "closing the port leads back to AT mode";
}

TEST(Strictness, NothingLeavesTheContentFolder) {
  Bench bench;
  bench.Connect();
  for (const char* name : {"", ".", "..", "../x", "a/b", "/etc/passwd", "Phone"}) {
    const std::string digits = NameDigits(name);
    const std::string header = "01" + Digits16(Wire(digits).size() + 3) + digits;
    EXPECT_EQ(bench.Request("83", header), "C4 00 03") << name;
    EXPECT_EQ(bench.Request("82", header + "C3 00000001 49 0004 'x'"), "C3 00 03") << name;
  }
}

}  // namespace
}  // namespace phonesim
