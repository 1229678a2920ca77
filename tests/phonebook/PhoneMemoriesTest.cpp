#include "phonebook/PhoneMemories.h"

#include <gtest/gtest.h>

#include "phonebook/ContactRecord.h"
#include "tests/support/ScriptedPort.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");

class NoDiagnosis : public PortDiagnosis {
 public:
  std::string DeviceName(int) const override { return {}; }
  PortTrouble TroubleAt(int) const override { return {}; }
};

class MemoriesTest : public ::testing::Test {
 protected:
  // Each write's answer, in the notation of `Wire`.
  void Answers(const std::vector<const char*>& answers) {
    port.Forget();
    port.written.clear();
    for (const char* answer : answers) port.Answer({Wire(answer)});
  }
  bool Wrote(std::string_view bytes) const {
    for (const auto& written : port.written) {
      if (written.find(bytes) != std::string::npos) return true;
    }
    return false;
  }

  ScriptedPort port;
  NoDiagnosis diagnosis;
  modComLib com{port, kNoPorts};
  AT at{com};
  OBEX obex{com};
  FileService files{com, nullptr};
  IrMC irmc{com};
  Session session;
  PhoneMemories memories{session, {port, diagnosis, com, at, obex, files, irmc}};
  clsT610Contact contact;
};

constexpr char kOk[] = "0D0A 'OK' 0D0A";
constexpr char kRefused[] = "0D0A '+CMS ERROR: 21' 0D0A";
constexpr char kInAtMode[] = "810003";
constexpr char kConnect[] = "0D0A 'CONNECT' 0D0A";
constexpr char kConnected[] = "A0 000C 10 00 0200 CB 00000001";
constexpr char kClosed[] = "A00003 0D0A 'OK' 0D0A";

TEST_F(MemoriesTest, WritesAContactToTheSim) {
  session.simMinIndex = 1;
  session.simMaxIndex = 5;
  contact.LetData(u"Ann Ж", clsT610Contact::kName);
  contact.LetData(u"+441", clsT610Contact::kHome);
  constexpr char kTwo[] =
      "0D0A '+CPBR: 1,\"1\",129,\"a\"' 0D0A '+CPBR: 3,\"1\",129,\"a\"' 0D0A 0D0A 'OK' 0D0A";
  Answers({kOk, kTwo, kOk});
  EXPECT_EQ(memories.WriteContactToMobile(contact, u's', 1), u"2");
  EXPECT_EQ(contact.GetData(clsT610Contact::kMobileId), u"s2");
  EXPECT_EQ(port.written.back(), "AT+CPBW=2,\"+441\",145,\"Ann \xD0\x96\"\r");
  Answers({kOk, kOk});
  EXPECT_EQ(memories.WriteContactToMobile(contact, u's', 0), u"");
  EXPECT_EQ(port.written.back(), "AT+CPBW=2,\"+441\",145,\"Ann \xD0\x96\"\r");

  contact.LetData(u"s9", clsT610Contact::kMobileId);
  const struct {
    std::vector<const char*> answers;
    int mode;
    Text result;
  } failures[] = {
      {{kRefused}, 1, u""},  // no SIM: may be tried again
      {{kRefused}, 2, u""},
      {{kOk, kRefused}, 1, u"-1"},  // it is not told which places are free
      {{kOk, kTwo, kRefused}, 1, u"-1"},
      {{kOk, kRefused}, 2, u"-1"},
  };
  for (const auto& failure : failures) {
    Answers(failure.answers);
    EXPECT_EQ(memories.WriteContactToMobile(contact, u's', failure.mode), failure.result);
    EXPECT_TRUE(port.AllAnswered());
    EXPECT_EQ(contact.GetData(clsT610Contact::kMobileId), u"s9");
  }
  EXPECT_EQ(memories.WriteContactToMobile(contact, u'x', 1), u"");
}

TEST_F(MemoriesTest, AsksForTheRangeOfASimThatWasNotRead) {
  Answers({"0D0A '+CPBR: (1-10),40,14' 0D0A 0D0A 'OK' 0D0A", kOk});
  EXPECT_EQ(memories.FindFreeSimLocation(), 1);
  EXPECT_EQ(session.simMaxIndex, 10);
  EXPECT_EQ(port.written.front(), "AT+CPBR=?\r");
  session.simMaxIndex = 0;
  Answers({"0D0A '+CPBR: (none)' 0D0A 0D0A 'OK' 0D0A"});
  EXPECT_EQ(memories.FindFreeSimLocation(), 0);
}

TEST_F(MemoriesTest, WritesAContactToPhoneMemory) {
  contact.LetData(u"Ann", clsT610Contact::kName);
  contact.LetData(u"a@b", clsT610Contact::kEmail1);
  contact.LetData(u"http://a", clsT610Contact::kUrl);
  constexpr char kAdded[] = "A0 0014 4C 0011 01 0C '00000100002A'";
  Answers({kInAtMode, kConnect, kConnected, kAdded, kClosed});
  EXPECT_EQ(memories.WriteContactToMobile(contact, u'p', 1), u"00000100002A");
  EXPECT_EQ(contact.GetData(clsT610Contact::kMobileId), u"") << "the caller puts the p before it";
  EXPECT_TRUE(
      Wrote("N;CHARSET=ISO-8859-1:;Ann\r\nEMAIL;INTERNET;PREF;CHARSET=UTF-7:a@b\r\n"
            "URL;CHARSET=UTF-7:http://a\r\nEND:VCARD\r\n"));
  EXPECT_EQ(Digits(port.written.back()), "810003");

  contact.LetData(u"p00000100002A", clsT610Contact::kMobileId);
  Answers({kInAtMode, kConnect, kConnected, "A0 0003", kClosed});
  EXPECT_EQ(memories.WriteContactToMobile(contact, u'p', 0), u"");
  EXPECT_TRUE(Wrote(Wire("002F 0030 0030 0030 0030 0030 0031 0030 0030 0030 0030 0032 0041 002E")));
  EXPECT_EQ(port.written.size(), 5u);

  for (const int mode : {0, 1}) {
    Answers({kInAtMode, kConnect, kConnected, "C1 0003", kClosed});
    EXPECT_EQ(memories.WriteContactToMobile(contact, u'p', mode), u"-1");
    EXPECT_EQ(Digits(port.written.back()), "810003");
    Answers({kInAtMode, kOk, kInAtMode});  // no session
    EXPECT_EQ(memories.WriteContactToMobile(contact, u'p', mode), u"");
    EXPECT_EQ(port.written.size(), 3u);
  }
}

TEST_F(MemoriesTest, DeletesACardThatItCanName) {
  using Outcome = PhoneMemories::Outcome;
  Answers({kInAtMode, kConnect, kConnected, "A0 0003", kClosed});
  EXPECT_EQ(memories.DeleteCard(u"00000100002A"), Outcome::Done);
  Answers({kInAtMode, kConnect, kConnected, "C4 0003", kClosed});
  EXPECT_EQ(memories.DeleteCard(u"00000100002A"), Outcome::Refused);
  Answers({kInAtMode, kRefused, kInAtMode});
  EXPECT_EQ(memories.DeleteCard(u"00000100002A"), Outcome::NoSession);
  Answers({});
  EXPECT_EQ(memories.DeleteCard(u""), Outcome::Nameless);
  EXPECT_TRUE(port.written.empty());
}

TEST_F(MemoriesTest, ReadsOnePlaceOfTheSim) {
  const struct {
    const char* answer;
    bool there;
  } cases[] = {{"0D0A '+CPBR: 7,\"12\",129,\"Ann\"' 0D0A 0D0A 'OK' 0D0A", true},
               {kOk, false},
               {kRefused, false},
               {"0D0A '+CPBR:7,\"12\",129,\"Ann\"' 0D0A 0D0A 'OK' 0D0A", false}};
  for (const auto& c : cases) {
    SIMPhoneBookRecord entry;
    Answers({c.answer});
    ASSERT_EQ(memories.ReadSimEntry(u"7", entry), c.there) << c.answer;
    EXPECT_EQ(port.written.back(), "AT+CPBR=7\r");
    EXPECT_EQ(entry.Text.Trimmed(), c.there ? u"Ann" : u"");
    EXPECT_EQ(entry.Number.Trimmed(), c.there ? u"12" : u"");
  }
}

TEST(ContactRecordTest, PutsEveryTextIntoOneLine) {
  const std::pair<Text, Text> cases[] = {
      {u"Main St 1\r\nFlat 2", u"Main St 1 Flat 2"},
      {u"a\rb\nc\td\n\re", u"a b c d e"},
      {Text(u"Zo\u00EB\0", 4), u"Zo\u00EB"},
      {u"\u0001a\u007F\u0085\u009F\u00A0\u6C49", u"a\u00A0\u6C49"},
  };
  for (const auto& [text, line] : cases) {
    EXPECT_EQ(OneLine(text), line);
    clsT610Contact contact;
    for (int field = 3; field < clsT610Contact::kFields; ++field) contact.LetData(text, field);
    const PhoneBookRecord record = RecordOf(contact);
    EXPECT_EQ(record.Name.Trimmed(), line);
    EXPECT_EQ(record.TelOther.Trimmed(), line);
    EXPECT_EQ(record.WorkCountry.Trimmed(), line);
    EXPECT_EQ(record.Url.Trimmed(), line);
  }
}

TEST(ContactRecordTest, MovesEveryFieldAndKeepsTheOddOnes) {
  clsT610Contact contact;
  for (int field = 0; field < clsT610Contact::kFields; ++field) {
    contact.LetData(u" f" + ToText(field) + u" ", field);
  }
  PhoneBookRecord record = RecordOf(contact);
  EXPECT_EQ(record.EmailPref.Trimmed(), u"f9");
  EXPECT_EQ(record.Email1.Trimmed(), u"");
  EXPECT_EQ(record.Luid.Trimmed(), u"");
  record.Email1 = u"read";
  record.Luid = u"00000100002A";

  clsT610Contact read;
  TakeReadRecord(record, read);
  clsT610Contact written;
  written.LetData(u"old work street", 19);
  TakeWrittenRecord(record, written);
  for (int field = 3; field < clsT610Contact::kFields; ++field) {
    const Text plain = field == 13 ? Text() : u"f" + ToText(field);
    EXPECT_EQ(read.GetData(field), field == 9 ? u"read" : plain) << field;
    const Text odd = field == 14 ? u"f19" : field == 19 ? u"old work street" : plain;
    EXPECT_EQ(written.GetData(field), odd) << field;
  }
  EXPECT_EQ(read.GetData(1), u"p00000100002A");
  EXPECT_EQ(written.GetData(1), u"");
}

}  // namespace
}  // namespace tessarin
