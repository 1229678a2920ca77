// Why a port does not open, and which of its troubles are told.

#include <grp.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include "tests/link/PortBench.h"
#include "tests/support/OrdinaryUser.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using Kind = PortTrouble::Kind;

class PortTroubleTest : public PortBench {};

TEST_F(PortTroubleTest, IsHeldByOneProgramAtATime) {
  PosixPort other(map);
  ASSERT_NE(other.serial_open("\\\\.\\COM3", 0), 0);
  EXPECT_EQ(OpeningTrouble(), Kind::Busy);
  EXPECT_TRUE(map.Exists(3));
  other.serial_close();
  other.serial_close();
  EXPECT_TRUE(Open());
}

TEST_F(PortTroubleTest, LeavesAPortToTheProgramThatHasIt) {
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

TEST_F(PortTroubleTest, NamesTheGroupThatMayUseIt) {
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

TEST_F(PortTroubleTest, DoesNotOpenWhatIsNoTerminal) {
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

TEST_F(PortTroubleTest, TellsTroubleOfPortsThatLookLikeAPhonesOnly) {
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
               {EWOULDBLOCK, Kind::Busy},    {ENOTTY, Kind::NoTerminal},  {EIO, Kind::InputOutput},
               {ENXIO, Kind::NoTerminal},    {EHOSTDOWN, Kind::Silent},   {ETIMEDOUT, Kind::Silent},
               {ENOENT, Kind::None}};
  for (const auto& c : cases) EXPECT_EQ(DiagnoseOpening(c.error, "/dev/null").kind, c.kind);
  EXPECT_EQ(DiagnoseOpening(EACCES, "/no/such/device").group, "");
}

}  // namespace
}  // namespace tessarin
