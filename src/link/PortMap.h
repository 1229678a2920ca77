#pragma once

// COM port numbers and the devices of this machine that they stand for.

#include <filesystem>
#include <optional>
#include <string_view>

namespace tessarin {

// | COM number | device                  |
// |------------|-------------------------|
// | 1, 2       | ttyS0, ttyS1            |
// | 3 - 34     | ttyACM0 - ttyACM31      |
// | 35 - 66    | ttyUSB0 - ttyUSB31      |
// | 67 - 98    | rfcomm0 - rfcomm31      |
// | 99 - 130   | ircomm0 - ircomm31      |
// | 131 - 160  | ttyS2 - ttyS31          |
//
// A symbolic link "COM<n>" in the folder of port links wins over the table.
class PortMap {
 public:
  explicit PortMap(std::filesystem::path linkFolder, std::filesystem::path deviceFolder = "/dev");

  // None for a number outside the table that has no link. The device need not exist.
  std::optional<std::filesystem::path> Device(int port) const;

  // Whether the port's device exists, also when another program holds it.
  bool Exists(int port) const;

  // Whether the port is one at which a phone is to be expected: a link of the user's, or any
  // device of the table but the machine's own serial ports.
  bool LooksLikePhone(int port) const;

 private:
  std::optional<std::filesystem::path> Link(int port) const;

  std::filesystem::path linkFolder_;
  std::filesystem::path deviceFolder_;
};

// The number in "COM3" or "\\.\COM3"; 0 for anything else.
int PortNumber(std::string_view portName);

}  // namespace tessarin
