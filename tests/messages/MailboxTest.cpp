#include "messages/Mailbox.h"

#include <gtest/gtest.h>

namespace tessarin {
namespace {

SMSMessage Single(int stat, TextView sender, TextView text) {
  SMSMessage message;
  message.stat = static_cast<std::int16_t>(stat);
  message.sender = sender;
  message.timestamp = u"15/06/2004 13:05:18";
  message.text = text;
  return message;
}

SMSMessage Part(int stat, int reference, int count, int number, TextView text) {
  SMSMessage message = Single(stat, u"4912", text);
  message.concatenated = 1;
  message.reference = static_cast<std::int16_t>(reference);
  message.partCount = static_cast<std::int16_t>(count);
  message.partNumber = static_cast<std::int16_t>(number);
  return message;
}

// The folder's rows as "key:joined text", one a word.
std::string Folder(Mailbox& mailbox, int stat) {
  std::string rows;
  for (const ListRow& row : mailbox.RowsOf(stat)) {
    rows += row.key + ":" + ToUtf8(mailbox.Read(row.key).text) + " ";
  }
  return rows;
}

TEST(Mailbox, SortsBothStoresIntoFolders) {
  Mailbox mailbox;
  mailbox.simMessages = {Single(1, u" 4912 ", u" a "), Single(0, u"4913", u"b"),
                         Single(3, u"4914", u"c")};
  mailbox.memMessages = {Single(1, u"4912", u"d"), Single(2, u"", u"e")};
  EXPECT_EQ(Folder(mailbox, 0), "SIM1:b ");
  EXPECT_EQ(Folder(mailbox, 1), "SIM0:a MEM0:d ");
  EXPECT_EQ(Folder(mailbox, 2), "MEM1:e ");
  EXPECT_EQ(Folder(mailbox, 3), "SIM2:c ");
  EXPECT_EQ(Folder(mailbox, -1), "") << "the root shows nothing";

  const auto rows = mailbox.RowsOf(1);
  EXPECT_EQ(rows[0].cells, (std::vector<Text>{u"", u"SIM", u"4912", u"a", u"15/06/2004 13:05:18"}));
  EXPECT_EQ(rows[1].cells[1], u"MEM");
  EXPECT_FALSE(rows[0].bold);
  EXPECT_TRUE(mailbox.RowsOf(0)[0].bold);
  EXPECT_TRUE(mailbox.simMessages[0].sender == FixedText<40>(u"4912")) << "trimmed in the record";
}

TEST(Mailbox, JoinsTheParts) {
  const struct {
    const char* name;
    std::vector<SMSMessage> sim, mem;
    std::string read, unread;
  } cases[] = {
      {"in order",
       {Part(1, 7, 2, 1, u"one "), Part(1, 7, 2, 2, u"two")},
       {},
       "SIM0SIM1:onetwo ",
       ""},
      {"others between them",
       {Part(1, 7, 3, 1, u"a"), Single(1, u"1", u"x"), Part(1, 7, 3, 2, u"b"),
        Part(1, 7, 3, 3, u"c")},
       {},
       "SIM0SIM2SIM3:abc SIM1:x ",
       ""},
      {"the first part behind the second",
       {Part(1, 7, 2, 2, u"b"), Part(1, 7, 2, 1, u"a")},
       {},
       "SIM1SIM0:ab ",
       ""},
      {"the third before the second",
       {Part(1, 7, 3, 1, u"a"), Part(1, 7, 3, 3, u"c"), Part(1, 7, 3, 2, u"b")},
       {},
       "SIM0SIM2:ab ",
       ""},
      {"a part is missing", {Part(1, 7, 3, 1, u"a"), Part(1, 7, 3, 3, u"c")}, {}, "SIM0:a ", ""},
      {"the first is missing", {Part(1, 7, 2, 2, u"b")}, {}, "", ""},
      {"parts of other folders",
       {Part(0, 7, 2, 1, u"a"), Part(1, 7, 2, 2, u"b")},
       {},
       "",
       "SIM0SIM1:ab "},
      {"the same reference in both stores",
       {Part(1, 7, 2, 1, u"a")},
       {Part(1, 7, 2, 2, u"b")},
       "SIM0:a ",
       ""},
      {"two messages of one reference",
       {Part(1, 7, 2, 1, u"a"), Part(1, 7, 2, 2, u"b"), Part(1, 7, 2, 1, u"c"),
        Part(1, 7, 2, 2, u"d")},
       {},
       "SIM0SIM1:ab SIM2SIM1:cb ",
       ""},
      {"in the phone memory",
       {},
       {Part(1, 0, 2, 1, u"a"), Part(1, 0, 2, 2, u"b")},
       "MEM0MEM1:ab ",
       ""},
  };
  for (const auto& c : cases) {
    Mailbox mailbox;
    mailbox.simMessages = c.sim;
    mailbox.memMessages = c.mem;
    EXPECT_EQ(Folder(mailbox, 1), c.read) << c.name;
    EXPECT_EQ(Folder(mailbox, 0), c.unread) << c.name;
  }
}

TEST(Mailbox, ATextEndsAtItsFirstZero) {
  Mailbox mailbox;
  const Text zero(1, u'\0');
  mailbox.simMessages = {Single(1, u"Info" + zero, u"mail me " + zero + u" home"),
                         Part(1, 7, 2, 1, u" one " + zero), Part(1, 7, 2, 2, u"two " + zero)};
  EXPECT_EQ(mailbox.RowsOf(1)[0].cells[2], u"Info");
  EXPECT_EQ(mailbox.RowsOf(1)[0].cells[3], u"mail me  home");
  EXPECT_EQ(mailbox.Read("SIM0").text, u"mail me ");
  EXPECT_EQ(mailbox.Read("SIM0").sender, u"Info");
  EXPECT_EQ(mailbox.Read("SIM1SIM2").text, u"one two ");
}

TEST(Mailbox, KeysLeadToTheirRecords) {
  Mailbox mailbox;
  mailbox.simMessages.resize(11);
  mailbox.memMessages.resize(1);
  const auto places = mailbox.PlacesOf("SIM10SIM0SIM11SIM3");
  ASSERT_EQ(places.size(), 3u) << "what is no longer there is left out";
  EXPECT_EQ(places[0].record, &mailbox.simMessages[10]);
  EXPECT_EQ(places[2].record, &mailbox.simMessages[3]);
  EXPECT_EQ(places[0].store, u"\"SM\"");
  EXPECT_EQ(mailbox.PlacesOf("MEM0")[0].store, u"\"ME\"");
  for (const char* key : {"", "SIM", "MEM5", "XYZ0", "SIMx"}) {
    EXPECT_TRUE(mailbox.PlacesOf(key).empty()) << key;
    EXPECT_EQ(mailbox.Read(key).text, u"");
  }
}

}  // namespace
}  // namespace tessarin
