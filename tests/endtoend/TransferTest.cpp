#include <algorithm>

#include "link/FolderListing.h"
#include "tests/endtoend/EndToEnd.h"

namespace tessarin {
namespace {

std::string Content(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
  return bytes;
}

class TransferTest : public EndToEnd, public testing::WithParamInterface<bool> {
 protected:
  TransferTest() {
    for (const char* made : {"out", "in"}) std::filesystem::create_directory(folder.Path() / made);
    Behave([](phonesim::Behaviour& b) { b.echoRequestHeaders = GetParam(); });
  }

  // Works in the phone's folder "Phone", over a session as a worker has it.
  template <class Work>
  bool InSession(Work work) {
    bool done = false;
    host.RunEvent([&] {
      const Busy busy(session);
      OBEX& obex = program.link().obex;
      std::string id;
      obex.EndOBEXSession();
      done = obex.ConnectFolderBrowsing(id) && obex.SetPathRoot(id) &&
             obex.SetPathDown(id, u"Phone") && work(id);
      done = obex.EndOBEXSession() != 0 && done;
    });
    return done;
  }
  // To the phone and back; both copies and the one in memory are what was sent.
  void SendAndFetch(const std::string& name, const std::string& content) {
    const auto source = folder.Write("out/" + name, content);
    FileService& service = program.link().files;
    Bytes bytes;
    EXPECT_TRUE(InSession([&](const std::string& id) {
      return service.PutFile(id, source) &&
             service.GetFile(id, FromUtf8(name), folder.Path() / "in/") &&
             service.GetFileBytes(id, FromUtf8(name), bytes);
    }));
    EXPECT_TRUE(folder.Read("phone/Phone/" + name) == content);
    EXPECT_TRUE(folder.Read("in/" + name) == content);
    EXPECT_TRUE(std::string(bytes.begin(), bytes.end()) == content);
  }
};

// With a name of five letters the packet that opens a Put has 31 bytes besides the data: 3 of the
// packet, 5 of the Connection Id, 15 of the Name, 5 of the Length and 3 of the Body. So has the
// first answer to a Get that repeats the name; without it there are 16. Later packets of a Put have
// 6: with 987 bytes two are full.
TEST_P(TransferTest, MovesFilesOfEverySizeUnchanged) {
  ASSERT_TRUE(StartsAndConnects());
  for (const std::size_t size : {0u, 1u, 480u, 481u, 482u, 495u, 496u, 497u, 987u, 988u}) {
    SCOPED_TRACE(size);
    SendAndFetch("a.bin", Content(size));
  }
  SendAndFetch("large", Content(1U << 20));
  EXPECT_TRUE(host.boxes.empty());
}

TEST_P(TransferTest, KeepsNamesOfEveryScript) {
  ASSERT_TRUE(StartsAndConnects());
  const std::vector<std::string> names = {"Колыбельная.mid",
                                          "茉莉花.mid",
                                          "archive.2004.06.01.txt",
                                          "README",
                                          "Rock & 'Roll' <loud> \"x\".mid",
                                          ".hidden",
                                          "𝄞 clef.mid"};
  for (const auto& name : names) SendAndFetch(name, name);

  ASSERT_TRUE(Does([this] { session.Toolbar2.clicked("File"); }));
  ASSERT_TRUE(Does([this] { session.tvwPhoneDir.SelectByUser(u"Phone"); }));
  std::vector<std::string> listed;
  for (const ListRow& row : session.lvwPhoneFile.rows()) {
    const Text& extension = row.cells[2];
    listed.push_back(ToUtf8(row.cells[0] + (extension.empty() ? u"" : u"." + extension)));
    EXPECT_EQ(row.cells[1], ToText(static_cast<long long>(listed.back().size())));
  }
  EXPECT_EQ(std::set(listed.begin(), listed.end()), std::set(names.begin(), names.end()));
}

TEST_P(TransferTest, AFailureIsToldOnceAndTheLinkGoesOn) {
  ASSERT_TRUE(StartsAndConnects());
  const auto source = folder.Write("out/a.bin", Content(2000));
  FileService& service = program.link().files;
  const auto fetch = [&](const std::string& id) {
    return service.GetFile(id, u"none", folder.Path() / "in");
  };
  const auto send = [&](const std::string& id) { return service.PutFile(id, source); };
  EXPECT_FALSE(InSession(fetch));
  Behave([](phonesim::Behaviour& b) {
    b.refusedOperations[phonesim::ObexOperation::Put] = {0xE0, 3};  // memory full
  });
  EXPECT_FALSE(InSession(send));
  ASSERT_EQ(host.boxes.size(), 2u);
  EXPECT_EQ(host.boxes[0].text, session.language().getTSErrStr(text::error::kReceiveFile));
  EXPECT_EQ(host.boxes[1].text, session.language().getTSErrStr(text::error::kSendFile));
  EXPECT_EQ(folder.Read("in/none"), "(none)");
  EXPECT_EQ(folder.Read("phone/Phone/a.bin"), "(none)");
  Behave([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
  EXPECT_TRUE(InSession(send));
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
}

INSTANTIATE_TEST_SUITE_P(HeaderStyle, TransferTest, testing::Bool(), [](const auto& instance) {
  return instance.param ? "Repeating" : "Plain";
});

}  // namespace
}  // namespace tessarin
