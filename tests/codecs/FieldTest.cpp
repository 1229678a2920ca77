#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "codecs/FixedText.h"
#include "codecs/NumberFilter.h"

namespace tessarin {
namespace {

TEST(FixedText, CutsPadsAndTrims) {
  FixedText<5> field;
  EXPECT_EQ(field.Value(), u"     ");
  EXPECT_EQ(field.Trimmed(), u"");
  field = u"abcdefg";
  EXPECT_EQ(field.Value(), u"abcde");
  field = Text(u" a\0", 3);
  EXPECT_EQ(field.Value(), Text(u" a\0  ", 5));
  EXPECT_EQ(field.Trimmed(), Text(u"a\0", 2));
  field = u"\tb";
  EXPECT_EQ(field.Trimmed(), u"\tb");
  EXPECT_EQ(FixedText<5>(u"\tb"), field);
  static_assert(decltype(field)::size() == 5);
}

TEST(NumberFilter, EachKindForbidsMore) {
  const struct {
    TextView text;
    bool digits, keys, plus;  // whether each kind finds something forbidden
  } cases[] = {
      {u"", false, false, false},    {u"0123456789", false, false, false},
      {u"*#", true, false, false},   {u"+44", true, true, false},
      {u"4 4", true, true, true},    {u"a", true, true, true},
      {u"\u0661", true, true, true}, {TextView(u"1\0", 2), true, true, true},
      {u"/:", true, true, true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(HoldsForbidden(c.text, Dialling::kDigits), c.digits) << ToUtf8(c.text);
    EXPECT_EQ(HoldsForbidden(c.text, Dialling::kKeys), c.keys) << ToUtf8(c.text);
    EXPECT_EQ(HoldsForbidden(c.text, Dialling::kKeysAndPlus), c.plus) << ToUtf8(c.text);
  }
}

TEST(Faults, CarryTheWordingOfTheMessageBox) {
  EXPECT_EQ(BoundsError().Message(), u"Subscript out of range");
  EXPECT_EQ(ConversionError().Message(), u"Type mismatch");
  EXPECT_EQ(FileError(ENOENT, "/é").Message(), u"No such file or directory: /é");
  EXPECT_STREQ(FileError(ENOENT, "/\xC3\xA9").what(), "No such file or directory: /\xC3\xA9");
  EXPECT_EQ(DocumentError(7, "Start-end tags mismatch").Message(), u"7: Start-end tags mismatch");
  const Fault copied = BoundsError();
  EXPECT_STREQ(copied.what(), "Subscript out of range");
}

}  // namespace
}  // namespace tessarin
