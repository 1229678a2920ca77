#include "codecs/RichText.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

const RichText::Style kPlain, kHead{u"Times New Roman", 12, true},
    kFixed{u"Courier {1};", 9, false};

TEST(RichTextTest, WritesADocumentOfItsRuns) {
  RichText text;
  text.Append(u"Name:\t", kHead);
  text.Append(u"Bo\r\nnext\r\n", kHead);
  text.Append(u"x", kFixed);
  text.Append(u"y", kPlain);
  EXPECT_EQ(text.Document(),
            "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fnil Times New Roman;}"
            "{\\f1\\fnil Courier \\{1\\};}}\r\n\\uc1\\pard"
            "\\f0\\b\\fs24 Name:\\tab Bo\\par\r\nnext\\par\r\n"
            "\\f1\\b0\\fs18 x\\f0\\b0\\fs20 y}\r\n");
  EXPECT_EQ(text.Runs().size(), 3u);
  text.Clear();
  EXPECT_EQ(text.Document(), "{\\rtf1\\ansi\\deff0{\\fonttbl}\r\n\\uc1\\pard}\r\n");
}

TEST(RichTextTest, EscapesEveryUnit) {
  const struct {
    TextView text;
    const char* written;
  } cases[] = {
      {u"a\\b{c}d", "a\\\\b\\{c\\}d"},
      {u"é", "\\u233?"},
      {u"Ж汉", "\\u1046?\\u27721?"},
      {u"語", "\\u-30050?"},
      {u"\U0001F600", "\\u-10179?\\u-8704?"},
      {u"1\r2\n3\r\n4", "1\\par\r\n2\\par\r\n3\\par\r\n4"},
      {TextView(u"a\0\u0007\u007Fb", 5), "ab"},
      {u"~ !", "~ !"},
      {u"\u00A0\u0080", "\\u160?\\u128?"},
  };
  for (const auto& c : cases) {
    RichText text;
    text.Append(c.text, kPlain);
    const std::string document = text.Document();
    const std::string head = "\\f0\\b0\\fs20 ";
    const auto at = document.find(head) + head.size();
    EXPECT_EQ(document.substr(at, document.size() - 3 - at), c.written);
  }
}

}  // namespace
}  // namespace tessarin
