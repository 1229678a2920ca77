#pragma once

// A serial port that plays a script: what it answers to each write, in which pieces, and how it
// fails. It counts what is asked of it and keeps no time.

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "codecs/modHexStr.h"
#include "link/linkport.h"

namespace tessarin {

// The bytes of digits in pairs; blanks do not count, and text between single quotes stands for its
// own bytes: "49 0005 'ab' 0D0A".
inline std::string Wire(std::string_view text) {
  std::string bytes, digits;
  bool quoted = false;
  for (const char unit : text) {
    if (unit == '\'') {
      quoted = !quoted;
    } else if (quoted) {
      bytes += unit;
    } else if (unit != ' ') {
      digits += unit;
      if (digits.size() == 2) {
        bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
        digits.clear();
      }
    }
  }
  return bytes;
}

// Upper-case digits, two a byte, without blanks.
inline std::string Digits(std::string_view bytes) {
  return modHexStr::BytesToHex(Bytes(bytes.begin(), bytes.end()));
}

class ScriptedPort : public linkport {
 public:
  // The pieces in which bytes arrive: one for each `serial_read`, an empty one for none. A piece
  // longer than a read may take goes on in the next.
  using Pieces = std::vector<std::string>;

  // Thrown by the read that finds nothing once too often: how a reader that waits without limit
  // ends here.
  struct Exhausted {};

  explicit ScriptedPort(Pieces pieces = {}) { Arrive(std::move(pieces)); }

  // Bytes that arrive by themselves.
  void Arrive(const Pieces& pieces) {
    arriving_.insert(arriving_.end(), pieces.begin(), pieces.end());
  }
  // Bytes that arrive once the next write without an answer so far was made.
  void Answer(Pieces pieces) { answers_.push_back(std::move(pieces)); }
  // Drops the rest of the script.
  void Forget() {
    answers_.clear();
    arriving_.clear();
  }
  bool AllAnswered() const { return answers_.empty() && arriving_.empty(); }

  int serial_open(const std::string& deviceName, std::int32_t speed) override {
    opened.push_back({deviceName, speed});
    return opens ? 1 : 0;
  }
  void serial_close() override { ++closes; }

  int serial_write(const std::uint8_t* bytes, std::size_t count) override {
    if (writesLeft == 0) return 0;
    --writesLeft;
    written.emplace_back(reinterpret_cast<const char*>(bytes), count);
    if (!answers_.empty()) {
      Arrive(answers_.front());
      answers_.pop_front();
    }
    return 1;
  }

  std::size_t serial_read(std::uint8_t* buffer, std::size_t maximum) override {
    ++reads;
    largestRead = std::max(largestRead, maximum);
    if (arriving_.empty()) {
      if (emptyReadsLeft == 0) throw Exhausted();
      --emptyReadsLeft;
      return 0;
    }
    std::string& piece = arriving_.front();
    const std::size_t count = std::min(piece.size(), maximum);
    std::copy_n(piece.begin(), count, buffer);
    piece.erase(0, count);
    if (piece.empty()) arriving_.pop_front();
    return count;
  }

  void serial_flush() override { arriving_.clear(); }
  void XSleep(int milliseconds) override {
    ++sleeps;
    slept += milliseconds;
  }
  std::uint16_t GetBatteryLevel() override { return battery; }

  struct Opened {
    std::string deviceName;
    std::int32_t speed;
  };
  std::vector<Opened> opened;
  int closes = 0;
  bool opens = true;
  std::uint16_t battery = kNoBatteryLevel;

  std::vector<std::string> written;   // one element a write
  std::size_t writesLeft = SIZE_MAX;  // after so many more, writes fail

  int reads = 0;
  std::size_t largestRead = 0;
  int emptyReadsLeft = 1000;
  int sleeps = 0;
  int slept = 0;  // milliseconds

 private:
  std::deque<std::string> arriving_;
  std::deque<Pieces> answers_;
};

}  // namespace tessarin
