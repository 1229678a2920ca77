#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "phonesim/Bytes.h"

/// The two forms of Unicode text that a phone meets: UTF-16 on the OBEX side, UTF-8 elsewhere.
namespace phonesim {

/// The UTF-8 form of UTF-16 text, high byte first and without a terminator. Nothing when the count
/// of bytes is odd, a surrogate stands alone, or the text holds U+0000.
std::optional<std::string> Utf8FromUtf16(ByteView utf16);

/// The UTF-8 form of ISO 8859-1 text.
std::string Utf8FromLatin1(std::string_view latin);

/// Appends one code point, which is no surrogate.
void AppendUtf8(std::string& out, std::uint32_t code);

/// UTF-16, high byte first and without a terminator, of well-formed UTF-8.
Bytes Utf16FromUtf8(std::string_view utf8);

/// The code points of well-formed UTF-8.
std::u32string CodePoints(std::string_view utf8);

/// True when `text` is well-formed UTF-8 without control characters.
bool IsPlainUtf8(std::string_view text);

}  // namespace phonesim
