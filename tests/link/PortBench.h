#pragma once

// The port on a pseudo terminal, with a phone at its other end.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "link/PosixPort.h"
#include "tests/link/PtyPhone.h"
#include "tests/support/TempFolder.h"

namespace tessarin {

template <typename Work>
std::chrono::milliseconds TimeOf(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                               begin);
}

inline std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

// A phone at COM3 by a link of the user's.
class PortBench : public ::testing::Test {
 protected:
  PortBench() { Plug(3, phone.Device()); }

  void Plug(int number, const std::filesystem::path& device) {
    const std::filesystem::path link = folder.Path() / ("COM" + std::to_string(number));
    std::filesystem::remove(link);
    std::filesystem::create_symlink(device, link);
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
  PortTrouble::Kind OpeningTrouble() {
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

}  // namespace tessarin
