#pragma once

#include <string>
#include <string_view>

/// The quoted-printable encoding of vCard 2.1 and vCalendar 1.0.
namespace phonesim {

/// True when a value cannot stand in an object as it is: it is not plain ASCII, or holds line
/// breaks, "=", or one of the two characters that UTF-7 has no place for, "\" and "~".
bool NeedsQuoting(std::string_view text);

/// "=XX" for every byte if `all`, else for those that the phone finds risky: all but letters,
/// digits, blanks and a few marks, so never a ":", ";", "=" or "+". A
/// line break is "=0D=0A".
std::string Quote(std::string_view text, bool all);

/// Breaks a line that is longer than 76 characters with "=" CR LF, as this phone does: only in
/// front of an "=XX".
std::string FoldQuoted(std::string_view line);

/// What the escapes stand for. An "=" without two hexadecimal digits behind it stays.
std::string Unquote(std::string_view text);

}  // namespace phonesim
