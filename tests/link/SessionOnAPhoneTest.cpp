// Whole sessions with the simulated phone over a real pseudo terminal.

#include <gtest/gtest.h>

#include <random>

#include "link/AT.h"
#include "link/FileService.h"
#include "link/FolderListing.h"
#include "link/OBEX.h"
#include "link/PosixPort.h"
#include "phonesim/Server.h"
#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

class Phone : public ::testing::Test {
 protected:
  Phone() {
    fs::create_directories(content.Path() / "Phone" / "Bilder é Ж汉");
    server.Start();
  }
  // The strict phone saw no breach of the protocol in the whole test.
  void TearDown() override {
    for (const auto& report : server.GetReports().All()) ADD_FAILURE() << report;
  }

  bool Open() { return com.OpenPhonePort("COM3"); }
  bool Begin(std::string& id) {
    obex.EndOBEXSession();
    return obex.ConnectFolderBrowsing(id) && obex.SetPathRoot(id) &&
           obex.SetPathDown(id, u"Phone") && obex.SetPathDown(id, u"Bilder é Ж汉");
  }
  fs::path OnPhone(const Text& name) const {
    return content.Path() / "Phone" / "Bilder é Ж汉" / ToUtf8(name);
  }
  void Behave(const std::function<void(phonesim::Behaviour&)>& change) {
    server.GetSettings().With([&](phonesim::Behaviour& b) { change(b); });
  }

  TempFolder content, links, local;
  phonesim::Server server{content.Path(), links.Path() / "COM3"};
  PortMap map{links.Path()};
  PosixPort port{map};
  modComLib com{port, map};
  OBEX obex{com};
  int failures = 0;
  FileService files{com, [this](FileService::Failure) { ++failures; }};
};

TEST_F(Phone, TellsWhoItIsHoweverItAnswers) {
  for (const bool echo : {false, true}) {
    for (const std::size_t split : {0u, 1u, 7u}) {
      Behave([&](phonesim::Behaviour& b) {
        b.echo = echo;
        b.splitBytes = split;
      });
      ASSERT_TRUE(Open());
      AT at(com);
      EXPECT_EQ(at.GetManufacturer(), u"Ericsson");
      EXPECT_EQ(at.GetModelName(), u"T610");
      EXPECT_TRUE(at.SetCharacterSet(u"\"UTF-8\""));
      EXPECT_EQ(port.GetBatteryLevel(), 85);
      EXPECT_EQ(obex.EndOBEXSession(), -1);
    }
  }
}

TEST_F(Phone, KeepsAndGivesBackFiles) {
  ASSERT_TRUE(Open());
  const Text name = u"Ж汉.a.b";
  const std::size_t room = 512 - (2 * name.size() + 21);
  for (const bool echo : {false, true}) {
    Behave([&](phonesim::Behaviour& b) { b.echoRequestHeaders = echo; });
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, room - 1, room, room + 1,
                                   room + 506, room + 507, std::size_t{100000}}) {
      std::mt19937 random(static_cast<unsigned>(size));
      std::string data(size, '\0');
      for (char& byte : data) byte = static_cast<char>(random());
      const fs::path path = local.Write(ToUtf8(name), data);

      std::string id;
      Bytes bytes;
      ASSERT_TRUE(Begin(id));
      EXPECT_TRUE(files.PutFile(id, path));
      fs::remove(path);
      EXPECT_TRUE(files.GetFile(id, name, local.Path()));
      EXPECT_TRUE(local.Read(ToUtf8(name)) == data) << size;
      EXPECT_TRUE(files.GetFileBytes(id, name, bytes));
      EXPECT_TRUE(std::string(bytes.begin(), bytes.end()) == data) << size;
      EXPECT_EQ(fs::file_size(OnPhone(name)), size);
      EXPECT_EQ(obex.EndOBEXSession(), -1);
    }
  }
  EXPECT_EQ(failures, 0);
}

TEST_F(Phone, ListsItsFolders) {
  ASSERT_TRUE(Open());
  for (int i = 0; i < 40; ++i) {
    std::ofstream(OnPhone(u"Ton " + ToText(100 + i) + u".mid"))
        << std::string(static_cast<std::size_t>(i), 'x');
  }
  std::string id;
  Text xml;
  ASSERT_TRUE(Begin(id));
  ASSERT_TRUE(files.GetFolderListing(id, xml, "x-obex/folder-listing"));
  const FolderListing listing = ParseFolderListing(xml);
  ASSERT_EQ(listing.files.size(), 40u);
  EXPECT_EQ(listing.files[39].name, u"Ton 139.mid");
  EXPECT_EQ(listing.files[39].size, u"39");
  ASSERT_TRUE(obex.SetPathRoot(id));
  ASSERT_TRUE(obex.SetPathDown(id, u"Phone"));
  ASSERT_TRUE(files.GetFolderListing(id, xml, "x-obex/folder-listing"));
  EXPECT_EQ(ParseFolderListing(xml).folders, std::vector<Text>{u"Bilder é Ж汉"});
  EXPECT_FALSE(obex.SetPathDown(id, u"missing"));
  EXPECT_EQ(obex.EndOBEXSession(), -1);
}

// After whatever failed, the session ends and the next one works.
TEST_F(Phone, IsFineAfterAFailedTransfer) {
  ASSERT_TRUE(Open());
  std::ofstream(OnPhone(u"long")) << std::string(5000, 'x');
  const fs::path path = local.Write("put", std::string(5000, 'y'));
  const auto refuse = [this](phonesim::ObexOperation operation, std::size_t packet) {
    Behave([=](phonesim::Behaviour& b) { b.refusedOperations = {{operation, {0xC3, packet}}}; });
  };
  using phonesim::ObexOperation;
  const std::function<bool(const std::string&)> transfers[] = {
      [&](const auto& id) { return files.GetFile(id, u"missing", local.Path()); },
      [&](const auto& id) { return files.GetFile(id, u"long", local.Path() / "nowhere"); },
      [&](const auto& id) {
        refuse(ObexOperation::Get, 3);
        return files.GetFile(id, u"long", local.Path());
      },
      [&](const auto& id) {
        refuse(ObexOperation::Put, 1);
        return files.PutFile(id, path);
      },
      [&](const auto& id) {
        refuse(ObexOperation::Put, 5);
        return files.PutFile(id, path);
      },
  };
  for (const auto& transfer : transfers) {
    failures = 0;
    std::string id;
    ASSERT_TRUE(Begin(id));
    EXPECT_FALSE(transfer(id));
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(obex.EndOBEXSession(), -1);
    Behave([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
    EXPECT_EQ(port.GetBatteryLevel(), 85);
    ASSERT_TRUE(Begin(id));
    EXPECT_TRUE(files.PutFile(id, path));
    EXPECT_EQ(obex.EndOBEXSession(), -1);
  }
}

}  // namespace
}  // namespace tessarin
