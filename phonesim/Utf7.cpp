#include "phonesim/Utf7.h"

#include <cstdint>
#include <optional>

#include "phonesim/Utf.h"

namespace phonesim {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// A run of base64 as text: whole UTF-16 units, and fewer than six bits, all 0, behind them.
std::optional<std::string> DecodeRun(std::string_view run) {
  Bytes utf16;
  std::uint32_t bits = 0;
  std::size_t count = 0;
  for (const char c : run) {
    bits = bits << 6 | static_cast<std::uint32_t>(kAlphabet.find(c));
    count += 6;
    if (count < 8) continue;
    count -= 8;
    utf16.push_back(static_cast<std::uint8_t>(bits >> count));
    bits &= (1U << count) - 1;
  }
  if (utf16.empty() || utf16.size() % 2 != 0 || bits != 0) return std::nullopt;
  return Utf8FromUtf16(utf16);
}

}  // namespace

std::string Utf7FromAscii(std::string_view ascii) {
  std::string text;
  for (const char c : ascii) {
    text += c;
    if (c == '+') text += '-';
  }
  return text;
}

std::string Utf8FromUtf7(std::string_view utf7) {
  std::string text;
  for (std::size_t at = 0; at < utf7.size();) {
    const char c = utf7[at++];
    if (c != '+') {
      AppendUtf8(text, static_cast<std::uint8_t>(c));
      continue;
    }
    std::size_t end = at;
    while (end < utf7.size() && kAlphabet.find(utf7[end]) != std::string_view::npos) ++end;
    const bool closed = end < utf7.size() && utf7[end] == '-';
    const auto run = DecodeRun(utf7.substr(at, end - at));
    if (end == at || !run) {
      text += '+';
      if (end == at && closed) ++at;
      continue;
    }
    text += *run;
    at = end + (closed ? 1 : 0);
  }
  return text;
}

}  // namespace phonesim
