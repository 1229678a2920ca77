#include "phonesim/Bytes.h"

#include <charconv>

namespace phonesim {

void Append(Bytes& out, ByteView bytes) { out.insert(out.end(), bytes.begin(), bytes.end()); }

void Append(Bytes& out, std::string_view text) { out.insert(out.end(), text.begin(), text.end()); }

std::string HexDigits(ByteView bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += digits[byte >> 4];
    text += digits[byte & 0x0F];
  }
  return text;
}

std::string ToHex(ByteView bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += HexDigits(ByteView(&byte, 1));
  }
  return text;
}

std::optional<Bytes> BytesOfHex(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  Bytes bytes;
  for (std::size_t at = 0; at < digits.size(); at += 2) {
    std::uint8_t byte = 0;
    const char* end = digits.data() + at + 2;
    const auto [stop, error] = std::from_chars(digits.data() + at, end, byte, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    bytes.push_back(byte);
  }
  return bytes;
}

}  // namespace phonesim
