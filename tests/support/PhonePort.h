#pragma once

// A simulated phone at a COM port, in the same thread and without time: an answer is there when
// the question was asked, and waiting costs nothing. With `keepsTime` an answer of a command that
// the phone takes its time over is there once the reader has slept so long.

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "link/PortDiagnosis.h"
#include "link/linkport.h"
#include "phonesim/Phone.h"

namespace tessarin {

class PhonePort : public linkport, public PortDiagnosis {
 public:
  // `phone` must outlive the port.
  explicit PhonePort(phonesim::Phone& phone) : phone_(phone) {}

  std::string at = "COM3";           // where the phone is plugged in
  std::deque<std::uint16_t> levels;  // the next answers about the battery; then `level`
  std::uint16_t level = 85;
  std::function<void(std::string&)> spoil;  // changes what the phone sends
  std::size_t writesLeft = SIZE_MAX;        // then the line is lost
  bool keepsTime = false;

  std::vector<std::string> opened;  // port and speed
  std::vector<std::string> written;
  int closes = 0;
  int slept = 0;  // milliseconds

  int serial_open(const std::string& deviceName, std::int32_t speed) override {
    opened.push_back(deviceName + " " + std::to_string(speed));
    open_ = deviceName == "\\\\.\\" + at;
    return open_ ? 1 : 0;
  }
  void serial_close() override {
    ++closes;
    open_ = false;
    received_.clear();
    writesLeft = SIZE_MAX;
    coming_.clear();
    phone_.LineClosed();
  }
  // Also when the phone was told to hang up.
  bool IsLost() const { return writesLeft == 0 || phone_.HungUp(); }
  int serial_write(const std::uint8_t* bytes, std::size_t count) override {
    if (!open_ || IsLost()) return 0;
    if (writesLeft != SIZE_MAX) --writesLeft;
    written.emplace_back(reinterpret_cast<const char*>(bytes), count);
    phone_.Receive({bytes, count});
    for (const auto& output : phone_.Take()) {
      std::string sent(output.bytes.begin(), output.bytes.end());
      if (spoil) spoil(sent);
      const int due = keepsTime ? slept + static_cast<int>(output.delay.count()) : 0;
      coming_.push_back({coming_.empty() ? due : std::max(due, coming_.back().due), sent});
    }
    Arrive();
    return 1;
  }
  std::size_t serial_read(std::uint8_t* buffer, std::size_t maximum) override {
    Arrive();
    const std::size_t count = std::min(received_.size(), maximum);
    if (count == 0) slept += kReadMilliseconds;
    emptyReads_ = count > 0 ? 0 : emptyReads_ + 1;
    if (emptyReads_ > 10000) throw std::logic_error("the reader waits for ever");
    std::copy_n(received_.begin(), count, buffer);
    received_.erase(0, count);
    if (received_.empty() && coming_.empty()) phone_.Delivered();
    return count;
  }
  void serial_flush() override {
    Arrive();
    received_.clear();
  }
  void XSleep(int milliseconds) override { slept += milliseconds; }
  std::uint16_t GetBatteryLevel() override {
    if (levels.empty()) return open_ && !IsLost() ? level : kNoBatteryLevel;
    const auto next = levels.front();
    levels.pop_front();
    return next;
  }

  std::string DeviceName(int) const override { return "/dev/phone"; }
  PortTrouble TroubleAt(int) const override { return {PortTrouble::Kind::Busy, "/dev/phone", {}}; }

 private:
  struct Coming {
    int due;  // when so much was slept
    std::string bytes;
  };
  static constexpr int kReadMilliseconds = 3;

  void Arrive() {
    for (; !coming_.empty() && coming_.front().due <= slept; coming_.pop_front()) {
      received_ += coming_.front().bytes;
    }
  }

  phonesim::Phone& phone_;
  bool open_ = false;
  int emptyReads_ = 0;
  std::string received_;
  std::deque<Coming> coming_;
};

}  // namespace tessarin
