#include "codecs/CodePage.h"

#include <gtest/gtest.h>

#include "codecs/Faults.h"

namespace tessarin {
namespace {

TEST(CodePage, Utf7DecodesWhatIsWellFormedAndKeepsTheRest) {
  const struct {
    std::string_view bytes;
    Text text;
  } cases[] = {
      {"A+ImIDkQ.", u"A\u2262\u0391."},  // the examples of RFC 2152
      {"Hi Mom -+Jjo--!", u"Hi Mom -\u263A-!"},
      {"+ZeVnLIqe-", u"\u65E5\u672C\u8A9E"},
      {"1 +- 1", u"1 + 1"},
      {"+2D3eAA-", u"\U0001F600"},
      {"+AKM", u"£"},  // closed by the end
      {"+AKM\r\n+AKM-", u"£\r\n£"},
      {"=;@~\\", u"=;@~\\"},  // what RFC 2152 leaves to choice or forbids
      {"+", u"+"},
      {"a+ b", u"a+ b"},
      {"++-", u"++-"},
      {"+441234567", u"+441234567"},  // bits left over
      {"TEL:+441234567\r\nN:+AOk-", u"TEL:+441234567\r\nN:é"},
      {"+46701234560\r\n", u"+46701234560\r\n"},       // well-formed by chance, but a number
      {"+44123456784-", u"\uE38D\u76DF\u8E7A\uEFCE"},  // closed: no number
      {"+AKN-", u"+AKN-"},                             // bits behind the unit not zero
      {"+AKN\r\n+AKMA +AKM", u"+AKN\r\n+AKMA £"},
      {"+2AA-", u"+2AA-"},        // half a surrogate pair
      {"+3gDYPQ-", u"+3gDYPQ-"},  // pair the wrong way round
      {"caf\xE9", u"café"},
      {std::string_view("\0x+AAA-", 7), Text(u"\0x\0", 3)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Decode(c.bytes, kUtf7), c.text) << testing::PrintToString(c.bytes);
  }
}

TEST(CodePage, Utf7EncodesPlainTextAsItself) {
  EXPECT_EQ(Encode(u"O'Neil, (2)\r\n", kUtf7), "O'Neil, (2)\r\n");
  EXPECT_EQ(Encode(u"1+1", kUtf7), "1+-1");
  EXPECT_EQ(Encode(u"é", kUtf7), "+AOk-");
  EXPECT_EQ(Encode(Text{u'a', char16_t{0xD83D}}, kUtf7), "a+//0-");
}

TEST(CodePage, Utf7ClosesItsRuns) {
  EXPECT_EQ(Encode(u"é \r\n-+ é-é", kUtf7), "+AOk- \r\n-+- +AOk--+AOk-");
  const Text digits = u"\uE38D\u76DF\u8E7A\uEFCE, 1";  // base64 that is all digits
  EXPECT_EQ(Encode(digits, kUtf7), "+44123456784-, 1");
  EXPECT_EQ(Decode(Encode(digits, kUtf7), kUtf7), digits);
}

TEST(CodePage, EveryUnitSurvivesUtf7) {
  for (const TextView between : {u"", u"a", u"-", u"+", u" ", u"\uE000"}) {
    Text all;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
      if (unit < 0xD800 || unit > 0xDFFF)
        all.append(1, static_cast<char16_t>(unit)).append(between);
    }
    EXPECT_TRUE(Decode(Encode(all, kUtf7), kUtf7) == all) << ToUtf8(between);
  }
}

TEST(CodePage, OtherPagesAreRefused) {
  EXPECT_THROW(Encode(u"", 1252), ConversionError);
  EXPECT_THROW(Decode("", 0), ConversionError);
}

}  // namespace
}  // namespace tessarin
