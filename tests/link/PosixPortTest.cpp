#include "link/PosixPort.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/link/PtyPhone.h"
#include "tests/link/TempFolder.h"
#include "tests/support/OrdinaryUser.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Kind = PortTrouble::Kind;
using std::chrono::milliseconds;

template <typename Work>
milliseconds TimeOf(Work&& work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
}

// Of this thread, in user and system mode.
milliseconds ProcessorTime() {
  rusage usage{};
  ::getrusage(RUSAGE_THREAD, &usage);
  return milliseconds((usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
                      (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000);
}

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

// A phone at COM3 by a link of the user's.
class Port : public ::testing::Test {
 protected:
  Port() { Plug(3, phone.Device()); }

  void Plug(int number, const fs::path& device) {
    const fs::path link = folder.Path() / ("COM" + std::to_string(number));
    fs::remove(link);
    fs::create_symlink(device, link);
  }
  bool Open(std::int32_t speed = 0) { return port.serial_open("\\\\.\\COM3", speed) != 0; }
  bool Send(const std::string& bytes) {
    return port.serial_write(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) !=
           0;
  }
  std::string Read(std::size_t maximum = 255) {
    std::string bytes(maximum, '\0');
    bytes.resize(port.serial_read(reinterpret_cast<std::uint8_t*>(bytes.data()), maximum));
    return bytes;
  }
  std::string ReadAll(std::size_t count) {
    std::string bytes;
    for (int i = 0; i < 1000 && bytes.size() < count; ++i) bytes += Read();
    return bytes;
  }
  Kind OpeningTrouble() {
    EXPECT_FALSE(Open());
    EXPECT_EQ(port.serial_read(nullptr, 0), 0u);
    EXPECT_FALSE(Send("AT"));
    return port.TroubleAt(3).kind;
  }

  TempFolder folder, devices;
  PtyPhone phone;
  PortMap map{folder.Path(), devices.Path()};
  std::function<void()> idle = [] {};
  PosixPort port{map, [this] { idle(); }};
};

TEST_F(Port, CarriesEveryByteBothWays) {
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

TEST_F(Port, SetsTheLine) {
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

TEST_F(Port, StartsWithAnEmptyLine) {
  const int held = ::open(phone.Device().c_str(), O_RDWR | O_NOCTTY);
  ASSERT_TRUE(Open());
  phone.Send("left over");
  EXPECT_EQ(Read(1), "l");
  ASSERT_TRUE(Open());
  EXPECT_EQ(Read(), "");
  ::close(held);
}

TEST_F(Port, IsHeldByOneProgramAtATime) {
  PosixPort other(map);
  ASSERT_NE(other.serial_open("\\\\.\\COM3", 0), 0);
  EXPECT_EQ(OpeningTrouble(), Kind::Busy);
  EXPECT_TRUE(map.Exists(3));
  other.serial_close();
  other.serial_close();
  EXPECT_TRUE(Open());
}

// As another program takes a port, even while this one's device stays open somewhere.
TEST_F(Port, LeavesAPortToTheProgramThatHasIt) {
  fs::permissions(phone.Device(), fs::perms(0666));
  const int other = ::open(phone.Device().c_str(), O_RDWR | O_NOCTTY);
  ::ioctl(other, TIOCEXCL);
  {
    const OrdinaryUser user;
    EXPECT_EQ(OpeningTrouble(), Kind::Busy);
  }
  ::ioctl(other, TIOCNXCL);
  EXPECT_TRUE(Open());
  const OrdinaryUser user;
  EXPECT_LT(::open(phone.Device().c_str(), O_RDWR | O_NOCTTY), 0);
  port.serial_close();
  const int again = ::open(phone.Device().c_str(), O_RDWR | O_NOCTTY);
  EXPECT_GE(again, 0);
  ::close(again);
  ::close(other);
}

TEST_F(Port, NamesTheGroupThatMayUseIt) {
  fs::permissions(phone.Device(), fs::perms::none);
  struct stat status {};
  ::stat(phone.Device().c_str(), &status);
  const group* owner = ::getgrgid(status.st_gid);
  const OrdinaryUser user;
  EXPECT_EQ(OpeningTrouble(), Kind::NoPermission);
  const PortTrouble trouble = port.TroubleAt(3);
  EXPECT_EQ(trouble.device, phone.Device());
  EXPECT_EQ(trouble.group, owner != nullptr ? owner->gr_name : std::to_string(status.st_gid));
}

TEST_F(Port, DoesNotOpenWhatIsNoTerminal) {
  const fs::path fifo = folder.Path() / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  for (const fs::path& device :
       {folder.Write("file", "content"), fifo, folder.Path(), fs::path("/dev/null")}) {
    Plug(3, device);
    EXPECT_EQ(OpeningTrouble(), Kind::NoTerminal) << device;
    EXPECT_EQ(port.TroubleAt(3).device, fs::canonical(device));
  }
  EXPECT_EQ(folder.Read("file"), "content");
  Plug(3, folder.Path() / "unplugged");
  EXPECT_EQ(OpeningTrouble(), Kind::None);
  EXPECT_EQ(port.DeviceName(3), "");
  EXPECT_EQ(port.serial_open("COM200", 0), 0);
  EXPECT_EQ(port.serial_open("LPT1", 0), 0);
}

TEST_F(Port, TellsTroubleOfPortsThatLookLikeAPhonesOnly) {
  EXPECT_EQ(port.TroubleAt(3).kind, Kind::None);
  ASSERT_TRUE(Open());
  EXPECT_EQ(port.TroubleAt(3).kind, Kind::Silent);
  EXPECT_EQ(port.TroubleAt(3).device, phone.Device());
  phone.Send("x");
  EXPECT_EQ(ReadAll(1), "x");
  EXPECT_EQ(port.TroubleAt(3).kind, Kind::None);

  devices.Write("ttyS0", "");
  devices.Write("ttyUSB1", "");
  EXPECT_EQ(port.serial_open("\\\\.\\COM1", 0), 0);
  EXPECT_EQ(port.serial_open("\\\\.\\COM36", 0), 0);
  EXPECT_EQ(port.TroubleAt(1).kind, Kind::None);
  EXPECT_EQ(port.TroubleAt(36).kind, Kind::NoTerminal);
  EXPECT_EQ(port.DeviceName(36), (devices.Path() / "ttyUSB1").string());
  fs::remove(devices.Path() / "ttyUSB1");
  EXPECT_EQ(port.TroubleAt(36).kind, Kind::None);
}

TEST(DiagnoseOpening, TellsTroublesApart) {
  const struct {
    int error;
    Kind kind;
  } cases[] = {{EACCES, Kind::NoPermission}, {EPERM, Kind::NoPermission}, {EBUSY, Kind::Busy},
               {EWOULDBLOCK, Kind::Busy},    {ENOTTY, Kind::NoTerminal},  {EIO, Kind::NoTerminal},
               {ENXIO, Kind::NoTerminal},    {ENOENT, Kind::None}};
  for (const auto& c : cases) EXPECT_EQ(DiagnoseOpening(c.error, "/dev/null").kind, c.kind);
  EXPECT_EQ(DiagnoseOpening(EACCES, "/no/such/device").group, "");
}

TEST_F(Port, NoticesADeviceThatIsUnplugged) {
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

TEST_F(Port, WaitsAFewMillisecondsForTheFirstByte) {
  ASSERT_TRUE(Open());
  const auto time = TimeOf([&] {
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Read(), "");
  });
  EXPECT_GE(time, milliseconds(20 * 4));
  EXPECT_LT(time, milliseconds(20 * 50));
}

TEST_F(Port, WaitingCostsLittle) {
  ASSERT_TRUE(Open());
  const auto before = ProcessorTime();
  const auto time = TimeOf([&] {
    for (const auto end = Clock::now() + milliseconds(500); Clock::now() < end;) Read();
    port.XSleep(500);
  });
  EXPECT_LT((ProcessorTime() - before) * 10, time);
}

TEST_F(Port, YieldsAboutEvery20MillisecondsWhileItWaits) {
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

TEST_F(Port, IsAsItWasAfterAWaitThatWasUnwound) {
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

TEST_F(Port, WritesMoreThanTheLineTakesAtOnce) {
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

TEST_F(Port, GivesUpAWriteThatNobodyTakes) {
  ASSERT_TRUE(Open());
  int calls = 0;
  idle = [&] { ++calls; };
  const auto time = TimeOf([&] { EXPECT_FALSE(Send(std::string(1 << 20, 'x'))); });
  EXPECT_GE(time, milliseconds(4900));
  EXPECT_LT(time, milliseconds(8000));
  EXPECT_GE(calls, 50);
  EXPECT_LT(TimeOf([&] { port.serial_close(); }), milliseconds(1000));
}

TEST_F(Port, AsksForTheBatteryLevel) {
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

TEST_F(Port, WaitsTwoSecondsForTheBatteryLevel) {
  ASSERT_TRUE(Open());
  // A level without its OK is no answer yet: the OK would be read as the next command's reply.
  std::thread answering = phone.Answer("AT+CBC\r", {"\r\n+CBC: 0,85\r\n"});
  const auto time = TimeOf([&] { EXPECT_EQ(port.GetBatteryLevel(), linkport::kNoBatteryLevel); });
  answering.join();
  EXPECT_GE(time, milliseconds(1900));
  EXPECT_LT(time, milliseconds(3000));
}

TEST(PortMap, MapsNumbersToDevices) {
  const TempFolder links, devices;
  const PortMap map(links.Path(), devices.Path());
  const struct {
    int port;
    const char* device;  // null: none
    bool phone;
  } cases[] = {
      {-1, nullptr, false},  {0, nullptr, false},    {1, "ttyS0", false},   {2, "ttyS1", false},
      {3, "ttyACM0", true},  {34, "ttyACM31", true}, {35, "ttyUSB0", true}, {66, "ttyUSB31", true},
      {67, "rfcomm0", true}, {98, "rfcomm31", true}, {99, "ircomm0", true}, {130, "ircomm31", true},
      {131, "ttyS2", false}, {160, "ttyS31", false}, {161, nullptr, false}, {256, nullptr, false},
  };
  for (const auto& c : cases) {
    const auto device = map.Device(c.port);
    EXPECT_EQ(device.has_value(), c.device != nullptr) << c.port;
    if (device) {
      EXPECT_EQ(*device, devices.Path() / c.device);
    }
    EXPECT_EQ(map.LooksLikePhone(c.port), c.phone) << c.port;
    EXPECT_FALSE(map.Exists(c.port));
  }
  devices.Write("ttyACM0", "");
  EXPECT_TRUE(map.Exists(3));
}

TEST(PortMap, LinksWinOverTheTable) {
  const TempFolder links, devices;
  const PortMap map(links.Path(), devices.Path());
  devices.Write("ttyACM0", "");
  links.Write("COM4", "no link");
  fs::create_symlink(devices.Path() / "ttyACM0", links.Path() / "COM200");
  fs::create_symlink("COM200", links.Path() / "COM1");
  fs::create_symlink("unplugged", links.Path() / "COM3");
  for (const int port : {1, 200}) {
    EXPECT_EQ(map.Device(port), links.Path() / ("COM" + std::to_string(port)));
    EXPECT_TRUE(map.Exists(port));
    EXPECT_TRUE(map.LooksLikePhone(port));
  }
  EXPECT_EQ(map.Device(3), links.Path() / "COM3");
  EXPECT_FALSE(map.Exists(3));
  EXPECT_EQ(map.Device(4), devices.Path() / "ttyACM1");
}

TEST(PortNumber, IsReadFromPortNames) {
  EXPECT_EQ(PortNumber("COM3"), 3);
  EXPECT_EQ(PortNumber("\\\\.\\COM256"), 256);
  for (const char* name :
       {"", "COM", "COM0", "COM-3", "COM3:", "LPT1", "\\\\.\\", "COM99999999999"}) {
    EXPECT_EQ(PortNumber(name), 0) << name;
  }
}

}  // namespace
}  // namespace tessarin
