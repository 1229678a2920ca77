#pragma once

#include <string>
#include <string_view>

#include "phonesim/Bytes.h"

/// The default alphabet of 3GPP TS 23.038 and the packing of its septets.
namespace phonesim {

/// One septet a byte; those of the extension table take two. What the alphabet does not have
/// becomes "?".
Bytes GsmSeptets(std::string_view utf8);

/// The UTF-8 form of septets, one a byte.
std::string TextOfSeptets(ByteView septets);

/// Septets as a run of bits, the lowest first, behind `fill` bits of 0; the last octet is filled up
/// with 0.
Bytes PackSeptets(ByteView septets, std::size_t fill = 0);

/// `count` septets behind `fill` bits. `octets` holds at least so many.
Bytes UnpackSeptets(ByteView octets, std::size_t count, std::size_t fill = 0);

}  // namespace phonesim
