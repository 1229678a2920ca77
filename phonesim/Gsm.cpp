#include "phonesim/Gsm.h"

#include <array>
#include <utility>

#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr std::uint8_t kEscape = 0x1B;

constexpr std::u32string_view kAlphabet =
    U"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\x1BÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
    U"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";

constexpr std::array<std::pair<std::uint8_t, char32_t>, 9> kExtension = {{{0x14, U'^'},
                                                                          {0x28, U'{'},
                                                                          {0x29, U'}'},
                                                                          {0x2F, U'\\'},
                                                                          {0x3C, U'['},
                                                                          {0x3D, U'~'},
                                                                          {0x3E, U']'},
                                                                          {0x40, U'|'},
                                                                          {0x65, U'€'}}};

void AppendSeptets(Bytes& septets, char32_t code) {
  for (const auto& [septet, extended] : kExtension) {
    if (code != extended) continue;
    septets.push_back(kEscape);
    septets.push_back(septet);
    return;
  }
  const std::size_t at = kAlphabet.find(code);
  septets.push_back(at == std::u32string_view::npos ? '?' : static_cast<std::uint8_t>(at));
}

char32_t Extended(std::uint8_t septet) {
  for (const auto& [known, code] : kExtension) {
    if (septet == known) return code;
  }
  return kAlphabet[septet];
}

}  // namespace

Bytes GsmSeptets(std::string_view utf8) {
  Bytes septets;
  for (const char32_t code : CodePoints(utf8)) AppendSeptets(septets, code);
  return septets;
}

std::string TextOfSeptets(ByteView septets) {
  static_assert(kAlphabet.size() == 128);
  std::string text;
  for (std::size_t at = 0; at < septets.size(); ++at) {
    const bool escape = septets[at] == kEscape && at + 1 < septets.size();
    if (escape) ++at;
    const auto septet = static_cast<std::uint8_t>(septets[at] & 0x7F);
    AppendUtf8(text, escape ? Extended(septet) : kAlphabet[septet]);
  }
  return text;
}

Bytes PackSeptets(ByteView septets, std::size_t fill) {
  Bytes octets((septets.size() * 7 + fill + 7) / 8);
  std::size_t bit = fill;
  for (const std::uint8_t septet : septets) {
    for (unsigned i = 0; i < 7; ++i, ++bit) {
      if ((septet >> i & 1) != 0) octets[bit / 8] |= static_cast<std::uint8_t>(1U << bit % 8);
    }
  }
  return octets;
}

Bytes UnpackSeptets(ByteView octets, std::size_t count, std::size_t fill) {
  Bytes septets(count);
  std::size_t bit = fill;
  for (std::uint8_t& septet : septets) {
    for (unsigned i = 0; i < 7; ++i, ++bit) {
      septet |= static_cast<std::uint8_t>((octets[bit / 8] >> bit % 8 & 1) << i);
    }
  }
  return septets;
}

}  // namespace phonesim
