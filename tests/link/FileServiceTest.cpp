#include "link/FileService.h"

#include <gtest/gtest.h>

#include <random>

#include "codecs/Faults.h"
#include "link/FolderListing.h"
#include "tests/support/ScriptedPort.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

const PortMap kNoPorts("/nowhere", "/nowhere");
const std::string kId = "0A1B2C3D";
constexpr std::string_view kListing = "x-obex/folder-listing";

std::string Number(std::size_t value, int bytes) {
  std::string number;
  while (bytes-- > 0) number += static_cast<char>(value >> (8 * bytes) & 0xFF);
  return number;
}

std::string Packet(char code, const std::string& rest) {
  return code + Number(rest.size() + 3, 2) + rest;
}

std::string RandomBytes(std::size_t count) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

class Files : public ::testing::Test {
 protected:
  using Failures = std::vector<FileService::Failure>;

  void Answer(const char* wire) { port.Answer({Wire(wire)}); }

  // A phone's replies to the GET of `data`, 512 bytes at most each; `first` are the headers between
  // the Connection Id and the body of the first.
  void AnswerFile(const std::string& data, std::string first) {
    std::size_t sent = 0;
    do {
      const std::string headers = Wire("CB" + kId) + first;
      const std::size_t count = std::min(data.size() - sent, 506 - headers.size());
      const bool last = sent + count == data.size();
      port.Answer(
          {Packet(last ? '\xA0' : '\x90', headers + (last ? "\x49" : "\x48") +
                                              Number(count + 3, 2) + data.substr(sent, count))});
      sent += count;
      first.clear();
    } while (sent < data.size());
  }

  // Takes the packets of a PUT apart, to the last byte: `head` are the headers before the body of
  // the first. The data that they carried, or the packet that was wrong.
  std::string Uploaded(const std::string& head, const std::vector<std::size_t>& sizes) {
    std::string data, expected = head;
    if (port.written.size() != sizes.size()) return "packets";
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const bool last = i + 1 == sizes.size();
      const std::string& packet = port.written[i];
      expected = (last ? '\x82' : '\x02') + Number(sizes[i], 2) + expected +
                 (last ? '\x49' : '\x48') + Number(sizes[i] - expected.size() - 3, 2);
      if (packet.size() != sizes[i] || !packet.starts_with(expected)) return Digits(packet);
      data += packet.substr(expected.size());
      expected.clear();
    }
    return data;
  }

  TempFolder folder;
  ScriptedPort port;
  modComLib com{port, kNoPorts};
  Failures failures;
  FileService files{com, [this](FileService::Failure f) { failures.push_back(f); }};
  const Failures getFailed{FileService::Failure::Get}, putFailed{FileService::Failure::Put};
};

// What one reply carries; codes 0x90 go on.
struct Part {
  char code;
  const char* data;
};

TEST_F(Files, GetsAFolderListing) {
  Answer("A0 002C CB 0A1B2C3D 49 0024 '<folder-listing></folder-listing>'");
  Text xml;
  EXPECT_TRUE(files.GetFolderListing(kId, xml, kListing));
  EXPECT_EQ(xml, u"<folder-listing></folder-listing>");
  EXPECT_EQ(Digits(port.written.at(0)),
            Digits(Wire("83 0021 CB 0A1B2C3D 42 0019 'x-obex/folder-listing' 00")));

  constexpr char kOn = '\x90', kEnd = '\xA0';
  const struct {
    std::vector<Part> parts;
    const char* xml;  // null: refused
  } cases[] = {
      {{{kOn, "<?xml?><fol"}, {kOn, "der-listi"}, {kOn, ""}, {kEnd, "ng>folder-li"}},
       "<folder-listing>"},
      {{{kOn, "<folder-list"}, {kOn, "ing>xfold"}, {kEnd, "er-listing> "}},
       "<folder-listing>xfolder-listing>"},
      {{{'\x10', "<folder-listing"}, {'\x20', ">"}}, "<folder-listing>"},
      {{{kEnd, ""}}, nullptr},
      {{{kEnd, "<folder-listing"}}, nullptr},
      {{{kEnd, "folder-listing>"}}, nullptr},
      {{{kEnd, "folder-listing> <folder-listing v"}}, nullptr},
      {{{'\xC4', "<folder-listing>"}}, nullptr},
      {{{kOn, "<folder-listing>"}, {'\xD3', ""}}, nullptr},
  };
  for (const auto& c : cases) {
    port.written.clear();
    for (const auto& part : c.parts) {
      const std::string data = part.data;
      port.Answer({Packet(part.code, Wire("CB" + kId + "48") + Number(data.size() + 3, 2) + data)});
    }
    EXPECT_EQ(files.GetFolderListing(kId, xml, kListing), c.xml != nullptr) << c.parts[0].data;
    if (c.xml != nullptr) {
      EXPECT_EQ(xml, FromLatin1(c.xml));
    }
    ASSERT_EQ(port.written.size(), c.parts.size());
    for (std::size_t i = 1; i < c.parts.size(); ++i) EXPECT_EQ(port.written[i], Wire("830003"));
    EXPECT_TRUE(port.AllAnswered());
  }
  EXPECT_TRUE(failures.empty());
}

// The name of the file is "a", its Connection Id header CB 0A1B2C3D.
TEST_F(Files, GetsAFileFromEitherKindOfPhone) {
  const struct {
    std::vector<const char*> replies;
    const char* content;
  } cases[] = {
      // plain: Connection Id, Length, End of Body
      {{"A0 0013 CB 0A1B2C3D C3 00000003 49 0006 'Hi!'"}, "Hi!"},
      // with the request's headers repeated in front of the Length
      {{"A0 001A CB 0A1B2C3D 01 0007 0061 0000 C3 00000003 49 0006 'Hi!'"}, "Hi!"},
      // with 48 and 49 in the Length
      {{"A0 001A CB 0A1B2C3D 01 0007 0061 0000 C3 48494849 49 0006 'Hi!'"}, "Hi!"},
      {{"90 0012 CB 0A1B2C3D C3 00000007 48 0005 'Hi'", "90 000E CB 0A1B2C3D 48 0006 ', y'",
        "A0 000D CB 0A1B2C3D 49 0005 'ou'"},
       "Hi, you"},
      // a last reply without a body, and replies without a Connection Id
      {{"90 0008 48 0005 'Hi'", "90 0008 48 0005 '! '", "A0 0003"}, "Hi! "},
      {{"A0 0010 CB 0A1B2C3D C3 00000000 49 0003"}, ""},
      {{"A0 0003"}, ""},
      {{"20 0006 49 0003"}, ""},
  };
  for (const auto& c : cases) {
    folder.Write("a", "an older, longer file");
    for (const bool toFile : {true, false}) {
      port.written.clear();
      for (const char* reply : c.replies) Answer(reply);
      Bytes bytes(1, 0x55);
      EXPECT_TRUE(toFile ? files.GetFile(kId, u"a", folder.Path())
                         : files.GetFileBytes(kId, u"a", bytes));
      EXPECT_EQ(toFile ? folder.Read("a") : std::string(bytes.begin(), bytes.end()), c.content);
      EXPECT_EQ(Digits(port.written[0]), Digits(Wire("83 000F CB 0A1B2C3D 01 0007 0061 0000")));
      for (std::size_t i = 1; i < port.written.size(); ++i) {
        EXPECT_EQ(port.written[i], Wire("830003"));
      }
      EXPECT_EQ(port.written.size(), c.replies.size());
    }
  }
  EXPECT_TRUE(failures.empty());
}

TEST_F(Files, GetsFilesOfManyPackets) {
  const std::string echo = Wire("01 0007 0061 0000");
  for (const std::size_t size : {0u, 1u, 495u, 496u, 497u, 1u << 20}) {
    const std::string data = RandomBytes(size);
    for (const auto& first : {Wire("C3") + Number(size, 4), echo + Wire("C3") + Number(size, 4)}) {
      AnswerFile(data, first);
      EXPECT_TRUE(files.GetFile(kId, u"a", folder.Path()));
      EXPECT_TRUE(folder.Read("a") == data) << size;
    }
  }
}

TEST_F(Files, AFailedGetReportsAndKeepsWhatWasWritten) {
  const struct {
    std::vector<const char*> replies;
    const char* content;
  } cases[] = {
      {{"C4 0003"}, "old"},
      {{"80 0003"}, "old"},
      {{"90 0008 01 0001 'Hi'"}, "old"},
      {{"90 0008 48 0005 'Hi'", "C0 0003"}, "Hi"},
      {{"90 0008 48 0005 'Hi'", "90 0008 48 0002 'Hi'"}, "Hi"},
      {{"90 0008 48 0005 'Hi'", "90 0008 48 0005 '! '", "E0 0008 49 0005 'no'"}, "Hi! "},
  };
  Bytes bytes;
  for (const auto& c : cases) {
    folder.Write("a", "old");
    failures.clear();
    for (int i = 0; i < 2; ++i) {
      for (const char* reply : c.replies) Answer(reply);
    }
    EXPECT_FALSE(files.GetFile(kId, u"a", folder.Path()));
    EXPECT_EQ(folder.Read("a"), c.content) << c.replies[0];
    EXPECT_EQ(failures, getFailed);
    EXPECT_FALSE(files.GetFileBytes(kId, u"a", bytes));
    EXPECT_EQ(failures, getFailed);
  }
  port.writesLeft = 1;
  Answer("90 0008 48 0005 'Hi'");
  EXPECT_FALSE(files.GetFile(kId, u"a", folder.Path()));
}

// The exchange stops behind a whole reply, so the session can be ended.
TEST_F(Files, AGetThatCannotBeKeptFails) {
  const struct {
    Text name;
    std::filesystem::path folder;
    std::size_t size, requests;
  } cases[] = {
      {u"a", folder.Path() / "missing", 5000, 1},
      {Text(240, u'Ж'), folder.Path(), 5000, 1},  // 480 bytes: too long a name for the disk
      {u"full", "/dev", 100, 1},
      {u"full", "/dev", 50000, 0},  // notices it when the buffer is written
  };
  for (const auto& c : cases) {
    port.written.clear();
    failures.clear();
    port.Forget();
    AnswerFile(RandomBytes(c.size), "");
    EXPECT_FALSE(files.GetFile(kId, c.name, c.folder));
    EXPECT_EQ(failures, getFailed);
    if (c.requests != 0) {
      EXPECT_EQ(port.written.size(), c.requests);
    }
    EXPECT_LT(port.written.size(), 60u);
  }
}

TEST_F(Files, NamesThatAreNoFileNamesAreNotAskedFor) {
  const Text names[] = {
      u"", u".", u"..", u"/", u"../a", u"a/b", Text(u"a\0b", 3), Text(1, u'\0'), Text(500, u'x')};
  for (const auto& name : names) {
    failures.clear();
    EXPECT_FALSE(files.GetFile(kId, name, folder.Path()));
    EXPECT_EQ(failures, getFailed);
    EXPECT_TRUE(port.written.empty());
  }
  for (const Text& name :
       {Text(u"a b"), Text(u"..."), Text(u".a"), Text(u"a\\b"), Text(u"Ж汉.gif")}) {
    EXPECT_TRUE(IsSafeFileName(name));
    port.Answer({Wire("A0 0008 49 0005 'ok'")});
    EXPECT_TRUE(files.GetFile(kId, name, folder.Path()));
    EXPECT_EQ(folder.Read(ToUtf8(name)), "ok");
  }
}

TEST_F(Files, PutsSmallFilesByteForByte) {
  Answer("A00003");
  EXPECT_TRUE(files.PutFile(kId, folder.Write("Ж.x", "Hi!")));
  EXPECT_EQ(Digits(port.written[0]),
            Digits(Wire("82 001E CB 0A1B2C3D 01 000B 0416 002E 0078 0000 C3 00000003"
                        "49 0006 'Hi!'")));
  Answer("A00003");
  EXPECT_TRUE(files.PutFileNoId(folder.Write("汉", "")));
  EXPECT_EQ(Digits(port.written[1]), Digits(Wire("82 000D 01 0007 6C49 0000 49 0003")));
}

// The name "a.txt" has 10 bytes, so the first packet has room for 512 - 31 = 481 bytes of the file
// with Connection Id and Length, for 512 - 21 = 491 without.
TEST_F(Files, PutsFilesOfEverySize) {
  const struct {
    std::size_t size;
    std::vector<std::size_t> withId, withoutId;
  } cases[] = {
      {0, {31}, {21}},
      {1, {32}, {22}},
      {480, {511}, {501}},
      {481, {512}, {502}},
      {482, {512, 7}, {503}},
      {491, {512, 16}, {512}},
      {492, {512, 17}, {512, 7}},
      {481 + 505, {512, 511}, {512, 501}},
      {481 + 506, {512, 512}, {512, 502}},
      {481 + 507, {512, 512, 7}, {512, 503}},
      {491 + 506, {512, 512, 16}, {512, 512}},
      {491 + 507, {512, 512, 17}, {512, 512, 7}},
      {481 + 3 * 506, {512, 512, 512, 512}, {512, 512, 512, 502}},
  };
  const std::string name = Wire("01 000F 0061 002E 0074 0078 0074 0000");
  for (const auto& c : cases) {
    const std::string data = RandomBytes(c.size);
    const auto path = folder.Write("a.txt", data);
    for (const auto* sizes : {&c.withId, &c.withoutId}) {
      port.written.clear();
      for (std::size_t i = 1; i < sizes->size(); ++i) Answer("900003");
      Answer("200003");
      const bool withId = sizes == &c.withId;
      EXPECT_TRUE(withId ? files.PutFile(kId, path) : files.PutFileNoId(path));
      const std::string head =
          withId ? Wire("CB" + kId) + name + Wire("C3") + Number(c.size, 4) : name;
      EXPECT_EQ(Uploaded(head, *sizes), data) << c.size;
    }
  }
}

TEST_F(Files, PutsAMegabyte) {
  const std::string data = RandomBytes(1 << 20);
  const std::size_t chunks = (data.size() - 485) / 506;  // the name "a.b": 512 - 27 in the first
  std::vector<std::size_t> sizes(chunks + 1, 512);
  sizes.push_back(6 + data.size() - 485 - chunks * 506);
  for (std::size_t i = 1; i < sizes.size(); ++i) Answer("900003");
  Answer("A00003");
  EXPECT_TRUE(files.PutFile(kId, folder.Write("a.b", data)));
  EXPECT_TRUE(Uploaded(Wire("CB" + kId + "01 000B 0061 002E 0062 0000 C3 00100000"), sizes) ==
              data);
}

TEST_F(Files, AFailedPutReports) {
  const struct {
    std::size_t size;
    std::vector<const char*> replies;
  } cases[] = {
      {1, {"900003"}},
      {1, {"C30003"}},
      {600, {"A00003"}},
      {600, {"CD0003"}},
      {600, {"900003", "900003"}},
      {600, {"900003", "E00003"}},
      {1500, {"900003", "A00003"}},
  };
  for (const auto& c : cases) {
    port.written.clear();
    failures.clear();
    for (const char* reply : c.replies) Answer(reply);
    EXPECT_FALSE(files.PutFile(kId, folder.Write("a.txt", RandomBytes(c.size))));
    EXPECT_EQ(failures, putFailed);
    EXPECT_EQ(port.written.size(), c.replies.size());
  }
  const auto long_ = folder.Write(std::string(246, 'x'), "");  // 21 + 492: one byte too many
  const std::filesystem::path paths[] = {folder.Path() / "missing", folder.Path(), long_, ""};
  for (const auto& path : paths) {
    port.written.clear();
    failures.clear();
    EXPECT_FALSE(files.PutFile(kId, path));
    EXPECT_EQ(failures, putFailed);
    EXPECT_TRUE(port.written.empty());
  }
  port.written.clear();
  port.writesLeft = 0;
  EXPECT_FALSE(files.PutFileNoId(folder.Write("a", "")));
}

// A name of 490 bytes leaves one byte of the first packet to the file.
TEST_F(Files, PutsAFileOfTheLongestName) {
  const auto path = folder.Write(std::string(245, 'x'), "ab");
  Answer("900003");
  Answer("A00003");
  EXPECT_TRUE(files.PutFile(kId, path));
  ASSERT_EQ(port.written.size(), 2u);
  EXPECT_EQ(port.written[0].size(), 512u);
  EXPECT_EQ(Digits(port.written[0].substr(508)), Digits(Wire("48 0004 'a'")));
  EXPECT_EQ(Digits(port.written[1]), Digits(Wire("82 0007 49 0004 'b'")));
}

TEST(ParseFolderListing, GivesFoldersAndFilesInOrder) {
  const auto listing = ParseFolderListing(FromLatin1(
      "<folder-listing version='1.0'><parent-folder/><folder name=\"Phone\" user-perm='R'/>"
      "<file name='a.b.mid' size='123'/><folder name='\xD0\x96\xE6\xB1\x89'/>"
      "<x><file name='&lt;&amp;&#x416;'/><folder/></x><Folder name='no'/></folder-listing>"));
  EXPECT_EQ(listing.folders, (std::vector<Text>{u"Phone", u"Ж汉", u""}));
  ASSERT_EQ(listing.files.size(), 2u);
  EXPECT_EQ(listing.files[0].name, u"a.b.mid");
  EXPECT_EQ(listing.files[0].size, u"123");
  EXPECT_EQ(listing.files[1].name, u"<&Ж");
  EXPECT_EQ(listing.files[1].size, u"");
  EXPECT_TRUE(ParseFolderListing(u"<folder-listing/>").folders.empty());
}

TEST(ParseFolderListing, ThrowsWithTheParsersNumberAndReason) {
  for (const TextView xml : {u"", u"text", u"<folder-listing><file name='a></folder-listing>",
                             u"<folder-listing></folder>", u"<folder-listing><folder name=x/>"}) {
    try {
      ParseFolderListing(xml);
      FAIL() << ToUtf8(xml);
    } catch (const DocumentError& error) {
      EXPECT_GT(error.Number(), 0);
      EXPECT_TRUE(error.Message().starts_with(ToText(error.Number()) + u": ")) << error.what();
      EXPECT_GT(error.Message().size(), 5u);
    }
  }
}

}  // namespace
}  // namespace tessarin
