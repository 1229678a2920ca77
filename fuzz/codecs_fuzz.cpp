// Feeds any bytes to the readers of text, hexadecimal text and dates. None of them may crash, and
// what they give must survive the way back.
#include <algorithm>
#include <cstdlib>

#include "codecs/CodePage.h"
#include "codecs/Faults.h"
#include "codecs/Numbers.h"
#include "codecs/modHexStr.h"
#include "codecs/vcardStamp.h"

namespace {

using namespace tessarin;

void Require(bool holds) {
  if (!holds) std::abort();
}

class FuzzClock : public Clock {
 public:
  DateValue Now() const override { return 0.0; }
  int StandardBiasMinutes() const override { return -330; }
};

// True when a run of eight or more base64 characters is all digits and not closed: that is read as
// a telephone number, so it alone need not come back.
bool HoldsNumberRun(std::string_view utf7) {
  for (auto at = utf7.find('+'); at != utf7.npos; at = utf7.find('+', at + 1)) {
    const auto end = utf7.find_first_not_of("0123456789", at + 1);
    if (std::min(end, utf7.size()) - at > 8 &&
        utf7.substr(std::min(end, utf7.size())).find('-') != 0) {
      return true;
    }
  }
  return false;
}

void CheckCodePages(std::string_view bytes) {
  const Text fromUtf8 = FromUtf8(bytes);
  const std::string utf8 = ToUtf8(fromUtf8);
  Require(FromUtf8(utf8) == fromUtf8);
  Require(fromUtf8.find(kReplacement) != Text::npos || utf8 == bytes);
  const Text fromUtf7 = Decode(bytes, kUtf7);
  Require(bytes.find('+') != bytes.npos || fromUtf7 == FromLatin1(bytes));
  for (const Text& text : {fromUtf8, fromUtf7}) {
    const std::string utf7 = Encode(text, kUtf7);
    Require(HoldsNumberRun(utf7) || Decode(utf7, kUtf7) == text);
  }
}

void CheckHex(std::string_view hex) {
  const Bytes bytes = modHexStr::HexToBytes(hex);
  Require(!bytes.empty() && bytes.back() == 0);
  Require(modHexStr::HexToBytes(modHexStr::BytesToHex(bytes)).size() == bytes.size() + 1);
  for (const Text& text : {modHexStr::Hex2ToStr(hex), modHexStr::Hex4ToStr(hex),
                           modHexStr::Utf8HexToStr(hex), FromUtf8(hex)}) {
    Require(modHexStr::Hex4ToStr(modHexStr::StrToHex4(text)) == text);
  }
  const Text latin = FromLatin1(hex);
  Require(modHexStr::Hex2ToStr(modHexStr::StrToHex2(latin)) == latin);
  const Text utf8 = FromUtf8(hex);
  const bool isAstral = ToUtf8(utf8).find_first_of("\xF0\xF1\xF2\xF3\xF4") != std::string::npos;
  Require(isAstral || modHexStr::Utf8HexToStr(
                          modHexStr::BytesToHex(modHexStr::StrToBytes(utf8, kUtf8))) == utf8);
}

template <typename Reader>
void Read(const Reader& reader) {
  try {
    reader();
  } catch (const ConversionError&) {
    // The one way in which a text may be refused.
  }
}

void CheckDates(TextView text) {
  const FuzzClock clock;
  Read([&] {
    const DateValue value = modDate::ReadSystemDate(text);
    Require(modDate::ReadSystemDate(modDate::FormatDateText(value)) == value);
  });
  Read([&] { modDate::FormatDateText(modDate::ParseDateText(text)); });
  Read([&] {
    const Text local = vcard::StampToLocalText(text, clock);
    Require(vcard::StampToLocalText(vcard::LocalTextToStamp(local, clock), clock) == local);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckCodePages(bytes);
  CheckHex(bytes);
  CheckDates(FromLatin1(bytes));
  return 0;
}
