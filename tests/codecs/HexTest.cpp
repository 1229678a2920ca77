#include <gtest/gtest.h>

#include "codecs/CodePage.h"
#include "codecs/Faults.h"
#include "codecs/modHexStr.h"

namespace tessarin::modHexStr {
namespace {

TEST(modHexStr, WritersKeepEveryDigit) {
  const struct {
    Text text;
    std::string two, four;
  } cases[] = {
      {u"", "", ""},
      {u"A", "41", "0041"},
      {u"\r\n", "0D0A", "000D000A"},
      {Text(1, u'\0'), "00", "0000"},
      {u"é", "E9", "00E9"},
      {u"\u0100\u0FFF\u1000", "100FFF1000", "01000FFF1000"},
      {u"€", "20AC", "20AC"},
      {u"\U0001F600", "D83DDE00", "D83DDE00"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(StrToHex2(c.text), c.two);
    EXPECT_EQ(StrToHex4(c.text), c.four);
  }
}

TEST(modHexStr, ReadersStopAtTheFirstBadDigitOfAGroup) {
  EXPECT_EQ(Hex2ToStr("41e9"), u"Aé");
  EXPECT_EQ(Hex2ToStr("G44G 4"), Text({u'\0', u'\4', u'\0'}));
  EXPECT_EQ(Hex2ToStr("414"), u"A\4");
  EXPECT_EQ(Hex4ToStr("20acD83DDE00"), u"€\U0001F600");
  EXPECT_EQ(Hex4ToStr("00412"), u"A\2");
  EXPECT_EQ(Hex4ToStr("004120A"), u"A\u020A");
  EXPECT_EQ(Hex4ToStr("20X0"), u" ");
}

TEST(modHexStr, EveryUnitSurvivesTheFourDigitForm) {
  Text all;
  for (unsigned unit = 0; unit < 0x10000; ++unit) all += static_cast<char16_t>(unit);
  EXPECT_TRUE(Hex4ToStr(StrToHex4(all)) == all);
}

TEST(modHexStr, BytesHaveOneElementMoreThanPairs) {
  const struct {
    std::string_view hex;
    Bytes bytes;
  } cases[] = {
      {"", {0}},
      {"4", {0}},  // half a pair rounds to none
      {"41", {0x41, 0}},
      {"414", {0x41, 0x04, 0}},  // one and a half round to two
      {"4142", {0x41, 0x42, 0}},
      {"41424", {0x41, 0x42, 0}},  // two and a half round to two
      {"4142434", {0x41, 0x42, 0x43, 0x04, 0}},
      {"fF?0", {0xFF, 0, 0}},
  };
  for (const auto& c : cases) EXPECT_EQ(HexToBytes(c.hex), c.bytes) << c.hex;
}

TEST(modHexStr, BytesToHexCountsWithinTheArray) {
  const Bytes bytes = {0x00, 0x9A, 0xFF};
  EXPECT_EQ(BytesToHex(bytes), "009AFF");
  EXPECT_EQ(BytesToHexN(bytes, 2), "009A");
  EXPECT_EQ(BytesToHexN(bytes, 4), "009AFF");
  EXPECT_EQ(BytesToHexN(bytes, 0), "");
  EXPECT_EQ(BytesToHexN(bytes, -1), "");
}

TEST(modHexStr, CodePagesKeepTheTrailingZero) {
  EXPECT_EQ(BytesToStr(HexToBytes("C3A9"), kUtf8), Text(u"é\0", 2));
  EXPECT_EQ(BytesToStr(HexToBytes("2B414F6B2D"), kUtf7), Text(u"é\0", 2));
  EXPECT_EQ(StrToBytes(u"é", kUtf8), (Bytes{0xC3, 0xA9}));
  EXPECT_EQ(BytesToHex(StrToBytes(u"é\r\n", kUtf7)), "2B414F6B2D0D0A");
  EXPECT_EQ(StrToBytes(u"", kUtf8), Bytes{});
  EXPECT_THROW(StrToBytes(u"", 1252), ConversionError);
}

TEST(modHexStr, Utf8IsReadWithoutChecks) {
  const struct {
    std::string_view hex;
    Text text;
  } cases[] = {
      {"41c3a9E282AC42", u"Aé€B"},
      {"F09F9880", u""},    // four bytes vanish one by one
      {"A941", u"A"},       // a continuation out of place
      {"C341", u"\u00C1"},  // its prefix is not looked at
      {"C3", u"\u00C0"},    // cut short: the missing bits are 0
      {"E282", u"\u2080"},
      {"EDA080", Text(1, char16_t{0xD800})},
      {"00", Text(1, u'\0')},
      {"4", u"\4"},
  };
  for (const auto& c : cases) EXPECT_EQ(Utf8HexToStr(c.hex), c.text) << c.hex;
}

}  // namespace
}  // namespace tessarin::modHexStr
