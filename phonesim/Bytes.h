#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Bytes as they cross the wire, and the few ways to write numbers into them.
namespace phonesim {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

void Append(Bytes& out, ByteView bytes);
void Append(Bytes& out, std::string_view text);

/// The low 16 bits of `value`, high byte first.
inline void Append16(Bytes& out, std::size_t value) {
  out.push_back(static_cast<std::uint8_t>(value >> 8));
  out.push_back(static_cast<std::uint8_t>(value));
}

inline void Append32(Bytes& out, std::uint32_t value) {
  Append16(out, value >> 16);
  Append16(out, value & 0xFFFF);
}

/// Upper-case digits, a blank between bytes, "81 00 03", and without, "810003".
std::string ToHex(ByteView bytes);
std::string HexDigits(ByteView bytes);

/// The bytes of digits in pairs; nothing when there are others between them.
std::optional<Bytes> BytesOfHex(std::string_view digits);

/// `bytes` holds at least two bytes.
inline std::size_t Read16(ByteView bytes) { return std::size_t{bytes[0]} << 8 | bytes[1]; }

/// `bytes` holds at least four bytes.
inline std::uint32_t Read32(ByteView bytes) {
  return static_cast<std::uint32_t>(Read16(bytes) << 16 | Read16(bytes.subspan(2)));
}

inline Bytes ToBytes(std::string_view text) { return {text.begin(), text.end()}; }

}  // namespace phonesim
