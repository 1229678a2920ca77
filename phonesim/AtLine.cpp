#include "phonesim/AtLine.h"

#include <array>
#include <utility>

namespace phonesim {
namespace {

constexpr std::array<std::uint8_t, 3> kDisconnect = {0x81, 0x00, 0x03};
constexpr std::uint8_t kReturn = 0x0D;
constexpr std::uint8_t kBackspace = 0x08;
constexpr std::uint8_t kEndOfBody = 0x1A;
constexpr std::uint8_t kEscape = 0x1B;

bool IsLetter(std::uint8_t byte, char upper) { return (byte & ~0x20) == upper; }

}  // namespace

AtLine::Event AtLine::Take(std::uint8_t byte) {
  if (body_) return TakeBody(byte);
  if (byte == kDisconnect[matched_]) {
    if (++matched_ < kDisconnect.size()) return Event::None;
    stray_ = ToBytes(line_);
    echo_.clear();
    line_.clear();
    matched_ = 0;
    return Event::Disconnect;
  }
  const std::size_t held = std::exchange(matched_, 0);
  for (std::size_t i = 0; i < held; ++i) TakeText(kDisconnect[i]);
  if (byte != kDisconnect[0]) return TakeText(byte);
  matched_ = 1;
  return Event::None;
}

AtLine::Event AtLine::TakeBody(std::uint8_t byte) {
  echo_.push_back(byte);
  if (byte == kEndOfBody || byte == kEscape || byte == kReturn) {
    body_ = false;
    if (byte == kReturn) return Event::BrokenOff;
    return byte == kEndOfBody ? Event::Body : Event::Cancelled;
  }
  line_ += static_cast<char>(byte);
  return Event::None;
}

AtLine::Event AtLine::TakeText(std::uint8_t byte) {
  echo_.push_back(byte);
  if (byte == kReturn) {
    if (line_.size() >= 2) return Event::Line;
    Append(stray_, line_);
    line_.clear();
  } else if (byte == kBackspace) {
    if (!line_.empty()) line_.pop_back();
  } else if (byte == kEscape) {
    return Event::None;
  } else if (line_.size() < 2) {
    TakePrefix(byte);
  } else if (byte < 0x20 || byte == 0x7F) {
    stray_.push_back(byte);
  } else {
    line_ += static_cast<char>(byte);
  }
  return Event::None;
}

void AtLine::TakePrefix(std::uint8_t byte) {
  if (IsLetter(byte, line_.empty() ? 'A' : 'T')) {
    line_ += static_cast<char>(byte);
    return;
  }
  Append(stray_, line_);
  line_.clear();
  if (IsLetter(byte, 'A')) {
    line_ += static_cast<char>(byte);
  } else {
    stray_.push_back(byte);
  }
}

std::string AtLine::TakeLine() { return std::exchange(line_, {}); }

Bytes AtLine::TakeEcho() { return std::exchange(echo_, {}); }

Bytes AtLine::TakeStray() { return std::exchange(stray_, {}); }

void AtLine::Clear() { *this = AtLine(); }

}  // namespace phonesim
