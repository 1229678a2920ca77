#include "codecs/Text.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

TEST(Text, Utf8ReplacesEachByteOfNoSequence) {
  const struct {
    std::string_view bytes;
    Text text;
  } cases[] = {
      {"", u""},
      {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", u"aé€\U0001F600"},
      {std::string_view("a\0b", 3), Text(u"a\0b", 3)},
      {"\xEF\xBB\xBF!", u"\uFEFF!"},                      // byte order mark
      {"a\x80z", u"a\uFFFDz"},                            // continuation out of place
      {"\xC3", u"\uFFFD"},                                // cut short
      {"\xE2\x82", u"\uFFFD\uFFFD"},                      // cut short
      {"\xE2\x82z", u"\uFFFD\uFFFDz"},                    // broken off
      {"\xC0\x80", u"\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
      {"\xF8\x88\x80\x80\x80z", u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDz"},
      {"\xFF\xFE", u"\uFFFD\uFFFD"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(FromUtf8(c.bytes), c.text) << testing::PrintToString(c.bytes);
}

TEST(Text, LoneSurrogatesBecomeReplacementsInUtf8) {
  EXPECT_EQ(ToUtf8(u"é\U0001F600"), "\xC3\xA9\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8(Text{u'a', char16_t{0xD83D}, u'b'}),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(ToUtf8(Text{char16_t{0xDE00}, char16_t{0xD83D}}), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, EveryUnitSurvivesUtf8) {
  Text all;
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    if (unit < 0xD800 || unit > 0xDFFF) all += static_cast<char16_t>(unit);
  }
  all += u"\U00010000\U000E0041\U0010FFFF";
  EXPECT_TRUE(FromUtf8(ToUtf8(all)) == all);
}

TEST(Text, CasesPairUnitByUnit) {
  const struct {
    Text upper, lower;
  } pairs[] = {
      {u"AZ@[`{", u"az@[`{"},
      {u"ÀÖ×ØÞŸ", u"àö×øþÿ"},  // the multiplication sign stays
      {u"ĀĂĄŁŃŐŒŠŽŻ", u"āăąłńőœšžż"},
      {u"ƠƯȘȚẠỸ", u"ơưșțạỹ"},
      {u"ΆΈΏΑΡΣΩΪ", u"άέώαρσωϊ"},
      {u"ЀЯАЖҐӨ", u"ѐяажґө"},
      {u"ＡＺ中ß\U0001F600", u"ａｚ中ß\U0001F600"},
  };
  for (const auto& pair : pairs) {
    EXPECT_EQ(ToLower(pair.upper), pair.lower);
    EXPECT_EQ(ToUpper(pair.lower), pair.upper);
    EXPECT_EQ(ToLower(pair.lower), pair.lower);
    EXPECT_EQ(ToUpper(pair.upper), pair.upper);
  }
  EXPECT_EQ(ToLower(u"İ"), u"i");
  EXPECT_EQ(ToUpper(u"ıς"), u"IΣ");
}

TEST(Text, ContainsIgnoringCase) {
  EXPECT_TRUE(ContainsIgnoringCase(u"\r\nConnect\r\n", u"CONNECT"));
  EXPECT_TRUE(ContainsIgnoringCase(u"ŽIŽKOV", u"žižk"));
  EXPECT_TRUE(ContainsIgnoringCase(u"", u""));
  EXPECT_FALSE(ContainsIgnoringCase(u"OK", u"OK "));
}

TEST(Text, TrimTakesBlanksOnly) {
  EXPECT_EQ(TrimBlanks(u"  a b \t "), u"a b \t");
  EXPECT_EQ(TrimBlanks(u"   "), u"");
  EXPECT_EQ(TrimBlanks(u"\u00A0"), u"\u00A0");
}

TEST(Text, SplitAndReplace) {
  using Pieces = std::vector<Text>;
  EXPECT_EQ(Split(u"a;;b;", u";"), (Pieces{u"a", u"", u"b", u""}));
  EXPECT_EQ(Split(u"", u"\r\n"), (Pieces{u""}));
  EXPECT_EQ(Split(u"a\r\r\nb", u"\r\n"), (Pieces{u"a\r", u"b"}));
  EXPECT_EQ(Split(u"ab", u""), (Pieces{u"ab"}));
  EXPECT_EQ(Replace(u"====", u"==", u"="), u"==");
  EXPECT_EQ(Replace(u"aba", u"a", u"aa"), u"aabaa");
  EXPECT_EQ(Replace(u"ab", u"", u"x"), u"ab");
  EXPECT_EQ(ToText(-9223372036854775807LL - 1), u"-9223372036854775808");
}

}  // namespace
}  // namespace tessarin
