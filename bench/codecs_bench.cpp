// The conversions of hexadecimal text over one megabyte of it, the size of a large picture.
#include <benchmark/benchmark.h>

#include "codecs/CodePage.h"
#include "codecs/modHexStr.h"

namespace {

using namespace tessarin;

constexpr std::size_t kMegabyte = 1'000'000;

// Bytes of every value in turn.
Bytes SomeBytes() {
  Bytes bytes(kMegabyte);
  for (std::size_t i = 0; i < kMegabyte; ++i) bytes[i] = static_cast<std::uint8_t>(i);
  return bytes;
}

// Latin, Greek and Chinese letters in turn: one, two and three bytes of UTF-8.
Text SomeText(std::size_t units) {
  Text text(units, u'a');
  for (std::size_t i = 0; i + 2 < units; i += 3) text.replace(i, 3, u"aΩ中");
  return text;
}

template <typename Input, typename Convert>
void Run(benchmark::State& state, const Input& input, Convert convert) {
  for (auto step : state) benchmark::DoNotOptimize(convert(input));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kMegabyte));
}

const Text kText = SomeText(kMegabyte / 2);  // a megabyte in memory
const Bytes kBytes = SomeBytes();
const std::string kHex = modHexStr::BytesToHex(kBytes);
const std::string kUtf8Hex = modHexStr::BytesToHex(modHexStr::StrToBytes(kText, kUtf8));

void RunBytesToStr(benchmark::State& state, int codePage) {
  Run(state, modHexStr::StrToBytes(kText, codePage),
      [codePage](const Bytes& bytes) { return modHexStr::BytesToStr(bytes, codePage); });
}

void RunStrToBytes(benchmark::State& state, int codePage) {
  Run(state, kText, [codePage](const Text& text) { return modHexStr::StrToBytes(text, codePage); });
}

BENCHMARK_CAPTURE(Run, StrToHex2, kText, modHexStr::StrToHex2);
BENCHMARK_CAPTURE(Run, StrToHex4, kText, modHexStr::StrToHex4);
BENCHMARK_CAPTURE(Run, Hex2ToStr, kHex, modHexStr::Hex2ToStr);
BENCHMARK_CAPTURE(Run, Hex4ToStr, kHex, modHexStr::Hex4ToStr);
BENCHMARK_CAPTURE(Run, HexToBytes, kHex, modHexStr::HexToBytes);
BENCHMARK_CAPTURE(Run, BytesToHex, kBytes, modHexStr::BytesToHex);
BENCHMARK_CAPTURE(Run, Utf8HexToStr, kUtf8Hex, modHexStr::Utf8HexToStr);
BENCHMARK_CAPTURE(RunStrToBytes, Utf8, kUtf8);
BENCHMARK_CAPTURE(RunStrToBytes, Utf7, kUtf7);
BENCHMARK_CAPTURE(RunBytesToStr, Utf8, kUtf8);
BENCHMARK_CAPTURE(RunBytesToStr, Utf7, kUtf7);

}  // namespace

BENCHMARK_MAIN();
