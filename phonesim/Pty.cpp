#include "phonesim/Pty.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

namespace phonesim {
namespace {

namespace fs = std::filesystem;

void Require(bool done, const char* what) {
  if (!done) throw std::system_error(errno, std::generic_category(), what);
}

std::string PortName(int line) {
  std::array<char, 128> name{};
  Require(ptsname_r(line, name.data(), name.size()) == 0, "ptsname");
  return name.data();
}

void MakeRaw(int port) {
  termios settings{};
  Require(tcgetattr(port, &settings) == 0, "tcgetattr");
  cfmakeraw(&settings);
  Require(tcsetattr(port, TCSANOW, &settings) == 0, "tcsetattr");
}

}  // namespace

Pty::Pty(fs::path link) : link_(std::move(link)) {
  try {
    Open();
    MakeLink();
  } catch (...) {
    Close();
    throw;
  }
}

Pty::~Pty() {
  std::error_code ignored;
  if (fs::read_symlink(link_, ignored) == port_) fs::remove(link_, ignored);
  Close();
}

void Pty::Open() {
  line_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  Require(line_ >= 0, "posix_openpt");
  Require(grantpt(line_) == 0 && unlockpt(line_) == 0, "unlockpt");
  port_ = PortName(line_);
  held_ = open(port_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  Require(held_ >= 0, "open the port");
  MakeRaw(held_);
  watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (watch_ >= 0) inotify_add_watch(watch_, port_.c_str(), IN_OPEN | IN_CLOSE);
}

void Pty::MakeLink() {
  if (link_.has_parent_path()) fs::create_directories(link_.parent_path());
  fs::path fresh = link_;
  fresh += ".new-" + std::to_string(getpid());
  fs::remove(fresh);
  fs::create_symlink(port_, fresh);
  fs::rename(fresh, link_);
}

void Pty::Close() {
  for (int* descriptor : {&line_, &held_, &watch_}) {
    if (*descriptor >= 0) close(*descriptor);
    *descriptor = -1;
  }
}

std::size_t Pty::Read(std::span<std::uint8_t> buffer) {
  const ssize_t count = read(line_, buffer.data(), buffer.size());
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::size_t Pty::Write(ByteView bytes) {
  const ssize_t count = write(line_, bytes.data(), bytes.size());
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

bool Pty::LastClientGone() {
  bool gone = false;
  alignas(inotify_event) std::array<char, 4096> news{};
  for (ssize_t size = 0; (size = read(watch_, news.data(), news.size())) > 0;) {
    for (ssize_t at = 0; at < size;) {
      inotify_event event{};
      std::memcpy(&event, news.data() + at, sizeof event);
      at += static_cast<ssize_t>(sizeof event + event.len);
      clients_ = (event.mask & IN_OPEN) != 0 ? clients_ + 1 : std::max(clients_ - 1, 0);
      if (clients_ == 0) gone = true;
    }
  }
  return gone;
}

void Pty::Forget() {
  tcflush(held_, TCIFLUSH);
  ioctl(held_, TIOCNXCL);
}

void Pty::AwaitRead(std::chrono::milliseconds arrival, std::chrono::milliseconds limit) const {
  pollfd port{held_, POLLIN, 0};
  poll(&port, 1, static_cast<int>(arrival.count()));
  const auto end = std::chrono::steady_clock::now() + limit;
  int waiting = 0;
  while (ioctl(held_, FIONREAD, &waiting) == 0 && waiting > 0 &&
         std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace phonesim
