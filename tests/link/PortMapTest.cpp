// Port numbers, port names and the devices behind them.

#include "link/PortMap.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;

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
