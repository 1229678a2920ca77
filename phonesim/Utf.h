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

/// True when `text` is well-formed UTF-8 without control characters.
bool IsPlainUtf8(std::string_view text);

}  // namespace phonesim
