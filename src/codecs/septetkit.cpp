#include "codecs/septetkit.h"

namespace tessarin::septetkit {

namespace {

constexpr std::size_t kBits = 7;

unsigned At(const Bytes& bytes, std::size_t index) {
  return index < bytes.size() ? bytes[index] : 0U;
}

}  // namespace

std::size_t char_7bit_pack(std::size_t shift, const Bytes& source, Bytes& target,
                           std::size_t count) {
  target.assign((shift + kBits * count + 7) / 8, 0);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t bit = shift + kBits * i;
    const unsigned placed = (At(source, i) & 0x7FU) << bit % 8;
    target[bit / 8] = static_cast<std::uint8_t>(target[bit / 8] | placed);
    if (placed > 0xFF) target[bit / 8 + 1] = static_cast<std::uint8_t>(placed >> 8);
  }
  return target.size();
}

void char_7bit_unpack(std::size_t shift, std::size_t count, const Bytes& source, Bytes& target) {
  target.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t bit = shift + kBits * i;
    const unsigned pair = At(source, bit / 8) | At(source, bit / 8 + 1) << 8;
    target[i] = static_cast<std::uint8_t>(pair >> bit % 8 & 0x7FU);
  }
}

}  // namespace tessarin::septetkit
