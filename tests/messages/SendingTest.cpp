// Texts of every length, as the simulated phone takes them apart.

#include "codecs/ATMessages.h"
#include "tests/support/SessionBench.h"

namespace tessarin {
namespace {

class SendingTest : public SessionBench {
 protected:
  SendingTest() { com.OpenPhonePort("COM3"); }

  // What the recipient reads, and whether sending was reported as done.
  std::pair<Text, bool> Send(const Text& text, std::int32_t coding) {
    phone.GetMemory().With([](phonesim::Books& books) { books.sent.Clear(); });
    SMSSendRecord send;
    send.Coding = coding;
    send.Number = u"+4912345";
    send.NumberLength = 8;
    send.Text = text;
    send.TextLength = static_cast<std::int32_t>(text.size());
    const bool done = messages_.SendSMS(send);
    return phone.GetMemory().With([done](const phonesim::Books& books) {
      const auto& sent = books.sent.All();
      EXPECT_EQ(sent.size(), 1u);
      EXPECT_EQ(books.sent.Waiting(), 0u);
      EXPECT_EQ(sent.empty() ? "" : sent[0].recipient, "+4912345");
      return std::pair(sent.empty() ? Text() : FromUtf8(sent[0].text), done);
    });
  }

 private:
  ATMessages messages_{com};
};

// A text that fills its last part arrives whole and is reported as failed.
TEST_F(SendingTest, EveryLengthArrives) {
  settings.With([](phonesim::Behaviour& b) { b.messages.takesShortUcs2 = false; });
  const struct {
    std::int32_t coding;
    std::size_t longest, single, part;
    char16_t first;
  } codings[] = {{kGsm7Bit, 320, 160, 153, u'A'}, {kUcs2, 210, 70, 67, u'\u4E00'}};
  for (const auto& c : codings) {
    Text text;
    for (std::size_t length = 0; length <= c.longest; ++length) {
      const auto [arrived, done] = Send(text, c.coding);
      EXPECT_TRUE(arrived == text) << length << ": " << ToUtf8(arrived);
      EXPECT_EQ(done, length <= c.single || length % c.part != 0) << length;
      text += static_cast<char16_t>(c.first + length * 7 % 26);
    }
  }
}

// Wherever blanks stand: septets keep them, but a text in one part has them all at its end. Each
// UCS2 part loses those at its edges; the others, and the words, arrive.
TEST_F(SendingTest, TextsWithBlanksAtTheEdgesOfTheirPartsArrive) {
  const auto words = [](char16_t letter, std::size_t length, std::vector<std::size_t> blanks) {
    Text text(length, letter);
    for (const std::size_t blank : blanks) text[blank] = u' ';
    return text;
  };
  const Text a(153, u'a'), je(67, u'\u0436');
  const struct {
    const char* name;
    std::int32_t coding;
    Text text, arrives;
  } cases[] = {
      {"one part, blanks around it", kUcs2, u" \u0436 \u0436  ", u"\u0436 \u0436"},
      {"one part of septets", kGsm7Bit, u" a b ", u"a b  "},
      {"a blank ends the first part", kUcs2, words(u'\u0436', 140, {66}),
       words(u'\u0436', 139, {})},
      {"a blank begins the second", kUcs2, words(u'\u0436', 140, {67}), words(u'\u0436', 139, {})},
      {"blanks on both sides", kUcs2, words(u'\u0436', 140, {65, 66, 67, 133, 139}),
       words(u'\u0436', 135, {})},
      {"blanks within", kUcs2, words(u'\u0436', 140, {1, 65, 68}),
       words(u'\u0436', 140, {1, 65, 68})},
      {"a part of blanks", kUcs2, je + Text(67, u' ') + u"\u0436", je + u"\u0436"},
      {"blanks in parts of septets", kGsm7Bit, words(u'a', 310, {0, 152, 153, 305, 306, 309}),
       words(u'a', 310, {0, 152, 153, 305, 306, 309})},
  };
  for (const auto& c : cases) {
    const auto [arrived, done] = Send(c.text, c.coding);
    EXPECT_EQ(ToUtf8(arrived), ToUtf8(c.arrives)) << c.name;
    EXPECT_TRUE(done) << c.name;
  }
}

}  // namespace
}  // namespace tessarin
