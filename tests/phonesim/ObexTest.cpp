#include <gtest/gtest.h>

#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

constexpr const char* kConnect = "80 001A 10 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09";
constexpr const char* kListing = "42 0019 'x-obex/folder-listing' 00";

std::string Text(const std::string& digits) {
  const Bytes bytes = Wire(digits);
  return {bytes.begin(), bytes.end()};
}

class ObexTest : public testing::Test, protected Bench {
 protected:
  /// Collects all replies to a Get, and checks the place of everything in each of them.
  std::string Download(const std::string& name, std::size_t bodyOfFirst) {
    Bytes reply = Wire(Request("83", "01" + Digits16(name.size() * 2 + 5) + NameDigits(name)));
    std::string data;
    for (std::size_t body = bodyOfFirst;; body = 8) {
      const ByteView view(reply);
      EXPECT_LE(view.size(), 512U);
      EXPECT_EQ(Read16(view.subspan(1)), view.size());
      EXPECT_EQ(ToHex(view.subspan(3, 5)), "CB " + id);
      EXPECT_EQ(view[body], view[0] == 0x90 ? 0x48 : 0x49);
      EXPECT_EQ(Read16(view.subspan(body + 1)), view.size() - body);
      data.append(view.begin() + static_cast<std::ptrdiff_t>(body) + 3, view.end());
      if (view[0] != 0x90) break;
      EXPECT_EQ(view.size(), 512U);
      reply = Wire(Talk("83 00 03"));
    }
    return data;
  }

  /// The wire form of a Put's first packet up to the data.
  std::string PutHead(const std::string& name, std::size_t size) const {
    return "CB" + id + "01" + Digits16(name.size() * 2 + 5) + NameDigits(name) + "C3 0000" +
           Digits16(size);
  }
};

TEST_F(ObexTest, ASessionByteForByte) {
  EXPECT_EQ(TalkText("AT*EOBEX\r"), "\r\nCONNECT\r\n");
  EXPECT_EQ(Talk(kConnect),
            "A0 00 1F 10 00 02 00 CB 5E 56 01 01 "
            "4A 00 13 F9 EC 7B C4 95 3C 11 D2 98 4E 52 54 00 DC 9E 09");
  EXPECT_EQ(Talk("85 000D 02 00 CB 5E560101 01 0003"), "A0 00 03");
  EXPECT_EQ(Talk("85 000F 02 00 CB 5E560101 01 0005 0000"), "A0 00 03");
  EXPECT_EQ(Talk("85 0019 02 00 CB 5E560101 01 000F 00500068006F006E0065 0000"), "A0 00 03");
  EXPECT_EQ(Talk("85 000F 02 00 CB 5E560101 01 0005 0000"), "A0 00 03");
  EXPECT_EQ(Talk("85 0011 02 00 CB 5E560101 01 0007 004E 0000"), "C4 00 03");
  EXPECT_EQ(Talk("81 00 03"), "A0 00 03 0D 0A 4F 4B 0D 0A");
  EXPECT_EQ(Talk("81 00 03"), "81 00 03");
  TalkText("AT*EOBEX\r");
  EXPECT_EQ(Talk(kConnect).substr(24, 11), "5E 57 02 02") << "a new session, a new identifier";
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, ListingsNameWhatTheFolderHolds) {
  content.Write("Card/Music/Tom & <\"J'y\">.mid", "12345");
  content.Write("Card/Music/\u4F60\u597D", "");
  std::filesystem::create_symlink("/", content.Path() / "Card/Music/way-out");
  Connect();
  const std::string head =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
      "<!DOCTYPE folder-listing SYSTEM \"obex-folder-listing.dtd\">\r\n"
      "<folder-listing version=\"1.0\">\r\n";
  const std::string root = Request("83", kListing);
  EXPECT_EQ(root.substr(0, 32), "A0 00 D1 CB " + id + " 49 00 C9");
  EXPECT_EQ(Text(root).substr(11),
            head + "<folder name=\"Phone\"/>\r\n<folder name=\"Card\"/>\r\n</folder-listing>\r\n");
  ASSERT_TRUE(GoDown("Card") && GoDown("Music"));
  EXPECT_EQ(Text(Request("83", kListing)).substr(11),
            head +
                "<parent-folder/>\r\n"
                "<file name=\"Tom &amp; &lt;&quot;J&apos;y&quot;&gt;.mid\" size=\"5\"/>\r\n"
                "<file name=\"\u4F60\u597D\" size=\"0\"/>\r\n</folder-listing>\r\n");
  EXPECT_FALSE(GoDown("way-out") || GoDown("..") || GoDown("../Music"));
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, GetsAFileInBothHeaderStyles) {
  Connect();
  ASSERT_TRUE(GoDown("Phone") && GoDown("Sounds"));
  const std::string request = "01 000F 0061002E006D00690064 0000";
  EXPECT_EQ(Request("83", request), "A0 00 14 CB " + id + " C3 00 00 00 04 49 00 07 4D 54 68 64");
  settings.With([](Behaviour& b) { b.echoRequestHeaders = true; });
  EXPECT_EQ(Request("83", request), "A0 00 23 CB " + id +
                                        " 01 00 0F 00 61 00 2E 00 6D 00 69 00 64 00 00 "
                                        "C3 00 00 00 04 49 00 07 4D 54 68 64");
  EXPECT_EQ(Request("83", "01 000F 0065006D007000740079 0000"),
            "A0 00 1F CB " + id +
                " 01 00 0F 00 65 00 6D 00 70 00 74 00 79 00 00 "
                "C3 00 00 00 00 49 00 03");
  EXPECT_EQ(Request("83", "01 0007 0062 0000"), "C4 00 03");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, GetsFilesOfEverySizeAtFixedPlaces) {
  Connect();
  ASSERT_TRUE(GoDown("Card"));
  for (const bool echo : {false, true}) {
    settings.With([echo](Behaviour& b) { b.echoRequestHeaders = echo; });
    const std::size_t body = echo ? 3 + 5 + 7 + 5 : 3 + 5 + 5;
    const std::size_t first = 512 - body - 3;
    for (const std::size_t size :
         {std::size_t{0}, first, first + 1, first + 501, first + 502, std::size_t{70000}}) {
      std::string data(size, '\0');
      for (std::size_t i = 0; i < size; ++i) data[i] = static_cast<char>(i * 7 + i / 251);
      content.Write("Card/f", data);
      EXPECT_EQ(Download("f", body), data) << size << (echo ? " with echo" : "");
    }
  }
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, ANameTooLongToRepeatIsLeftOut) {
  settings.With([](Behaviour& b) { b.echoRequestHeaders = true; });
  Connect();
  const std::string name(247, 'n');
  content.Write(name, "data");
  EXPECT_EQ(Download(name, 13), "data");
}

TEST_F(ObexTest, PutsInOnePacketAndInMany) {
  Connect();
  ASSERT_TRUE(GoDown("Card"));
  const std::size_t room = 512 - (4 + 21);  // the name "up" and all else of the first packet
  for (const std::size_t size : {std::size_t{0}, room, room + 1, room + 506, room + 507}) {
    std::string data;
    for (std::size_t i = 0; i < size; ++i) data += static_cast<char>('a' + i % 23);
    const bool one = size <= room;
    const std::size_t head = one ? size : room;
    std::string reply =
        Talk((one ? "82" : "02") + Digits16(25 + head) + PutHead("up", size) + (one ? "49" : "48") +
             Digits16(head + 3) + "'" + data.substr(0, head) + "'");
    for (std::size_t at = head; at < size;) {
      EXPECT_EQ(reply, "90 00 03");
      EXPECT_NE(content.Read("Card/up"), data) << "kept before it was whole";
      const std::size_t count = std::min<std::size_t>(size - at, 506);
      const bool last = at + count == size;
      reply = Talk((last ? "82" : "02") + Digits16(count + 6) + (last ? "49" : "48") +
                   Digits16(count + 3) + "'" + data.substr(at, count) + "'");
      at += count;
    }
    EXPECT_EQ(reply, "A0 00 03") << size;
    EXPECT_EQ(content.Read("Card/up"), data);
  }
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, TakesMultimediaMessagesByPutAlone) {
  const char* connect = "80 001A 10 00 0200 4A 0013 B9C7FD98E5F811D1BFCE0000F8753890";
  ASSERT_EQ(TalkText("AT*EOBEX\r"), "\r\nCONNECT\r\n");
  EXPECT_EQ(Talk(connect).substr(0, 20), "A0 00 1F 10 00 02 00");
  EXPECT_EQ(Talk("02 0015 01 000B" + NameDigits("a.m") + "48 0007 'abcd'"), "90 00 03");
  EXPECT_EQ(Talk("82 0008 49 0005 'ef'"), "A0 00 03");
  EXPECT_EQ(content.Read(".books/mms/a.m"), "abcdef");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
  EXPECT_EQ(Talk("82 001A 01 000B" + NameDigits("a.m") + "C3 00000004 49 0007 'abcd'"), "C0 00 03");
  EXPECT_EQ(Talk("83 000E 01 000B" + NameDigits("a.m")), "C0 00 03");
  EXPECT_EQ(reports.Count(), 2U);
}

TEST_F(ObexTest, RefusesOnDemand) {
  Connect();
  const auto refuse = [this](ObexOperation operation, ObexRefusal refusal) {
    settings.With([&](Behaviour& b) { b.refusedOperations = {{operation, refusal}}; });
  };
  refuse(ObexOperation::Listing, {0xD0, 1});
  EXPECT_EQ(Request("83", kListing), "D0 00 03");
  refuse(ObexOperation::SetPath, {});
  EXPECT_FALSE(GoDown("Phone"));
  content.Write("big", std::string(2000, 'x'));
  refuse(ObexOperation::Get, {0xC1, 3});
  EXPECT_EQ(Request("83", "01 0009 00620069 0000"), "C4 00 03");
  EXPECT_EQ(Request("83", "01 000B 006200690067 0000").substr(0, 8), "90 02 00");
  EXPECT_EQ(Talk("83 00 03").substr(0, 8), "90 02 00");
  EXPECT_EQ(Talk("83 00 03"), "C1 00 03");
  refuse(ObexOperation::Put, {0xE0, 2});
  EXPECT_EQ(Talk("02 0020" + PutHead("up", 100) + "48 000A 'abcdefg'"), "90 00 03");
  EXPECT_EQ(Talk("02 000A 48 0007 'abcd'"), "E0 00 03");
  EXPECT_FALSE(std::filesystem::exists(content.Path() / "up"));
  Talk("81 00 03");
  refuse(ObexOperation::Connect, {0xD3, 1});
  TalkText("AT*EOBEX\r");
  EXPECT_EQ(Talk(kConnect), "D3 00 07 10 00 02 00");
  EXPECT_EQ(Talk("81 00 03"), "A0 00 03 0D 0A 4F 4B 0D 0A");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

TEST_F(ObexTest, FallsSilentInObexMode) {
  settings.With([](Behaviour& b) { b.silentAfterObexPackets = 2; });
  Connect();
  EXPECT_TRUE(GoDown("Phone"));
  EXPECT_EQ(Talk("81 00 03"), "");
  EXPECT_EQ(Talk("81 00 03") + TalkText("AT\r"), "");
  phone.LineClosed();
  settings.With([](Behaviour& b) {
    b.silentAfterObexPackets.reset();
    b.silence = Silence::Obex;
  });
  EXPECT_EQ(TalkText("AT*EOBEX\r"), "\r\nCONNECT\r\n");
  EXPECT_EQ(Talk(kConnect) + Talk("81 00 03"), "");
  EXPECT_EQ(reports.All(), std::vector<std::string>());
}

}  // namespace
}  // namespace phonesim
