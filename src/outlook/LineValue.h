#pragma once

// The values of content lines: text with its escapes ("\," "\;" "\\" "\n"), and structured values,
// whose components stand between semicolons.

#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"

namespace tessarin::outlook {

// Line breaks become "\n"; control characters, which no content line may hold, are dropped.
std::string EscapeText(TextView text);
// "\n" becomes LF; a backslash before any other character goes away.
Text UnescapeText(std::string_view value);

// The pieces between the separators that no backslash escapes, as they are written.
std::vector<std::string> SplitValue(std::string_view value, char separator);
std::string JoinValue(const std::vector<std::string>& components, char separator);

// The text with its line breaks as ", ": for fields that have one line.
Text InOneLine(TextView text);

}  // namespace tessarin::outlook
