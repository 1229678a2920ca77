#include "link/SerialLine.h"

#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tessarin {

namespace {

struct Speed {
  std::int32_t bitsPerSecond;
  speed_t code;
};

constexpr std::array kSpeeds = std::to_array<Speed>({
    {0, B115200},        {300, B300},         {600, B600},         {1200, B1200},
    {2400, B2400},       {4800, B4800},       {9600, B9600},       {19200, B19200},
    {38400, B38400},     {57600, B57600},     {115200, B115200},   {230400, B230400},
    {460800, B460800},   {500000, B500000},   {576000, B576000},   {921600, B921600},
    {1000000, B1000000}, {1500000, B1500000}, {2000000, B2000000}, {3000000, B3000000},
});

int SetRaw(int file, speed_t speed) {
  termios settings{};
  if (tcgetattr(file, &settings) != 0) return errno;
  cfmakeraw(&settings);
  settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | CSTOPB | CRTSCTS);
  settings.c_cflag |= CS8 | CLOCAL | CREAD;
  // With a minimum of one byte, a non-blocking read of an empty line fails with EAGAIN, and the
  // result 0 is left to mean a line that was hung up.
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  if (cfsetispeed(&settings, speed) != 0 || cfsetospeed(&settings, speed) != 0) return errno;
  return tcsetattr(file, TCSANOW, &settings) == 0 ? 0 : errno;
}

}  // namespace

int MakeSerialLine(int file, std::int32_t speed) {
  const auto entry = std::find_if(kSpeeds.begin(), kSpeeds.end(),
                                  [speed](const Speed& s) { return s.bitsPerSecond == speed; });
  if (entry == kSpeeds.end()) return EINVAL;
  // TIOCEXCL does not stop a privileged program, nor an open that came before; the lock keeps two
  // programs that take it apart in any case.
  if (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return EWOULDBLOCK;
  if (const int error = SetRaw(file, entry->code); error != 0) return error;
  if (ioctl(file, TIOCEXCL) != 0) return errno;
  tcflush(file, TCIFLUSH);
  return 0;
}

void ReleaseSerialLine(int file) {
  tcflush(file, TCOFLUSH);
  ioctl(file, TIOCNXCL);
}

}  // namespace tessarin
