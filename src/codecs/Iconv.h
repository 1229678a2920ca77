// The C library's character conversion.
#pragma once

#include <iconv.h>

#include <bit>
#include <optional>
#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

// One conversion, with its state. Texts are native-endian UTF-16 seen as bytes (AsBytes, AsText).
class Iconv {
 public:
  // The names are those of the C library. Throws ConversionError when it does not know them.
  Iconv(const char* to, const char* from);
  ~Iconv();
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  // All of `input`. Where it is malformed, `unitSize` bytes of it are skipped and `substitute`,
  // which is in the input's encoding, is converted in their place.
  std::string Convert(std::string_view input, std::string_view substitute, std::size_t unitSize);

  // All of `input`, or nothing when it is malformed.
  std::optional<std::string> ConvertStrictly(std::string_view input);

 private:
  // Converts as far as `input` is well-formed, cuts that off and appends the result to `output`.
  // False when something malformed is left.
  bool ConvertSome(std::string_view& input, std::string& output);

  iconv_t handle_;
};

// The C library's name of native-endian UTF-16 without a byte order mark.
inline constexpr const char* kNativeUtf16 =
    std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

std::string_view AsBytes(TextView text);
Text AsText(std::string_view utf16);

}  // namespace tessarin
