#include "phonesim/Bytes.h"

namespace phonesim {

void Append(Bytes& out, ByteView bytes) { out.insert(out.end(), bytes.begin(), bytes.end()); }

void Append(Bytes& out, std::string_view text) { out.insert(out.end(), text.begin(), text.end()); }

std::string ToHex(ByteView bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (!text.empty()) text += ' ';
    text += digits[byte >> 4];
    text += digits[byte & 0x0F];
  }
  return text;
}

}  // namespace phonesim
