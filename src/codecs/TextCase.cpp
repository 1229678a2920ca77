// The case mappings of Text.h.
#include <algorithm>
#include <array>

#include "codecs/Text.h"

namespace tessarin {

namespace {

// Upper-case letters `first` to `last`, each `step`-th of them, and how far behind each its
// lower-case letter stands.
struct CaseRange {
  char16_t first;
  char16_t last;
  int step;
  int distance;
};

constexpr std::array kRanges = std::to_array<CaseRange>({
    {0x0041, 0x005A, 1, 32},    // A to Z
    {0x00C0, 0x00D6, 1, 32},    // Latin-1
    {0x00D8, 0x00DE, 1, 32},    //
    {0x0100, 0x012E, 2, 1},     // Latin Extended-A
    {0x0132, 0x0136, 2, 1},     //
    {0x0139, 0x0147, 2, 1},     //
    {0x014A, 0x0176, 2, 1},     //
    {0x0178, 0x0178, 1, -121},  //
    {0x0179, 0x017D, 2, 1},     //
    {0x01A0, 0x01A4, 2, 1},     // Latin Extended-B: Vietnamese, Pinyin, Romanian
    {0x01AF, 0x01AF, 1, 1},     //
    {0x01CD, 0x01DB, 2, 1},     //
    {0x01DE, 0x01EE, 2, 1},     //
    {0x01F8, 0x021E, 2, 1},     //
    {0x0386, 0x0386, 1, 38},    // Greek
    {0x0388, 0x038A, 1, 37},    //
    {0x038C, 0x038C, 1, 64},    //
    {0x038E, 0x038F, 1, 63},    //
    {0x0391, 0x03A1, 1, 32},    //
    {0x03A3, 0x03AB, 1, 32},    //
    {0x0400, 0x040F, 1, 80},    // Cyrillic
    {0x0410, 0x042F, 1, 32},    //
    {0x0460, 0x0480, 2, 1},     //
    {0x048A, 0x04BE, 2, 1},     //
    {0x04C1, 0x04CD, 2, 1},     //
    {0x04D0, 0x052E, 2, 1},     //
    {0x0531, 0x0556, 1, 48},    // Armenian
    {0x1E00, 0x1E94, 2, 1},     // Latin Extended Additional
    {0x1EA0, 0x1EFE, 2, 1},     //
    {0xFF21, 0xFF3A, 1, 32},    // full-width Latin
});

// Letters whose mapping goes one way only.
constexpr char16_t kDottedCapitalI = 0x0130;
constexpr char16_t kDotlessI = 0x0131;
constexpr char16_t kFinalSigma = 0x03C2;
constexpr char16_t kSigma = 0x03A3;

// `unit` moved by the range that holds it. `toLower` says from which side it is looked up.
char16_t Map(char16_t unit, bool toLower) {
  for (const auto& range : kRanges) {
    const int offset = unit - range.first - (toLower ? 0 : range.distance);
    if (offset < 0 || offset > range.last - range.first || offset % range.step != 0) continue;
    return static_cast<char16_t>(unit + (toLower ? range.distance : -range.distance));
  }
  return unit;
}

char16_t Lower(char16_t unit) {
  if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? unit + 32 : unit;
  return unit == kDottedCapitalI ? u'i' : Map(unit, true);
}

char16_t Upper(char16_t unit) {
  if (unit == kDotlessI) return u'I';
  return unit == kFinalSigma ? kSigma : Map(unit, false);
}

Text Mapped(TextView text, char16_t (*map)(char16_t)) {
  Text result(text);
  std::transform(result.begin(), result.end(), result.begin(), map);
  return result;
}

}  // namespace

Text ToLower(TextView text) { return Mapped(text, Lower); }

Text ToUpper(TextView text) { return Mapped(text, Upper); }

}  // namespace tessarin
