// How the port waits: for bytes, for the battery, for a device that is gone.

#include <sys/resource.h>

#include "tests/link/PortBench.h"

namespace tessarin {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Of this thread, in user and system mode.
milliseconds ProcessorTime() {
  rusage usage{};
  ::getrusage(RUSAGE_THREAD, &usage);
  return milliseconds((usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
                      (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000);
}

class PortWaitTest : public PortBench {};

TEST_F(PortWaitTest, NoticesADeviceThatIsUnplugged) {
  ASSERT_TRUE(Open());
  phone.HangUp();
  const auto before = ProcessorTime();
  const auto time = TimeOf([&] {
    for (int i = 0; i < 40; ++i) EXPECT_EQ(Read(), "");
  });
  EXPECT_GE(time, milliseconds(39 * 5));
  EXPECT_LT(ProcessorTime() - before, time / 4);
  EXPECT_FALSE(Send("AT"));
  EXPECT_FALSE(Send(""));
  EXPECT_LT(TimeOf([&] { EXPECT_EQ(port.GetBatteryLevel(), linkport::kNoBatteryLevel); }),
            milliseconds(500));
  port.serial_flush();
  PtyPhone next;
  Plug(3, next.Device());
  EXPECT_TRUE(Open());
  EXPECT_TRUE(Send("AT"));
  EXPECT_EQ(next.Receive(2), "AT");
}

TEST_F(PortWaitTest, WaitsAFewMillisecondsForTheFirstByte) {
  ASSERT_TRUE(Open());
  const auto time = TimeOf([&] {
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Read(), "");
  });
  EXPECT_GE(time, milliseconds(20 * 4));
  EXPECT_LT(time, milliseconds(20 * 50));
}

TEST_F(PortWaitTest, WaitingCostsLittle) {
  ASSERT_TRUE(Open());
  const auto before = ProcessorTime();
  const auto time = TimeOf([&] {
    for (const auto end = Clock::now() + milliseconds(500); Clock::now() < end;) Read();
    port.XSleep(500);
  });
  EXPECT_LT((ProcessorTime() - before) * 10, time);
}

TEST_F(PortWaitTest, YieldsAboutEvery20MillisecondsWhileItWaits) {
  int calls = 0;
  idle = [&] { ++calls; };
  ASSERT_TRUE(Open());
  EXPECT_GE(TimeOf([&] { port.XSleep(300); }), milliseconds(300));
  EXPECT_GE(calls, 4);
  EXPECT_LE(calls, 16);
  calls = 0;
  for (const auto end = Clock::now() + milliseconds(300); Clock::now() < end;) Read();
  EXPECT_GE(calls, 4);
  EXPECT_LE(calls, 16);
  // Bytes that keep coming hold the screen up no more than silence does.
  calls = 0;
  for (const auto end = Clock::now() + milliseconds(300); Clock::now() < end;) {
    phone.Send("x");
    Read();
  }
  EXPECT_GE(calls, 4);
}

TEST_F(PortWaitTest, IsAsItWasAfterAWaitThatWasUnwound) {
  struct Ending {};
  ASSERT_TRUE(Open());
  idle = [] { throw Ending(); };
  EXPECT_THROW(port.XSleep(1000), Ending);
  EXPECT_THROW(
      {
        for (int i = 0; i < 100; ++i) Read();
      },
      Ending);
  idle = [] {};
  phone.Send("still here");
  EXPECT_EQ(ReadAll(10), "still here");
  EXPECT_TRUE(Send("AT"));
  EXPECT_EQ(phone.Receive(2), "AT");
}

TEST_F(PortWaitTest, AsksForTheBatteryLevel) {
  std::vector<std::string> single;
  for (const char byte : std::string("AT+CBC\r\r\n+CBC: 1,7\r\n\r\nOK\r\n"))
    single.emplace_back(1, byte);
  const struct {
    std::vector<std::string> pieces;
    std::uint16_t level;
  } cases[] = {
      {{"\r\n+CBC: 0,85\r\n\r\nOK\r\n"}, 85},
      {single, 7},
      {{"\r\n+CBC: 0,8", "5\r\n\r\nOK", "\r\n"}, 85},
      {{"\r\nERROR\r\n"}, linkport::kNoBatteryLevel},
      {{"\r\n+CBC: 0,200\r\n\r\nOK\r\n"}, linkport::kNoBatteryLevel},
  };
  ASSERT_TRUE(Open());
  for (const auto& c : cases) {
    phone.Send("?\r\n+CBC: 0,11\r\n\r\nOK\r\n");  // the late answer to an earlier question
    EXPECT_EQ(ReadAll(1).at(0), '?');
    phone.Send("\r\n+CBC: 0,12\r\n\r\nOK\r\n");
    std::this_thread::sleep_for(milliseconds(20));
    std::thread answering = phone.Answer("AT+CBC\r", c.pieces);
    const auto time = TimeOf([&] { EXPECT_EQ(port.GetBatteryLevel(), c.level); });
    answering.join();
    EXPECT_LT(time, milliseconds(1000));
    EXPECT_EQ(Read(), "");  // nothing is left for the next command to trip over
  }
}

TEST_F(PortWaitTest, WaitsTwoSecondsForTheBatteryLevel) {
  ASSERT_TRUE(Open());
  // A level without its OK is no answer yet: the OK would be read as the next command's reply.
  std::thread answering = phone.Answer("AT+CBC\r", {"\r\n+CBC: 0,85\r\n"});
  const auto time = TimeOf([&] { EXPECT_EQ(port.GetBatteryLevel(), linkport::kNoBatteryLevel); });
  answering.join();
  EXPECT_GE(time, milliseconds(1900));
  EXPECT_LT(time, milliseconds(8000));
}

TEST_F(PortWaitTest, SecondsThatTheMachineSpendsElsewhereAreNotThePhones) {
  ASSERT_TRUE(Open());
  idle = [] { std::this_thread::sleep_for(milliseconds(600)); };
  std::thread answering([this] {
    phone.Receive(7);
    std::this_thread::sleep_for(milliseconds(2500));
    phone.Send("\r\n+CBC: 0,85\r\n\r\nOK\r\n");
  });
  EXPECT_EQ(port.GetBatteryLevel(), 85);
  answering.join();
}

}  // namespace
}  // namespace tessarin
