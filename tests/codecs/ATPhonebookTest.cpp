#include "codecs/ATPhonebook.h"

#include <gtest/gtest.h>

#include "codecs/Faults.h"
#include "tests/support/ScriptedLine.h"

namespace tessarin {
namespace {

const Text kOk = u"\r\nOK\r\n";

class SimBook : public ::testing::Test {
 protected:
  // The reply to a range read: an entry at each of these places.
  static Text Entries(const std::vector<int>& places) {
    Text reply;
    for (const int place : places) {
      reply += u"\r\n+CPBR: " + ToText(place) + u",\"1\",129,\"n\"";
    }
    return reply + (places.empty() ? u"" : u"\r\n") + kOk;
  }
  static std::vector<int> From(int first, int last) {
    std::vector<int> places;
    for (int place = first; place <= last; ++place) places.push_back(place);
    return places;
  }

  ScriptedLine line;
  ATPhonebook book{line};
};

TEST_F(SimBook, SelectsAndDeletes) {
  line.replies = {kOk, u"AT+CPBW=12\r\r\nok\r\n", u"\r\nERROR\r\n"};
  EXPECT_TRUE(book.SelectPhonebookStorage(u"\"SM\""));
  EXPECT_TRUE(book.DeleteSIMEntry(u"12"));
  EXPECT_FALSE(book.DeleteSIMEntry(u"13"));
  EXPECT_EQ(line.sent, (std::vector<Text>{u"AT+CPBS=\"SM\"", u"AT+CPBW=12", u"AT+CPBW=13"}));
  line.sendsLeft = 0;
  line.replies = {kOk};
  EXPECT_FALSE(book.SelectPhonebookStorage(u"\"SM\""));
}

TEST_F(SimBook, AsksForItsRange) {
  const struct {
    Text reply;
    int first, last;
  } cases[] = {
      {u"AT+CPBR=?\r\r\n+CPBR: (1-250),40,18\r\n\r\nOK\r\n", 1, 250},
      {u"\r\n+CPBR: (5-7)\r\nOK\r\n", 5, 7},
      {u"\r\n+CPBR: ( 0 - 32767 ),40\r\n\r\nOK\r\n", 0, 32767},
  };
  std::int16_t first = -1, last = -1;
  for (const auto& c : cases) {
    line.replies = {c.reply};
    ASSERT_TRUE(book.GetPhonebookRange(first, last));
    EXPECT_EQ(first, c.first);
    EXPECT_EQ(last, c.last);
  }
  for (const auto* reply : {u"\r\nOK\r\n", u"\r\n+CPBR: (1,2),40\r\n\r\nOK\r\n",
                            u"\r\n+CPBR: (1-40000),40\r\n\r\nOK\r\n"}) {
    line.replies = {reply};
    EXPECT_THROW((void)book.GetPhonebookRange(first, last), ConversionError);
  }
  EXPECT_FALSE(book.GetPhonebookRange(first, last));
  EXPECT_EQ(last, 32767);
}

TEST_F(SimBook, ReadsARange) {
  const Text two = u"\r\n+CPBR: 1,\"+44\",145,\"Ж\"\r\n+CPBR: 2,\"5\",129,\"OK\"";
  const struct {
    Text reply;
    Text text;
  } cases[] = {
      {two + u"\r\n\r\nOK\r\n", two},     {u"AT+CPBR=1,10\r" + two + u"\r\n\r\nOK\r\n", two},
      {two + u"\r\nOK\r\n", two},         {kOk, u""},
      {u"AT+CPBR=1,10\r\r\nOK\r\n", u""},
  };
  for (const auto& c : cases) {
    Text text = u"before";
    line.replies = {c.reply};
    EXPECT_TRUE(book.ReadPhonebookRange(text, 1, 10));
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(line.sent.back(), u"AT+CPBR=1,10");
  }
  Text text = u"before";
  EXPECT_FALSE(book.ReadPhonebookRange(text, 3, 0));
  EXPECT_EQ(line.sent.back(), u"AT+CPBR=3");
  EXPECT_EQ(text, u"before");
}

TEST_F(SimBook, ParsesItsEntries) {
  std::vector<SIMPhoneBookRecord> records(9);
  const Text text =
      u"\r\n+CPBR: 1,\"+44123\",145,\"Ann, \"the\" one\""
      u"\r\n+CPBR: 250,\"\",129,\"\""
      u"\r\n+CPBR: 7,\"*100#\",129";
  EXPECT_EQ(ATPhonebook::CountEntries(text), 3);
  EXPECT_EQ(ATPhonebook::CountEntries(u""), 0);
  ATPhonebook::ParseCPBRText(text, 3, records);
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0].Index, 1);
  EXPECT_EQ(records[0].Number.Trimmed(), u"+44123");
  EXPECT_EQ(records[0].Text.Trimmed(), u"Ann, \"the\" one");
  EXPECT_EQ(records[1].Index, 250);
  EXPECT_EQ(records[1].Number.Trimmed(), u"");
  EXPECT_EQ(records[1].Text.Trimmed(), u"");
  EXPECT_EQ(records[2].Text.Trimmed(), u"");
  ATPhonebook::ParseCPBRText(text, 1, records);
  EXPECT_EQ(records.size(), 1u);
  EXPECT_THROW(ATPhonebook::ParseCPBRText(text, 4, records), BoundsError);
  EXPECT_THROW(ATPhonebook::ParseCPBRText(u"\r\n+CPBR: x,\"1\",129,\"n\"", 1, records),
               ConversionError);
}

TEST_F(SimBook, FindsTheLowestFreePlace) {
  const struct {
    int first, last;
    std::vector<std::vector<int>> batches;
    int free;
  } cases[] = {
      {1, 250, {From(1, 10), {}}, 11},
      {1, 250, {{1, 2, 4}}, 3},
      {1, 250, {{}}, 1},
      {1, 250, {{2, 3}}, 1},
      {1, 250, {From(1, 10), From(11, 19)}, 20},
      {1, 7, {From(1, 7)}, 0},
      {1, 7, {From(1, 6)}, 7},
      {1, 10, {From(1, 10)}, 0},
      {1, 12, {From(1, 10), {12}}, 11},
      {5, 17, {From(5, 14), From(15, 17)}, 0},
      {1, 12, {From(1, 10)}, 0},  // the second batch is refused
  };
  for (const auto& c : cases) {
    line.sent.clear();
    line.replies.clear();
    for (const auto& places : c.batches) line.replies.push_back(Entries(places));
    EXPECT_EQ(book.FindFreeSIMLocation(c.first, c.last), c.free);
    EXPECT_TRUE(line.replies.empty());
    EXPECT_EQ(line.sent.front(),
              u"AT+CPBR=" + ToText(c.first) + u"," + ToText(std::min(c.first + 9, c.last)));
  }
  EXPECT_EQ(line.sent.back(), u"AT+CPBR=11,12");
}

TEST_F(SimBook, TakesNoNameForSuccessAndNoUnreadEntryForAFreePlace) {
  SIMPhoneBookRecord record;
  line.replies = {u"AT+CPBW=7,\"1\",129,\"Brooks\"\r\r\n+CMS ERROR:"};
  EXPECT_FALSE(book.WriteSIMEntry(u"7", record));
  Text text;
  line.replies = {u"\r\n+CPBR: 1,\"1\",129,\"Brooks\"\r\n+CMS ERROR:"};
  EXPECT_FALSE(book.ReadPhonebookRange(text, 1, 10));
  line.replies = {u" 21\r\n" + kOk};  // the rest of an earlier refusal in front
  EXPECT_TRUE(book.DeleteSIMEntry(u"7"));
  line.replies = {u"\r\n+CPBR:1,\"1\",129,\"n\"\r\n" + kOk};
  EXPECT_THROW((void)book.FindFreeSIMLocation(1, 10), ConversionError);
}

TEST_F(SimBook, WritesAnEntry) {
  const struct {
    Text number, name;
    Text command;
  } cases[] = {
      {u"+44123", u"Ж汉 \"x\"", u"text:AT+CPBW=7,\"+44123\",145,\"Ж汉 \"x\"\""},
      {u" 0049 ", u" a b ", u"text:AT+CPBW=7,\"0049\",129,\"a b\""},
      {u"", u"", u"text:AT+CPBW=7,\"\",129,\"\""},
      {u"1", Text(u"a\0b\rATH\x1A", 8), u"text:AT+CPBW=7,\"1\",129,\"abATH\""},
  };
  for (const auto& c : cases) {
    SIMPhoneBookRecord record;
    record.Number = c.number;
    record.Text = c.name;
    line.replies = {kOk};
    EXPECT_TRUE(book.WriteSIMEntry(u"7", record));
    EXPECT_EQ(line.sent.back(), c.command);
    EXPECT_FALSE(book.WriteSIMEntry(u"7", record));
  }
}

}  // namespace
}  // namespace tessarin
