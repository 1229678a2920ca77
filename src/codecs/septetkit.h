// GSM 7-bit packing (3GPP TS 23.038, 6.1.2.1): septets one behind the other, each beginning at the
// lowest free bit of an octet.
//
//   octet 0            octet 1            octet 2
//   b0 aaaaaaa         cc bbbbbb ...
//   (a is septet 0, its lowest bit the octet's lowest; b septet 1 ...)
//
// Character values pass as they stand: nothing here maps the GSM default alphabet to any other.
#pragma once

#include <cstddef>

#include "codecs/Text.h"

namespace tessarin::septetkit {

// Packs the first `count` elements of `source`, of each its lower seven bits, into `target` with
// `shift` fill bits (0) in front. Elements that `source` does not have are 0. `target` becomes just
// as long as the octets written, whose number is the result.
std::size_t char_7bit_pack(std::size_t shift, const Bytes& source, Bytes& target,
                           std::size_t count);

// Unpacks `count` septets of `source`, passing over `shift` fill bits, one into each element of
// `target`. Bits behind the end of `source` are 0.
void char_7bit_unpack(std::size_t shift, std::size_t count, const Bytes& source, Bytes& target);

}  // namespace tessarin::septetkit
