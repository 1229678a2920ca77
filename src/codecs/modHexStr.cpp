#include "codecs/modHexStr.h"

#include <algorithm>
#include <array>

#include "codecs/CodePage.h"

namespace tessarin::modHexStr {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr unsigned kNoDigit = 16;

// The two digits of every byte, one pair behind the other.
constexpr auto kPairs = [] {
  std::array<char, 512> pairs{};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    pairs[2 * byte] = kDigits[byte >> 4];
    pairs[2 * byte + 1] = kDigits[byte & 15];
  }
  return pairs;
}();

// The value of every character as a digit, kNoDigit for what is none.
constexpr auto kValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNoDigit);
  for (std::uint8_t i = 0; i < 10; ++i) values[std::size_t{'0'} + i] = i;
  for (std::uint8_t i = 0; i < 6; ++i) {
    values[std::size_t{'A'} + i] = static_cast<std::uint8_t>(10 + i);
    values[std::size_t{'a'} + i] = static_cast<std::uint8_t>(10 + i);
  }
  return values;
}();

char* PutPair(char* out, unsigned byte) {
  return std::copy_n(kPairs.data() + 2 * std::size_t{byte}, 2, out);
}

// The number that the first `width` digits of `hex` from `at` on make, as far as they are digits.
unsigned ReadGroup(std::string_view hex, std::size_t at, std::size_t width) {
  const std::size_t end = std::min(hex.size(), at + width);
  unsigned value = 0;
  for (; at < end; ++at) {
    const unsigned digit = kValues[static_cast<unsigned char>(hex[at])];
    if (digit == kNoDigit) break;
    value = value << 4 | digit;
  }
  return value;
}

// The byte of the pair at `at`. Nearly all pairs are two good digits.
std::uint8_t ReadPair(std::string_view hex, std::size_t at) {
  if (at + 1 < hex.size()) {
    const std::uint8_t high = kValues[static_cast<unsigned char>(hex[at])];
    const std::uint8_t low = kValues[static_cast<unsigned char>(hex[at + 1])];
    if ((high | low) < 16) return static_cast<std::uint8_t>(high << 4 | low);
  }
  return static_cast<std::uint8_t>(ReadGroup(hex, at, 2));
}

Text ReadUnits(std::string_view hex, std::size_t width) {
  Text text((hex.size() + width - 1) / width, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    text[i] = static_cast<char16_t>(ReadGroup(hex, i * width, width));
  }
  return text;
}

std::string Digits(const std::uint8_t* bytes, std::size_t count) {
  std::string hex(2 * count, '\0');
  char* out = hex.data();
  for (std::size_t i = 0; i < count; ++i) out = PutPair(out, bytes[i]);
  return hex;
}

}  // namespace

std::string StrToHex2(TextView text) {
  std::string hex(4 * text.size(), '\0');
  char* out = hex.data();
  for (const char16_t unit : text) {
    if (unit > 0xFFF) {
      out = PutPair(out, unit >> 8);
    } else if (unit > 0xFF) {
      *out++ = kDigits[unit >> 8];
    }
    out = PutPair(out, unit & 0xFF);
  }
  hex.resize(static_cast<std::size_t>(out - hex.data()));
  return hex;
}

std::string StrToHex4(TextView text) {
  std::string hex(4 * text.size(), '\0');
  char* out = hex.data();
  for (const char16_t unit : text) out = PutPair(PutPair(out, unit >> 8), unit & 0xFF);
  return hex;
}

Text Hex2ToStr(std::string_view hex) { return ReadUnits(hex, 2); }

Text Hex4ToStr(std::string_view hex) { return ReadUnits(hex, 4); }

Bytes HexToBytes(std::string_view hex) {
  const std::size_t half = hex.size() / 2;
  const std::size_t pairs = half + (hex.size() % 2 != 0 && half % 2 != 0 ? 1 : 0);
  Bytes bytes(pairs + 1, 0);
  for (std::size_t i = 0; i < pairs; ++i) bytes[i] = ReadPair(hex, 2 * i);
  return bytes;
}

std::string BytesToHex(const Bytes& bytes) { return Digits(bytes.data(), bytes.size()); }

std::string BytesToHexN(const Bytes& bytes, int count) {
  const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
  return Digits(bytes.data(), std::min(wanted, bytes.size()));
}

Bytes StrToBytes(TextView text, int codePage) {
  const std::string encoded = Encode(text, codePage);
  return {encoded.begin(), encoded.end()};
}

Text BytesToStr(const Bytes& bytes, int codePage) {
  return Decode({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, codePage);
}

Text Utf8HexToStr(std::string_view hex) {
  Text text;
  text.reserve(hex.size() / 2 + 1);
  for (std::size_t at = 0; at < hex.size();) {
    const unsigned lead = ReadGroup(hex, at, 2);
    const unsigned second = ReadGroup(hex, at + 2, 2) & 0x3F;
    if (lead < 0x80) {
      text += static_cast<char16_t>(lead);
    } else if ((lead & 0xE0) == 0xC0) {
      text += static_cast<char16_t>((lead & 0x1F) << 6 | second);
      at += 2;
    } else if ((lead & 0xF0) == 0xE0) {
      text += static_cast<char16_t>((lead & 0x0F) << 12 | second << 6 |
                                    (ReadGroup(hex, at + 4, 2) & 0x3F));
      at += 4;
    }
    at += 2;
  }
  return text;
}

}  // namespace tessarin::modHexStr
