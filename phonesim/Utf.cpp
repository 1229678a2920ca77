#include "phonesim/Utf.h"

namespace phonesim {
namespace {

bool IsHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// What a first byte announces: how many bytes follow, its own bits, the least code so written.
struct Lead {
  int tail;
  std::uint32_t bits;
  std::uint32_t least;
};

std::optional<Lead> ReadLead(std::uint32_t byte) {
  if (byte < 0x80) return Lead{0, byte, 0x20};
  if (byte >> 5 == 0x06) return Lead{1, byte & 0x1F, 0x80};
  if (byte >> 4 == 0x0E) return Lead{2, byte & 0x0F, 0x800};
  if (byte >> 3 == 0x1E) return Lead{3, byte & 0x07, 0x10000};
  return std::nullopt;
}

}  // namespace

void AppendUtf8(std::string& out, std::uint32_t code) {
  const auto put = [&out](std::uint32_t byte) { out += static_cast<char>(byte); };
  const auto tail = [&](int shift) { put(0x80 | (code >> shift & 0x3F)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    tail(0);
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    tail(6);
    tail(0);
  } else {
    put(0xF0 | code >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string Utf8FromLatin1(std::string_view latin) {
  std::string text;
  for (const char c : latin) AppendUtf8(text, static_cast<std::uint8_t>(c));
  return text;
}

std::u32string CodePoints(std::string_view utf8) {
  std::u32string codes;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = ReadLead(static_cast<std::uint8_t>(utf8[at++]));
    if (!lead) continue;
    std::uint32_t code = lead->bits;
    for (int i = 0; i < lead->tail && at < utf8.size(); ++i) {
      code = code << 6 | (static_cast<std::uint8_t>(utf8[at++]) & 0x3FU);
    }
    codes += static_cast<char32_t>(code);
  }
  return codes;
}

Bytes Utf16FromUtf8(std::string_view utf8) {
  Bytes units;
  for (const char32_t code : CodePoints(utf8)) {
    if (code >= 0x10000) {
      Append16(units, 0xD800 + ((code - 0x10000) >> 10));
      Append16(units, 0xDC00 + ((code - 0x10000) & 0x3FF));
    } else {
      Append16(units, code);
    }
  }
  return units;
}

std::optional<std::string> Utf8FromUtf16(ByteView utf16) {
  if (utf16.size() % 2 != 0) return std::nullopt;
  std::string text;
  for (std::size_t at = 0; at < utf16.size(); at += 2) {
    auto code = static_cast<std::uint32_t>(Read16(utf16.subspan(at)));
    if (code == 0 || IsLowSurrogate(code)) return std::nullopt;
    if (IsHighSurrogate(code)) {
      at += 2;
      if (at >= utf16.size()) return std::nullopt;
      const auto low = static_cast<std::uint32_t>(Read16(utf16.subspan(at)));
      if (!IsLowSurrogate(low)) return std::nullopt;
      code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
    }
    AppendUtf8(text, code);
  }
  return text;
}

bool IsPlainUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = ReadLead(static_cast<std::uint8_t>(text[at++]));
    if (!lead) return false;
    std::uint32_t code = lead->bits;
    for (int i = 0; i < lead->tail; ++i) {
      if (at >= text.size()) return false;
      const auto byte = static_cast<std::uint8_t>(text[at++]);
      if (byte >> 6 != 0x02) return false;
      code = code << 6 | (byte & 0x3F);
    }
    if (code < lead->least || code == 0x7F || code > 0x10FFFF) return false;
    if (IsHighSurrogate(code) || IsLowSurrogate(code)) return false;
  }
  return true;
}

}  // namespace phonesim
