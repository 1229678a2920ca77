#include "link/PosixPort.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

#include "link/BatteryReply.h"
#include "link/ReplyReader.h"
#include "link/SerialLine.h"

namespace tessarin {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto kIdleGap = 20ms;
constexpr int kFirstByteMilliseconds = 5;
constexpr int kWriteSliceMilliseconds = 20;
constexpr auto kWriteLimit = 5s;  // without any progress
// For the whole answer: about two seconds of waiting for a byte.
constexpr int kBatteryReads = 2000 / kFirstByteMilliseconds;

}  // namespace

PosixPort::PosixPort(const PortMap& map, std::function<void()> whileWaiting)
    : map_(map), whileWaiting_(std::move(whileWaiting)) {}

PosixPort::~PosixPort() { PosixPort::serial_close(); }

int PosixPort::serial_open(const std::string& deviceName, std::int32_t speed) {
  serial_close();
  const int port = PortNumber(deviceName);
  const auto device = map_.Device(port);
  if (!device) return 0;
  const int error = Open(*device, speed);
  troubles_[port] = error == 0 ? PortTrouble{PortTrouble::Kind::Silent, DeviceName(port), {}}
                               : DiagnoseOpening(error, DeviceName(port));
  if (error != 0) return 0;
  openPort_ = port;
  return 1;
}

int PosixPort::Open(const std::string& device, std::int32_t speed) {
  file_ = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (file_ < 0) return errno;
  gone_ = false;
  const int error = MakeSerialLine(file_, speed);
  if (error != 0) {
    ::close(file_);
    file_ = -1;
  }
  return error;
}

void PosixPort::serial_close() {
  if (file_ < 0) return;
  ReleaseSerialLine(file_);
  ::close(file_);
  file_ = -1;
  openPort_ = 0;
  given_ = count_ = 0;
}

int PosixPort::serial_write(const std::uint8_t* bytes, std::size_t count) {
  auto limit = steady_clock::now() + kWriteLimit;
  while (IsUsable() && count > 0) {
    const ssize_t written = ::write(file_, bytes, count);
    if (written > 0) {
      bytes += written;
      count -= static_cast<std::size_t>(written);
      limit = steady_clock::now() + kWriteLimit;
    } else if (written < 0 && errno == EAGAIN) {
      if (steady_clock::now() >= limit) return 0;
      WaitFor(POLLOUT, kWriteSliceMilliseconds);
    } else if (written == 0 || errno != EINTR) {
      gone_ = true;
    }
  }
  return IsUsable() ? 1 : 0;
}

std::size_t PosixPort::serial_read(std::uint8_t* buffer, std::size_t maximum) {
  if (maximum == 0) return 0;
  Idle();
  if (given_ == count_ && !IsUsable()) {
    XSleep(kFirstByteMilliseconds);
    return 0;
  }
  if (given_ == count_) {
    WaitFor(POLLIN, kFirstByteMilliseconds);
    Take();
  }
  const std::size_t count = std::min(maximum, count_ - given_);
  std::copy_n(taken_.data() + given_, count, buffer);
  given_ += count;
  return count;
}

void PosixPort::Take() {
  given_ = count_ = 0;
  if (!IsUsable()) return;
  const ssize_t count = ::read(file_, taken_.data(), taken_.size());
  if (count > 0) {
    troubles_.erase(openPort_);
    count_ = static_cast<std::size_t>(count);
  } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
    gone_ = true;
  }
}

void PosixPort::serial_flush() {
  given_ = count_ = 0;
  if (IsUsable()) tcflush(file_, TCIFLUSH);
}

void PosixPort::XSleep(int milliseconds) {
  const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
  for (auto now = steady_clock::now(); now < end; now = steady_clock::now()) {
    std::this_thread::sleep_until(std::min(end, now + kIdleGap));
    Idle();
  }
}

void PosixPort::Idle() {
  if (!whileWaiting_ || steady_clock::now() - lastIdle_ < kIdleGap) return;
  lastIdle_ = steady_clock::now();
  whileWaiting_();
}

void PosixPort::WaitFor(short events, int milliseconds) {
  pollfd wait{file_, events, 0};
  if (::poll(&wait, 1, milliseconds) > 0 && (wait.revents & events) == 0) gone_ = true;
  Idle();
}

// Asked with a limit of its own, so that a lost phone is noticed soon. The limit is in readings: on
// a machine that is busy elsewhere seconds may hold only a few, and the phone would be given up
// unheard. The answer is read through its OK: what was left of it would be taken for the next
// command's reply.
std::uint16_t PosixPort::GetBatteryLevel() {
  static constexpr std::string_view kQuestion = "AT+CBC\r";
  serial_flush();
  if (serial_write(reinterpret_cast<const std::uint8_t*>(kQuestion.data()), kQuestion.size()) ==
      0) {
    return kNoBatteryLevel;
  }
  std::string received;
  BatteryReply reply{false, kNoBatteryLevel};
  for (int read = 0; read < kBatteryReads && !reply.ended && IsUsable(); ++read) {
    if (ReadSome(*this, received) > 0) reply = ReadBatteryReply(received);
  }
  return reply.ended ? reply.level : kNoBatteryLevel;
}

std::string PosixPort::DeviceName(int port) const {
  if (!map_.Exists(port)) return {};
  const auto device = map_.Device(port).value_or("");
  std::error_code error;
  const auto target = std::filesystem::canonical(device, error);
  return (error ? device : target).string();
}

PortTrouble PosixPort::TroubleAt(int port) const {
  const auto trouble = troubles_.find(port);
  const bool tells = trouble != troubles_.end() && map_.LooksLikePhone(port) && map_.Exists(port);
  return tells ? trouble->second : PortTrouble();
}

}  // namespace tessarin
