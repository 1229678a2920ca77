#pragma once

// The registry: one UTF-8 file of keys and values in the user's configuration folder.
//
//   [SOFTWARE\Tessarin]
//   Language="ger"
//   Count=dword:0000002a

#include <cstdint>
#include <filesystem>

#include "codecs/Text.h"

namespace tessarin {

enum class RegType { String, Number };

class regAPI {
 public:
  // The file and its folder need not exist.
  explicit regAPI(std::filesystem::path file) : file_(std::move(file)) {}

  // The value as text: a text cut at its first U+0000, a 32-bit number in decimal. Empty when
  // there is no such key or value, or when it cannot be read.
  Text RegGetString(TextView key, TextView valueName) const;

  // Writes one value, making the key when it is missing; everything else in the file stays. A
  // number is given in decimal. Throws FileError, and ConversionError for a number that is none or
  // does not fit 32 bits.
  void RegSetValue(TextView key, TextView valueName, TextView value, RegType type) const;

 private:
  std::filesystem::path file_;
};

}  // namespace tessarin
