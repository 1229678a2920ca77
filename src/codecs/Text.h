// The text of the system: UTF-16 units, with the few operations that every floor uses.
//
// Positions and widths count UTF-16 units, because the phone's fields, the record files and the
// texts of the pages do. Nothing here fails: malformed input is replaced, never refused.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

using Text = std::u16string;
using TextView = std::u16string_view;
using Bytes = std::vector<std::uint8_t>;

// What stands for a byte or a unit that cannot be converted.
inline constexpr char16_t kReplacement = 0xFFFD;

// UTF-8 of `text`; a surrogate without its partner becomes U+FFFD.
std::string ToUtf8(TextView text);

// The text of UTF-8 bytes; each byte that belongs to no well-formed sequence becomes U+FFFD.
// A byte order mark is kept as U+FEFF.
Text FromUtf8(std::string_view utf8);

// One unit a byte, U+0000 to U+00FF.
Text FromLatin1(std::string_view bytes);

// The simple case mappings (one unit to one unit) of the Latin, Greek and Cyrillic letters and
// their like; the same whatever locale the process runs in.
Text ToLower(TextView text);
Text ToUpper(TextView text);

// True when `needle` stands in `hay`, upper and lower case being equal. An empty needle always
// does.
bool ContainsIgnoringCase(TextView hay, TextView needle);

// `text` without the blanks (U+0020 only) at both ends.
Text TrimBlanks(TextView text);

// The pieces of `text` between its separators: n separators give n + 1 pieces, so empty text gives
// one empty piece. An empty separator divides nothing.
std::vector<Text> Split(TextView text, TextView separator);

// `text` with every `from`, found from left to right, replaced by `to`. An empty `from` changes
// nothing.
Text Replace(TextView text, TextView from, TextView to);

// The decimal digits of `number`, with a leading "-" when it is negative.
Text ToText(long long number);

}  // namespace tessarin
