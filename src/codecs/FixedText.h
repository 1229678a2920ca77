// A text field of fixed width, as the records between the codecs and the lists have it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "codecs/Text.h"

namespace tessarin {

// Always N units: a shorter text is padded with blanks on the right, a longer one is cut.
// A new field is all blanks.
template <std::size_t N>
class FixedText {
 public:
  FixedText() { units_.fill(u' '); }
  FixedText(TextView text) { *this = text; }

  FixedText& operator=(TextView text) {
    const auto kept = text.substr(0, N);
    std::fill(std::copy(kept.begin(), kept.end(), units_.begin()), units_.end(), u' ');
    return *this;
  }

  static constexpr std::size_t size() { return N; }

  // All N units, padding and all. Never equal to empty text.
  Text Value() const { return {units_.begin(), units_.end()}; }

  // The text without blanks at either end. Other units, U+0000 too, stay.
  Text Trimmed() const { return TrimBlanks({units_.data(), N}); }

  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::array<char16_t, N> units_;
};

}  // namespace tessarin
