#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The character sets of AT+CSCS, in which names cross the wire.
namespace phonesim {

/// `utf8` in the set of that name: "GSM", "IRA", "8859-1", "UTF-8" or "UCS2". What the set does not
/// have becomes "?".
std::string EncodeText(std::string_view utf8, std::string_view set);

/// Nothing when `text` is not of that set. Of GSM and 8859-1 only what they share with ASCII is
/// taken.
std::optional<std::string> DecodeText(std::string_view text, std::string_view set);

}  // namespace phonesim
