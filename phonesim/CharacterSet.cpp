#include "phonesim/CharacterSet.h"

#include <algorithm>

#include "phonesim/Gsm.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

std::string Narrow(std::string_view utf8, char32_t limit) {
  std::string text;
  for (const char32_t code : CodePoints(utf8)) text += code < limit ? static_cast<char>(code) : '?';
  return text;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string EncodeText(std::string_view utf8, std::string_view set) {
  if (set == "UTF-8") return std::string(utf8);
  if (set == "UCS2") return HexDigits(Utf16FromUtf8(utf8));
  if (set == "8859-1") return Narrow(utf8, 0x100);
  if (set == "IRA") return Narrow(utf8, 0x80);
  const Bytes septets = GsmSeptets(utf8);
  return {septets.begin(), septets.end()};
}

std::optional<std::string> DecodeText(std::string_view text, std::string_view set) {
  if (set == "UTF-8") return std::string(text);
  if (set == "UCS2") {
    const auto bytes = BytesOfHex(text);
    return bytes ? Utf8FromUtf16(*bytes) : std::nullopt;
  }
  if (!IsAscii(text)) return std::nullopt;
  return std::string(text);
}

}  // namespace phonesim
