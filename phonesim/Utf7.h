#pragma once

#include <string>
#include <string_view>

/// UTF-7, RFC 2152: the form that whole IrMC objects have on the wire, and values in those the
/// client writes.
namespace phonesim {

/// ASCII text in its UTF-7 form: "+" goes out as "+-".
std::string Utf7FromAscii(std::string_view ascii);

/// The UTF-8 form. A "+" that begins no well-formed run stays as it stands, and so does a byte
/// above 7F, which is taken for ISO 8859-1.
std::string Utf8FromUtf7(std::string_view utf7);

}  // namespace phonesim
