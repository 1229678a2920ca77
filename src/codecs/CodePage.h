// The two code pages in which the phone and the files carry text.
#pragma once

#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

inline constexpr int kUtf7 = 65000;  // RFC 2152
inline constexpr int kUtf8 = 65001;

// The bytes of `text` in the code page. A surrogate without its partner becomes U+FFFD. Each "+"
// run of UTF-7 is closed by a "-". Throws ConversionError for another page.
std::string Encode(TextView text, int codePage);

// The text of the bytes. Malformed input never fails:
//   - UTF-8: each byte of no well-formed sequence becomes U+FFFD;
//   - UTF-7 (RFC 2152): a "+" run that is not well-formed stays as it stands, and so does a run of
//     eight or more digits that no "-" closes, which is a telephone number; a byte above 0x7F
//     stays as U+0080 to U+00FF.
// Throws ConversionError for another page.
Text Decode(std::string_view bytes, int codePage);

}  // namespace tessarin
