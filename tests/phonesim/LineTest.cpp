#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <thread>

#include "phonesim/Memory.h"
#include "phonesim/Outlet.h"
#include "phonesim/SampleContent.h"
#include "phonesim/Server.h"
#include "tests/phonesim/Bench.h"

namespace phonesim {
namespace {

using namespace std::chrono_literals;

constexpr int kPatience = 5000;  // milliseconds until a missing answer fails the test

/// A client's end of the line.
class Client {
 public:
  /// Tries again for a second while exclusive use by the client before has not ended yet.
  explicit Client(const std::filesystem::path& port) {
    for (int left = 100; left > 0 && port_ < 0; --left) {
      port_ = open(port.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
      if (port_ < 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
  ~Client() { close(port_); }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  bool Open() const { return port_ >= 0; }
  int Descriptor() const { return port_; }

  void Send(ByteView bytes) const {
    ASSERT_EQ(write(port_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }

  /// One read, after waiting for something to read; empty at the end of the line.
  std::string ReadOnce(int patience = kPatience) const {
    pollfd wait{port_, POLLIN, 0};
    poll(&wait, 1, patience);
    char buffer[4096];
    const ssize_t count = read(port_, buffer, sizeof buffer);
    return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : std::string();
  }

  std::string Read(std::size_t count) const {
    std::string all;
    while (all.size() < count) {
      const std::string piece = ReadOnce();
      if (piece.empty()) break;
      all += piece;
    }
    return all;
  }

  bool AtEnd() const {
    pollfd wait{port_, POLLIN, 0};
    poll(&wait, 1, kPatience);
    char byte = 0;
    const ssize_t count = read(port_, &byte, 1);
    return count == 0 || (count < 0 && errno == EIO);
  }

 private:
  int port_ = -1;
};

class LineTest : public testing::Test {
 protected:
  LineTest() : link(content.Path() / "ports/COM3"), server(content.Path() / "files", link) {
    content.Write("files/Phone/a", "abc");
    server.Start();
  }

  void With(const std::function<void(Behaviour&)>& change) { server.GetSettings().With(change); }

  ScratchFolder content;
  std::filesystem::path link;
  Server server;
};

const std::string kOk = "\r\nOK\r\n";

TEST_F(LineTest, ServesClientsOneAfterTheOther) {
  for (int turn = 0; turn < 20; ++turn) {
    const Client client(link);
    ASSERT_TRUE(client.Open());
    ioctl(client.Descriptor(), TIOCEXCL);
    client.Send(ToBytes("AT\r"));
    EXPECT_EQ(client.Read(kOk.size()), kOk) << turn;
  }
  EXPECT_EQ(server.GetReports().All(), std::vector<std::string>());
}

TEST_F(LineTest, AClientThatDiesLeavesNothingBehind) {
  {
    const Client client(link);
    client.Send(ToBytes("AT*EOBEX\r"));
    EXPECT_EQ(client.Read(11), "\r\nCONNECT\r\n");
    client.Send(Wire("80 001A 10 00 0200 46 0013 F9EC7BC4953C11D2984E525400DC9E09"));
    EXPECT_EQ(client.Read(31).size(), 31U);
    client.Send(Wire("83 00"));
  }
  std::this_thread::sleep_for(100ms);
  const Client next(link);
  next.Send(ToBytes("AT\r"));
  EXPECT_EQ(next.Read(kOk.size()), kOk);
  EXPECT_EQ(server.GetReports().Count(), 1U) << "the packet that was cut off";
}

TEST_F(LineTest, GoesAwayAndComesBack) {
  {
    const Client client(link);
    server.HangUp();
    EXPECT_TRUE(client.AtEnd());
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
    EXPECT_FALSE(server.LineUp());
  }
  server.Start();
  server.Restart();
  const Client client(link);
  client.Send(ToBytes("AT\r"));
  EXPECT_EQ(client.Read(kOk.size()), kOk);
}

TEST_F(LineTest, DropsTheLineAtTheByteItWasTold) {
  for (const std::size_t bytes : {std::size_t{1}, std::size_t{9}}) {
    With([bytes](Behaviour& b) { b.dropAfterBytes = bytes; });
    server.Start();
    const Client client(link);
    client.Send(ToBytes("AT+GMM\r"));
    EXPECT_EQ(client.Read(100), std::string("\r\nT610\r\n\r\nOK").substr(0, bytes));
    EXPECT_TRUE(client.AtEnd());
    server.HangUp();
  }
}

TEST_F(LineTest, DropsTheLineThoughToldSoWhileItSends) {
  Server late(content.Path() / "files", content.Path() / "ports/COM4");
  late.SetListener([&late](bool fromPhone, ByteView) {
    if (fromPhone) late.GetSettings().With([](Behaviour& b) { b.dropAfterBytes = 1; });
  });
  late.Start();
  const Client client(content.Path() / "ports/COM4");
  client.Send(ToBytes("AT\r"));
  EXPECT_EQ(client.Read(kOk.size()), kOk);
  client.Send(ToBytes("AT\r"));
  EXPECT_EQ(client.Read(kOk.size()), "\r") << "what went out before does not count";
  EXPECT_TRUE(client.AtEnd());
}

TEST_F(LineTest, DropsTheLineAtAnyRequestOfASession) {
  const std::vector<Bytes> requests = {
      ToBytes("AT\r"),
      ToBytes("AT+CMGS=12\r"),
      ToBytes("00110005812143F50000FF0131\x1A"),
      Wire("81 00 03"),
      ToBytes("AT*EOBEX\r"),
      Wire("80 0013 10 00 0200 46 000C 'IRMC-SYNC'"),
      Wire("83 002E 01 002B" + NameDigits("telecom/pb/info.log")),
  };
  for (std::size_t last = 0; last < requests.size(); ++last) {
    With([last](Behaviour& b) { b.dropAfterRequests = last; });
    server.Start();
    const Client client(link);
    for (std::size_t i = 0; i <= last; ++i) {
      client.Send(requests[i]);
      EXPECT_EQ(client.ReadOnce().empty(), i == last) << i << " of " << last;
    }
    EXPECT_TRUE(client.AtEnd());
    server.HangUp();
  }
  EXPECT_EQ(server.GetReports().All(), std::vector<std::string>());
}

TEST_F(LineTest, SendsInPiecesAndTakesItsTime) {
  With([](Behaviour& b) {
    b.splitBytes = 1;
    b.splitGap = 30ms;
    b.answerDelay = 100ms;
    b.echo = true;
  });
  const Client client(link);
  const auto start = std::chrono::steady_clock::now();
  const auto passed = [start] { return std::chrono::steady_clock::now() - start; };
  client.Send(ToBytes("AT\r"));
  EXPECT_EQ(client.Read(3), "AT\r");
  EXPECT_EQ(client.Read(1), "\r");
  EXPECT_GE(passed(), 100ms);
  EXPECT_EQ(client.Read(5), "\nOK\r\n");
  EXPECT_GE(passed(), 250ms);
}

TEST_F(LineTest, ARequestBeforeTheAnswerIsSeenInTime) {
  With([](Behaviour& b) { b.answerDelay = 200ms; });
  const Client client(link);
  client.Send(ToBytes("AT\r"));
  std::this_thread::sleep_for(50ms);
  client.Send(ToBytes("AT\r"));
  EXPECT_EQ(client.Read(2 * kOk.size()), kOk + kOk);
  EXPECT_EQ(server.GetReports().Count(), 1U);
}

TEST_F(LineTest, AnswersAPacketWhoseRestStaysAway) {
  const Client client(link);
  client.Send(ToBytes("AT*EOBEX\r"));
  client.Read(11);
  client.Send(Wire("81 00"));
  EXPECT_EQ(client.Read(3), "\xC0" + std::string("\0\3", 2));
  EXPECT_EQ(server.GetReports().Count(), 1U);
}

TEST(Samples, FillAnEmptyFolderOnce) {
  const ScratchFolder scratch;
  const auto folder = scratch.Path() / "phone";
  EXPECT_TRUE(FillWithSamples(folder));
  Memory(folder).With([](Books& books) {
    EXPECT_EQ(books.contacts.Entries().size(), 200U);
    EXPECT_EQ(books.events.Entries().size(), 150U);
    EXPECT_EQ(books.sim.All().size(), 120U);
    EXPECT_EQ(books.messages.Of("SM").size() + books.messages.Of("ME").size(), 60U);
  });
  EXPECT_FALSE(FillWithSamples(folder));
  const FileTree files(folder);
  const auto roots = files.List({});
  ASSERT_EQ(roots.size(), 2U);
  EXPECT_EQ(roots[0].name, "Phone");
  EXPECT_EQ(roots[1].name, "Card");
  const auto others = files.List({"Phone", "Other"});
  const auto has = [&others](auto test) { return std::any_of(others.begin(), others.end(), test); };
  EXPECT_TRUE(has([](const FileTree::Entry& e) { return e.name.size() == 200; }));
  EXPECT_TRUE(has([](const FileTree::Entry& e) { return e.size == 0; }));
}

}  // namespace
}  // namespace phonesim
