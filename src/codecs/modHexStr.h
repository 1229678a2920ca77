// Conversions between text, bytes and hexadecimal text.
//
// Hexadecimal text has upper-case digits and no separators. The 2-digit form holds one byte (or one
// unit up to U+00FF) in a pair; the 4-digit form holds one UTF-16 unit in a group of four, most
// significant digit first. OBEX packets and the record files are held in it.
//
// No digits and no text make anything here fail. A group is read as far as its digits are
// hexadecimal, of either case: "4G" reads as 4, "G4" as 0, and a last short group as far as it
// goes.
#pragma once

#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin::modHexStr {

// Each unit in as many digits as its value has, but two at least: U+00E9 gives "E9", U+20AC "20AC".
std::string StrToHex2(TextView text);

// Each unit in exactly four digits: the phone's UCS2 form.
std::string StrToHex4(TextView text);

// One unit a pair, U+0000 to U+00FF.
Text Hex2ToStr(std::string_view hex);

// One unit a group of four. Hex4ToStr(StrToHex4(t)) is t for every text.
Text Hex4ToStr(std::string_view hex);

// One byte a pair and one element more, which is 0: the phone's replies and the message texts are
// told apart by that zero. The number of pairs of an odd length is rounded half to even: three
// digits are two pairs (the second read as far as it goes), five digits are two as well.
Bytes HexToBytes(std::string_view hex);

// Two digits a byte.
std::string BytesToHex(const Bytes& bytes);

// Two digits for each of the first `count` bytes: none when `count` is 0 or less, all when it is
// more than there are.
std::string BytesToHexN(const Bytes& bytes, int count);

// `text` in the code page (CodePage.h), no terminator. Throws ConversionError for another page.
Bytes StrToBytes(TextView text, int codePage);

// The text of all elements, so a zero byte at the end gives a U+0000 at the end.
// Throws ConversionError for another page than those of CodePage.h.
Text BytesToStr(const Bytes& bytes, int codePage);

// The text of UTF-8 bytes in hexadecimal, read by hand as the calendar's texts need it: sequences
// of one, two and three bytes are read without a look at their continuation bytes' prefix; any
// other byte above 0x7F gives nothing, so all four bytes of a 4-byte sequence vanish.
Text Utf8HexToStr(std::string_view hex);

}  // namespace tessarin::modHexStr
