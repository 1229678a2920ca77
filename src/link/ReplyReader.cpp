#include "link/ReplyReader.h"

#include <algorithm>
#include <array>

namespace tessarin {

namespace {

char Lower(char unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

bool Holds(std::string_view hay, std::string_view needle) {
  return std::search(hay.begin(), hay.end(), needle.begin(), needle.end(),
                     [](char a, char b) { return Lower(a) == Lower(b); }) != hay.end();
}

}  // namespace

std::size_t ReadSome(linkport& port, std::string& bytes) {
  std::array<std::uint8_t, kReadSize> buffer;
  const std::size_t count = std::min(port.serial_read(buffer.data(), kReadSize), kReadSize);
  bytes.append(reinterpret_cast<const char*>(buffer.data()), count);
  return count;
}

ReplyReader::ReplyReader(linkport& port, std::initializer_list<std::string_view> ends)
    : port_(port), ends_(ends) {
  for (const auto end : ends_) overlap_ = std::max(overlap_, end.size() - 1);
}

bool ReplyReader::Read() {
  const std::size_t before = reply_.size();
  if (ReadSome(port_, reply_) == 0) return false;
  // Up to `before` nothing was found, so an end must have a byte of this read in it.
  const auto unsearched = std::string_view(reply_).substr(before - std::min(before, overlap_));
  return std::any_of(ends_.begin(), ends_.end(),
                     [&](std::string_view end) { return Holds(unsearched, end); });
}

}  // namespace tessarin
