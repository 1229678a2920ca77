#include <gtest/gtest.h>

#include "codecs/ATMessages.h"
#include "tests/support/ScriptedLine.h"

namespace tessarin {
namespace {

constexpr char16_t kOk[] = u"\r\nOK\r\n";
constexpr char16_t kPrompt[] = u"\r\n> ";
constexpr char16_t kRefused[] = u"\r\n+CMS ERROR: 321\r\n";
constexpr char16_t kBattery[] = u"\r\n+CBC: 0,85\r\n\r\nOK\r\n";

ATMessages::Random Always(double value) {
  return [value] { return value; };
}

SMSSendRecord MessageOf(const Text& text, std::int32_t coding, const Text& number = u"+4912") {
  SMSSendRecord send;
  send.Coding = coding;
  send.Number = number;
  send.NumberLength = static_cast<std::int32_t>(number.size());
  send.Text = text;
  send.TextLength = static_cast<std::int32_t>(text.size());
  return send;
}

// The recipient's side, written down from the standard by itself: takes the parts as they were
// sent, checks every length, and puts the text together.
class Receiver {
 public:
  explicit Receiver(const std::vector<Text>& sent) {
    for (std::size_t i = 0; i + 1 < sent.size(); i += 2) {
      EXPECT_TRUE(sent[i + 1].starts_with(u"raw:"));
      Take(ToUtf8(sent[i]), ToUtf8(sent[i + 1].substr(4)));
    }
  }
  Text text;
  int parts = 0;
  std::set<int> references;

 private:
  static int Hex(const std::string& digits, std::size_t octet) {
    return std::stoi(digits.substr(2 * octet, 2), nullptr, 16);
  }

  void Take(const std::string& command, std::string body) {
    ++parts;
    ASSERT_EQ(body.back(), '\x1A');
    body.pop_back();
    ASSERT_EQ(body.size() % 2, 0u);
    EXPECT_EQ(command, "AT+CMGS=" + std::to_string(body.size() / 2 - 1));
    // 00 fo 00 | 04 91 9421 | 00 DCS FF | UDL
    const int first = Hex(body, 1);
    EXPECT_EQ(body.substr(4, 12), "000491942100");
    const bool ucs2 = Hex(body, 8) == 8;
    const int length = Hex(body, 10);
    std::string data = body.substr(22);
    const bool hasHeader = first == 0x51;
    EXPECT_EQ(first, hasHeader ? 0x51 : 0x11);
    EXPECT_EQ(data.size() / 2, static_cast<std::size_t>(ucs2 ? length : (7 * length + 7) / 8));
    EXPECT_LE(data.size() / 2, 140u);
    if (hasHeader) {
      EXPECT_EQ(data.substr(0, 6), "050003");
      references.insert(Hex(data, 3));
      total_ = Hex(data, 4);
      EXPECT_EQ(Hex(data, 5), parts);
    }
    text += ucs2 ? Units(data.substr(hasHeader ? 12 : 0)) : Septets(data, length, hasHeader);
  }

  static Text Units(const std::string& data) {
    Text units;
    for (std::size_t i = 0; i < data.size() / 4; ++i) {
      units += static_cast<char16_t>(Hex(data, 2 * i) << 8 | Hex(data, 2 * i + 1));
    }
    return units;
  }
  // Bit by bit, the header's 49 with its fill bit left out.
  static Text Septets(const std::string& data, int count, bool hasHeader) {
    std::vector<bool> bits;
    for (std::size_t octet = 0; octet < data.size() / 2; ++octet) {
      for (int bit = 0; bit < 8; ++bit) bits.push_back((Hex(data, octet) >> bit & 1) != 0);
    }
    Text units;
    for (std::size_t i = hasHeader ? 7 : 0; i < static_cast<std::size_t>(count); ++i) {
      unsigned unit = 0;
      for (std::size_t bit = 0; bit < 7; ++bit) unit |= bits[7 * i + bit] ? 1U << bit : 0U;
      units += static_cast<char16_t>(unit);
    }
    return units;
  }

 public:
  int total_ = 0;
};

// Answers as a phone that takes everything.
Text Take(const Text& sent) {
  return sent.starts_with(u"raw:") ? u"\r\n+CMGS: 1\r\n\r\nOK\r\n" : kPrompt;
}

TEST(SendSMS, PutsALiteralMessageOnTheWire) {
  ScriptedLine line;
  line.answer = Take;
  ATMessages messages(line, Always(0.5));
  SMSSendRecord narrow = MessageOf(u"hellohello", kGsm7Bit, u"46708251358");
  EXPECT_TRUE(messages.SendSMS(narrow));
  SMSSendRecord wide = MessageOf(u"你好", kUcs2, u"+441234");
  EXPECT_TRUE(messages.SendSMS(wide));
  EXPECT_EQ(
      line.sent,
      (std::vector<Text>{u"AT+CMGS=23", u"raw:0011000B816407281553F80000FF0AE8329BFD4697D9EC37\x1A",
                         u"AT+CMGS=15", u"raw:00110006914421430008FF044F60597D\x1A"}));
  EXPECT_EQ(wide.Number.Trimmed(), u"441234");
}

// A text that fills its last part arrives whole and is reported as failed.
TEST(SendSMS, EveryLengthArrives) {
  const struct {
    std::int32_t coding;
    std::size_t longest, single, part;
    char16_t first, last;
  } codings[] = {{kGsm7Bit, 320, 160, 153, 0x21, 0x7E}, {kUcs2, 210, 70, 67, 0x4E00, 0x9FA5}};
  for (const auto& c : codings) {
    Text text;
    for (std::size_t length = 0; length <= c.longest; ++length) {
      ScriptedLine line;
      line.answer = Take;
      SMSSendRecord send = MessageOf(text, c.coding);
      const bool done = ATMessages(line, Always(0.999)).SendSMS(send);
      const Receiver receiver(line.sent);
      EXPECT_EQ(done, length <= c.single || length % c.part != 0) << length;
      EXPECT_TRUE(receiver.text == text) << length;
      const std::size_t parts = length <= c.single ? 1 : (length + c.part - 1) / c.part;
      EXPECT_EQ(static_cast<std::size_t>(receiver.parts), parts) << length;
      EXPECT_EQ(SMSPartCount(c.coding, static_cast<int>(length)), receiver.parts) << length;
      if (parts > 1) {
        EXPECT_EQ(receiver.references, std::set<int>{254});
        EXPECT_EQ(receiver.total_, receiver.parts);
      }
      text += static_cast<char16_t>(c.first + (length * 7) % (c.last - c.first));
    }
  }
}

TEST(SendSMS, BlanksAroundTheText) {
  const struct {
    std::int32_t coding;
    Text text;
    Text command, data;
  } cases[] = {
      // Septets keep the length that was announced: what was trimmed comes again at the end.
      {kGsm7Bit, u"Bob  ", u"AT+CMGS=15", u"05C2B7180402"},
      // In UCS2 the UDL counts the blank; what is announced is what comes.
      {kUcs2, u"好 ", u"AT+CMGS=12", u"04597D"},
  };
  for (const auto& c : cases) {
    ScriptedLine line;
    line.answer = Take;
    SMSSendRecord send = MessageOf(c.text, c.coding);
    EXPECT_TRUE(ATMessages(line, Always(0)).SendSMS(send));
    ASSERT_EQ(line.sent.size(), 2u);
    EXPECT_EQ(line.sent[0], c.command);
    EXPECT_EQ(line.sent[1].substr(24), c.data + u"\x1A");
  }
}

TEST(SendSMS, EndsAtTheFirstThingThatGoesWrong) {
  const Text text(400, u'x');  // three parts
  const struct {
    const char* name;
    std::size_t sends;
    std::deque<Text> replies;
    std::size_t sent;
    bool leaves = false;  // the prompt that the phone may stand at
  } cases[] = {
      {"the command is not sent", 0, {}, 0},
      {"no prompt", SIZE_MAX, {kRefused}, 1},
      {"no answer to the command", SIZE_MAX, {u"ERROR"}, 1},
      {"the text is not sent", 1, {kPrompt}, 1},
      {"the first part is refused", SIZE_MAX, {kPrompt, kRefused}, 2},
      {"the second part is refused", SIZE_MAX, {kPrompt, kOk, kPrompt, kRefused}, 4},
      {"the third part gets no prompt", SIZE_MAX, {kPrompt, kOk, kPrompt, kOk, kRefused}, 5},
      {"another command's answer comes first", SIZE_MAX, {kBattery, kPrompt, kRefused}, 2},
      {"no prompt within the time", SIZE_MAX, {u"", kOk}, 2, true},
      {"the prompt comes too late", SIZE_MAX, {u"", kPrompt, kOk}, 3, true},
      {"another command's answer only", SIZE_MAX, {kBattery, u"", kOk}, 2, true},
  };
  for (const auto& c : cases) {
    ScriptedLine line;
    line.replies = c.replies;
    line.sendsLeft = c.sends;
    SMSSendRecord send = MessageOf(text, kGsm7Bit);
    EXPECT_FALSE(ATMessages(line, Always(0)).SendSMS(send)) << c.name;
    ASSERT_EQ(line.sent.size(), c.sent) << c.name;
    EXPECT_EQ(c.sent > 0 && line.sent.back() == u"raw:\x1B", c.leaves) << c.name;
    EXPECT_TRUE(line.replies.empty()) << c.name;
  }
  ScriptedLine line;
  SMSSendRecord send = MessageOf(text, 4);
  EXPECT_FALSE(ATMessages(line).SendSMS(send));
  EXPECT_TRUE(line.sent.empty());
}

TEST(SendSMS, ReferencesDifferFromRunToRun) {
  std::set<int> references;
  for (int run = 0; run < 20; ++run) {
    ScriptedLine line;
    line.answer = Take;
    SMSSendRecord send = MessageOf(Text(161, u'x'), kGsm7Bit);
    EXPECT_TRUE(ATMessages(line).SendSMS(send));
    references.merge(Receiver(line.sent).references);
  }
  EXPECT_GT(references.size(), 1u);
}

TEST(MessageStores, AreSelectedAndCounted) {
  const Text answer = u"\r\n+CPMS: 12,20,3,40,3,40\r\n\r\nOK\r\n";
  const struct {
    std::deque<Text> replies;
    bool done;
    int used, total;
  } cases[] = {
      {{answer}, true, 12, 20},
      {{u"AT+CPMS=\"SM\"\r\r\n+CPMS:0,15\r\n\r\nOK\r\n"}, true, 0, 15},
      {{u"\r\n+CPMS: 99999,x\r\n\r\nOK\r\n"}, true, 32767, 0},
      {{kOk, u""}, true, 0, 0},
      {{kRefused}, false, -1, -1},
      {{u"ERROR"}, false, -1, -1},
      // The answer to an earlier command is not this one's.
      {{kBattery, answer}, true, 12, 20},
      {{kOk, answer}, true, 12, 20},
      {{kOk, kRefused}, false, -1, -1},
      {{kBattery, u""}, false, -1, -1},
  };
  for (const auto& c : cases) {
    ScriptedLine line;
    line.replies = c.replies;
    std::int16_t used = -1;
    std::int16_t total = -1;
    EXPECT_EQ(ATMessages(line).SelectMessageStore(u"\"SM\"", used, total), c.done);
    EXPECT_EQ(used, c.used) << ToUtf8(c.replies[0]);
    EXPECT_EQ(total, c.total) << ToUtf8(c.replies[0]);
    EXPECT_EQ(line.sent, std::vector<Text>{u"AT+CPMS=\"SM\""});
    EXPECT_TRUE(line.replies.empty());
  }
}

constexpr char16_t kMessage[] =
    u"\r\n+CMGR: 1,\"a: b\",19\r\n0791947122723310"
    u"040BC87238880900F10000993092516195800AE8329BFD4697D9EC37\r\n\r\nOK\r\n";

TEST(ReadAllMessages, WalksOverGaps) {
  ScriptedLine line;
  line.replies = {kOk,
                  kMessage,
                  kRefused,
                  u"AT+CMGR=4\r\r\n+CMGR: 0,,2\r\n00040\r\n\r\nOK\r\n",
                  u"\r\n+CMS ERROR:",
                  u" 321\r\n\r\n+CMGR: 3,,2\r\n0031\r\n\r\nOK\r\n",
                  u"\r\n+CMGR: 0,,0\r\n\r\nOK\r\n"};
  std::vector<SMSMessage> records(5);
  EXPECT_TRUE(ATMessages(line).ReadAllMessages(4, 7, records));
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(line.sent.back(), u"AT+CMGR=7");
  EXPECT_EQ(records[0].location, 2);
  EXPECT_EQ(records[0].stat, 0) << "what stands behind the last colon of the line";
  EXPECT_EQ(records[0].sender.Trimmed(), u"27838890001");
  EXPECT_EQ(records[0].text.Trimmed(), u"hellohello");
  EXPECT_EQ(records[1].location, 4);
  EXPECT_EQ(records[2].location, 6);
  EXPECT_EQ(records[2].stat, 3);
}

TEST(ReadAllMessages, EndsAtTheStoresLastLocationOrWithTheLine) {
  ScriptedLine line;
  line.answer = [](const Text&) { return kRefused; };
  std::vector<SMSMessage> records;
  EXPECT_TRUE(ATMessages(line).ReadAllMessages(3, 7, records));
  EXPECT_EQ(line.sent.size(), 7u);
  EXPECT_TRUE(records.empty());

  ScriptedLine dying;
  dying.replies = {kMessage};
  dying.sendsLeft = 1;
  EXPECT_FALSE(ATMessages(dying).ReadAllMessages(3, 7, records));
  EXPECT_EQ(records.size(), 1u) << "what had been read stays";
}

// A message that stood at another's location would be deleted in its place.
TEST(ReadAllMessages, NoReplyIsTakenForAnothers) {
  const Text echo3 = u"AT+CMGR=3\r", echo1 = u"AT+CMGR=1\r", echo2 = u"AT+CMGR=2\r";
  const struct {
    const char* name;
    std::deque<Text> replies;
    std::string locations;  // "-" when the reading failed
  } cases[] = {
      {"a slow first one", {u"", kMessage, kOk, kMessage}, "1 3 "},
      {"one that never comes", {kMessage, u"", u""}, "-"},
      {"a refusal costs its time only", {u"ERROR", kMessage, kMessage}, "2 3 "},
      {"another command's answer", {kMessage, kBattery, kOk, kMessage}, "1 3 "},
      {"the echo of another",
       {echo1 + kMessage, echo1 + kMessage, echo2 + kOk, echo3 + kMessage},
       "1 3 "},
      {"the echoes of others", {echo1 + kMessage, echo1 + kOk, echo1 + kOk}, "-"},
  };
  for (const auto& c : cases) {
    ScriptedLine line;
    line.replies = c.replies;
    std::vector<SMSMessage> records;
    std::string locations;
    if (!ATMessages(line).ReadAllMessages(2, 3, records)) {
      locations = "-";
    } else {
      for (const auto& record : records) locations += std::to_string(record.location) + " ";
    }
    EXPECT_EQ(locations, c.locations) << c.name;
    EXPECT_TRUE(line.replies.empty()) << c.name;
  }
}

TEST(DeleteMessage, SelectsTheStoreFirst) {
  const Text selected = u"\r\n+CPMS: 1,2\r\n\r\nOK\r\n";
  const struct {
    std::deque<Text> replies;
    bool done;
    std::size_t sent;
  } cases[] = {{{selected, kOk}, true, 2},
               {{selected, kRefused}, false, 2},
               {{kRefused}, false, 1},
               {{kBattery, kRefused}, false, 1}};
  for (const auto& c : cases) {
    ScriptedLine line;
    line.replies = c.replies;
    EXPECT_EQ(ATMessages(line).DeleteMessage(u"\"ME\"", 12), c.done);
    ASSERT_EQ(line.sent.size(), c.sent);
    EXPECT_EQ(line.sent[0], u"AT+CPMS=\"ME\"");
    EXPECT_EQ(line.sent.back(), c.sent == 2 ? Text(u"AT+CMGD=12") : line.sent[0]);
  }
}

}  // namespace
}  // namespace tessarin
