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

}  // namespace
}  // namespace tessarin
