// What crosses the port, and how the line is set.

#include "tests/link/PortBench.h"

namespace tessarin {
namespace {

using std::chrono::milliseconds;

class PosixPortTest : public PortBench {};

TEST_F(PosixPortTest, CarriesEveryByteBothWays) {
  ASSERT_TRUE(Open());
  EXPECT_TRUE(Send(AllBytes()));
  EXPECT_EQ(phone.Receive(256), AllBytes());
  phone.Send(AllBytes());
  EXPECT_EQ(ReadAll(256), AllBytes());
  phone.Send("abc");
  EXPECT_EQ(Read(2), "ab");
  EXPECT_EQ(Read(2), "c");
  phone.Send("late");
  EXPECT_EQ(Read(1), "l");
  port.serial_flush();
  EXPECT_EQ(Read(), "");
  EXPECT_TRUE(Send(""));
}

TEST_F(PosixPortTest, SetsTheLine) {
  const struct {
    std::int32_t asked;
    speed_t speed;
  } cases[] = {{0, B115200}, {57600, B57600}, {9600, B9600}, {921600, B921600}};
  for (const auto& c : cases) {
    ASSERT_TRUE(Open(c.asked));
    const termios settings = phone.Settings();
    EXPECT_EQ(::cfgetospeed(&settings), c.speed);
    EXPECT_EQ(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t{CS8});
    EXPECT_EQ(settings.c_cflag & (CLOCAL | CREAD), tcflag_t{CLOCAL | CREAD});
    EXPECT_EQ(settings.c_lflag & (ECHO | ICANON | ISIG), 0u);
    EXPECT_EQ(settings.c_iflag & (IXON | ICRNL | ISTRIP), 0u);
  }
  EXPECT_FALSE(Open(57601));
  EXPECT_FALSE(Open(-1));
  EXPECT_FALSE(Send("AT"));
}

TEST_F(PosixPortTest, StartsWithAnEmptyLine) {
  const int held = ::open(phone.Device().c_str(), O_RDWR | O_NOCTTY);
  ASSERT_TRUE(Open());
  phone.Send("left over");
  EXPECT_EQ(Read(1), "l");
  ASSERT_TRUE(Open());
  EXPECT_EQ(Read(), "");
  ::close(held);
}

TEST_F(PosixPortTest, WritesMoreThanTheLineTakesAtOnce) {
  ASSERT_TRUE(Open());
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += AllBytes();
  std::string received;
  std::thread reader([&] {
    std::this_thread::sleep_for(milliseconds(100));
    received = phone.Receive(bytes.size());
  });
  EXPECT_TRUE(Send(bytes));
  reader.join();
  EXPECT_TRUE(received == bytes);
}

TEST_F(PosixPortTest, GivesUpAWriteThatNobodyTakes) {
  ASSERT_TRUE(Open());
  int calls = 0;
  idle = [&] { ++calls; };
  const auto time = TimeOf([&] { EXPECT_FALSE(Send(std::string(1 << 20, 'x'))); });
  EXPECT_GE(time, milliseconds(4900));
  EXPECT_LT(time, milliseconds(8000));
  EXPECT_GE(calls, 50);
  EXPECT_LT(TimeOf([&] { port.serial_close(); }), milliseconds(1000));
}

}  // namespace
}  // namespace tessarin
