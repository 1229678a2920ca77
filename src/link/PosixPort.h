#pragma once

// The serial port of this system: termios, raw, 8N1, exclusive, non-blocking.

#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <string>

#include "link/PortDiagnosis.h"
#include "link/PortMap.h"
#include "link/linkport.h"

namespace tessarin {

class PosixPort : public linkport, public PortDiagnosis {
 public:
  // `whileWaiting` is called about every 20 ms while the port waits for bytes or sleeps, so that
  // the screen can catch up; it may throw, which leaves the port as it is. `map` must outlive this.
  explicit PosixPort(const PortMap& map, std::function<void()> whileWaiting = nullptr);
  ~PosixPort() override;

  int serial_open(const std::string& deviceName, std::int32_t speed) override;
  void serial_close() override;
  int serial_write(const std::uint8_t* bytes, std::size_t count) override;
  std::size_t serial_read(std::uint8_t* buffer, std::size_t maximum) override;
  void serial_flush() override;
  void XSleep(int milliseconds) override;
  std::uint16_t GetBatteryLevel() override;

  std::string DeviceName(int port) const override;
  PortTrouble TroubleAt(int port) const override;

 private:
  // Calls `whileWaiting_` when the last call is long enough ago.
  void Idle();
  // Waits until `events` happen or `milliseconds` are over. Notices a device that is gone.
  void WaitFor(short events, int milliseconds);
  // Takes what is there at this moment. All that was taken before must have been given.
  void Take();
  // 0, or the errno of what was refused.
  int Open(const std::string& device, std::int32_t speed);
  bool IsUsable() const { return file_ >= 0 && !gone_; }

  const PortMap& map_;
  std::function<void()> whileWaiting_;
  std::chrono::steady_clock::time_point lastIdle_;
  int file_ = -1;
  int openPort_ = 0;
  bool gone_ = false;  // the device was unplugged while open
  // What came. Readers ask for a few bytes at a time, and every question to the system costs as
  // much as hundreds of bytes do: all that is there is taken at once.
  std::array<std::uint8_t, 4096> taken_{};
  std::size_t count_ = 0;  // of these bytes
  std::size_t given_ = 0;  // of them to readers
  std::map<int, PortTrouble> troubles_;
};

}  // namespace tessarin
