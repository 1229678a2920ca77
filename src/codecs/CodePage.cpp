#include "codecs/CodePage.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/Iconv.h"

namespace tessarin {

namespace {

// A "+" of UTF-7, the modified base64 behind it, and the "-" that may close them.
struct Run {
  std::string_view whole;
  std::string_view base64;
  bool isClosed = false;
};

bool IsDigit(char unit) { return unit >= '0' && unit <= '9'; }

bool IsBase64(char unit) {
  return IsDigit(unit) || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') ||
         unit == '+' || unit == '/';
}

// The run at the head of `bytes`, which begins with "+".
Run HeadRun(std::string_view bytes) {
  const auto end = std::find_if_not(bytes.begin() + 1, bytes.end(), IsBase64);
  const auto length = static_cast<std::size_t>(end - bytes.begin());
  const bool isClosed = bytes.substr(length).starts_with('-');
  return {bytes.substr(0, length + (isClosed ? 1 : 0)), bytes.substr(1, length - 1), isClosed};
}

// Some international numbers, such as "+46701234560", happen to be well-formed base64 of three or
// four rare units. A phone that leaves the "+" of a number bare means the number.
bool IsTelephoneNumber(const Run& run) {
  constexpr std::size_t kShortest = 8;
  return !run.isClosed && run.base64.size() >= kShortest &&
         std::all_of(run.base64.begin(), run.base64.end(), IsDigit);
}

// The converter judges whether the bits of a run add up, but only when it sees the run's end.
Text DecodeRun(const Run& run, Iconv& iconv) {
  if (!IsTelephoneNumber(run) && (run.isClosed || !run.base64.empty())) {
    const auto units = iconv.ConvertStrictly(std::string(run.whole) + (run.isClosed ? "" : "-"));
    if (units) return AsText(*units);
  }
  return FromLatin1(run.whole);
}

Text DecodeUtf7(std::string_view bytes) {
  Iconv iconv(kNativeUtf16, "UTF-7");
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t literal = std::min(bytes.find('+'), bytes.size());
    text += FromLatin1(bytes.substr(0, literal));
    bytes.remove_prefix(literal);
    if (bytes.empty()) break;
    const Run run = HeadRun(bytes);
    text += DecodeRun(run, iconv);
    bytes.remove_prefix(run.whole.size());
  }
  return text;
}

// The converter leaves the "-" out where it can; a run whose base64 is all digits would then be
// taken for a telephone number.
std::string CloseRuns(std::string_view bytes) {
  std::string closed;
  for (auto plus = bytes.find('+'); plus != bytes.npos; plus = bytes.find('+')) {
    const Run run = HeadRun(bytes.substr(plus));
    closed.append(bytes.substr(0, plus)).append(run.whole).append(run.isClosed ? "" : "-");
    bytes.remove_prefix(plus + run.whole.size());
  }
  return closed.append(bytes);
}

std::string EncodeUtf7(TextView text) {
  return CloseRuns(Iconv("UTF-7", kNativeUtf16)
                       .Convert(AsBytes(text), AsBytes({&kReplacement, 1}), sizeof kReplacement));
}

}  // namespace

std::string Encode(TextView text, int codePage) {
  if (codePage == kUtf8) return ToUtf8(text);
  if (codePage == kUtf7) return EncodeUtf7(text);
  throw ConversionError();
}

Text Decode(std::string_view bytes, int codePage) {
  if (codePage == kUtf8) return FromUtf8(bytes);
  if (codePage == kUtf7) return DecodeUtf7(bytes);
  throw ConversionError();
}

}  // namespace tessarin
