#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace tessarin {

// The phone's end of a pseudo terminal, whose other end is a serial device.
class PtyPhone {
 public:
  PtyPhone() : line_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    if (line_ < 0 || ::grantpt(line_) != 0 || ::unlockpt(line_) != 0) std::abort();
  }
  ~PtyPhone() { HangUp(); }
  PtyPhone(const PtyPhone&) = delete;
  PtyPhone& operator=(const PtyPhone&) = delete;

  std::string Device() const { return ::ptsname(line_); }

  // The settings of the device, as its owner made them.
  termios Settings() const {
    termios settings{};
    ::tcgetattr(line_, &settings);
    return settings;
  }

  void Send(const std::string& bytes) const {
    if (::write(line_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
      std::abort();
  }

  // Exactly `count` bytes, or as many as come while none is a second late.
  std::string Receive(std::size_t count) const {
    std::string bytes(count, '\0');
    std::size_t received = 0;
    pollfd wait{line_, POLLIN, 0};
    while (received<count&& ::poll(&wait, 1, 1000)> 0) {
      const ssize_t got = ::read(line_, bytes.data() + received, count - received);
      if (got <= 0) break;
      received += static_cast<std::size_t>(got);
    }
    bytes.resize(received);
    return bytes;
  }

  void HangUp() {
    if (line_ >= 0) ::close(line_);
    line_ = -1;
  }

  // Waits for `question`, then sends the pieces of the answer, 2 ms apart. Join the thread.
  std::thread Answer(std::string question, std::vector<std::string> pieces) const {
    return std::thread([this, question, pieces] {
      if (Receive(question.size()) != question) return;
      for (const auto& piece : pieces) {
        Send(piece);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
      }
    });
  }

 private:
  int line_;
};

}  // namespace tessarin
