#pragma once

// The serial port below everything: seven operations on the one port that is open.

#include <cstddef>
#include <cstdint>
#include <string>

namespace tessarin {

class linkport {
 public:
  // What GetBatteryLevel answers when the phone did not.
  static constexpr std::uint16_t kNoBatteryLevel = 65535;

  linkport() = default;
  virtual ~linkport() = default;
  linkport(const linkport&) = delete;
  linkport& operator=(const linkport&) = delete;

  // Whatever waits here may be unwound by an exception of its owner's, which is how the program
  // ends while a phone is silent. In the middle of a write a part may then have gone out.

  // Closes what is open, then opens `deviceName` ("\\.\COM3") for this program alone, 8 data bits,
  // no parity, 1 stop bit, at `speed` bits a second; speed 0 is 115200. Non-zero on success.
  virtual int serial_open(const std::string& deviceName, std::int32_t speed) = 0;

  // Harmless when no port is open.
  virtual void serial_close() = 0;

  // Non-zero when all bytes were written; on failure a part may have gone out. Waits at most about
  // five seconds without progress.
  virtual int serial_write(const std::uint8_t* bytes, std::size_t count) = 0;

  // The number of bytes placed in `buffer`, at most `maximum`; 0 if none came within a few
  // milliseconds, or the device is gone.
  virtual std::size_t serial_read(std::uint8_t* buffer, std::size_t maximum) = 0;

  // Throws away what was received and not read.
  virtual void serial_flush() = 0;

  // Sleeps without giving up the port.
  virtual void XSleep(int milliseconds) = 0;

  // The battery's charge in percent, 0 to 100, asked with AT+CBC (3GPP TS 27.007, 8.4), or
  // kNoBatteryLevel when no answer came within about two seconds. The link must be in AT mode.
  virtual std::uint16_t GetBatteryLevel() = 0;
};

}  // namespace tessarin
