#include "phonesim/QuotedPrintable.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

namespace phonesim {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kLineLength = 76;

bool IsSafe(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x80 &&
         (std::isalnum(byte) != 0 || std::string_view(" '(),-./?").find(c) != std::string::npos);
}

int DigitValue(char c) {
  const auto upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  const std::size_t at = kDigits.find(upper);
  return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

}  // namespace

bool NeedsQuoting(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte >= 0x7F || c == '=' || c == '\\' || c == '~';
  });
}

std::string Quote(std::string_view text, bool all) {
  std::string quoted;
  for (const char c : text) {
    if (!all && IsSafe(c)) {
      quoted += c;
      continue;
    }
    if (c == '\n') quoted += "=0D";
    const auto byte = static_cast<std::uint8_t>(c);
    quoted += '=';
    quoted += kDigits[byte >> 4];
    quoted += kDigits[byte & 0x0F];
  }
  return quoted;
}

std::string FoldQuoted(std::string_view line) {
  const std::size_t value = line.find(':') + 1;
  std::string folded(line.substr(0, value));
  std::size_t column = value;
  for (std::size_t at = value; at < line.size();) {
    const std::size_t size = line[at] == '=' ? 3 : 1;
    if (size == 3 && column + size >= kLineLength) {
      folded += "=\r\n";
      column = 0;
    }
    folded += line.substr(at, size);
    column += size;
    at += size;
  }
  return folded;
}

std::string Unquote(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const int high = at + 2 < text.size() ? DigitValue(text[at + 1]) : -1;
    const int low = high >= 0 ? DigitValue(text[at + 2]) : -1;
    if (text[at] == '=' && low >= 0) {
      plain += static_cast<char>(high << 4 | low);
      at += 2;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

}  // namespace phonesim
