#include "core/Lzx.h"

#include <algorithm>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

constexpr std::size_t kLiterals = 256;
constexpr std::size_t kLengthSymbols = 249;
constexpr std::size_t kAlignedSymbols = 8;
constexpr std::size_t kPreSymbols = 20;
constexpr std::size_t kShortestMatch = 2;
constexpr std::size_t kLengthInTree = 7;  // the length goes on in the length tree
constexpr int kMostExtraBits = 17;

[[noreturn]] void Refuse(const char* reason) { throw DocumentError(2, reason); }

// How many bits follow the slot of a distance.
constexpr int ExtraBits(std::size_t slot) {
  return slot < 4 ? 0 : std::min(kMostExtraBits, static_cast<int>(slot / 2) - 1);
}

// The lowest distance of each slot, with the two that the format adds to every distance.
constexpr auto kLowestDistance = [] {
  std::array<std::size_t, 50> lowest{};
  for (std::size_t slot = 1; slot < lowest.size(); ++slot) {
    lowest[slot] = lowest[slot - 1] + (std::size_t{1} << ExtraBits(slot - 1));
  }
  return lowest;
}();

}  // namespace

// The bits of one frame. Behind the end stand zeros, since a code is looked up by 16 bits at once,
// but using one of them is a fault.
class LzxBits {
 public:
  explicit LzxBits(std::string_view input) : input_(input) {}

  std::uint32_t Peek(int count) {
    while (held_ < count) {
      bits_ = bits_ << 16 | Byte(next_ + 1) << 8 | Byte(next_);
      next_ += 2;
      held_ += 16;
    }
    return static_cast<std::uint32_t>(bits_ >> (held_ - count)) & ((1U << count) - 1U);
  }

  void Skip(int count) {
    held_ -= count;
    if (next_ - static_cast<std::size_t>(held_ / 8) > input_.size() + 1) Refuse("data end early");
  }

  std::uint32_t Read(int count) {
    const std::uint32_t value = Peek(count);
    Skip(count);
    return value;
  }

  // To the next word; a whole one is passed over where a word has just begun.
  void SkipToBytes() {
    Peek(1);
    next_ -= static_cast<std::size_t>(held_ / 16 * 2);
    if (held_ % 16 == 0) next_ += 2;
    held_ = 0;
  }

  std::string_view ReadBytes(std::size_t count) {
    if (next_ > input_.size() || count > input_.size() - next_) Refuse("data end early");
    next_ += count;
    return input_.substr(next_ - count, count);
  }

 private:
  std::uint64_t Byte(std::size_t at) const {
    return at < input_.size() ? static_cast<unsigned char>(input_[at]) : 0;
  }

  std::string_view input_;
  std::size_t next_ = 0;
  std::uint64_t bits_ = 0;  // the low `held_` bits wait to be read
  int held_ = 0;
};

void LzxTree::Build(const std::uint8_t* lengths, std::size_t count) {
  std::array<std::uint32_t, kLongest + 1> counts{};
  for (std::size_t symbol = 0; symbol < count; ++symbol) ++counts[lengths[symbol]];
  counts[0] = 0;
  symbols_.clear();
  std::uint32_t code = 0;
  for (int length = 1; length <= kLongest; ++length) {
    const auto row = static_cast<std::size_t>(length);
    first_[row] = code;
    place_[row] = static_cast<std::uint32_t>(symbols_.size());
    code += counts[row] << (kLongest - length);
    limit_[row] = code;
    if (code > 1U << kLongest) Refuse("too many codes");
    for (std::size_t symbol = 0; symbol < count; ++symbol) {
      if (lengths[symbol] == length) symbols_.push_back(static_cast<std::uint16_t>(symbol));
    }
  }
}

std::size_t LzxTree::Read(LzxBits& bits) const {
  const std::uint32_t code = bits.Peek(kLongest);
  for (int length = 1; length <= kLongest; ++length) {
    const auto row = static_cast<std::size_t>(length);
    if (code >= limit_[row]) continue;
    bits.Skip(length);
    return symbols_[place_[row] + ((code - first_[row]) >> (kLongest - length))];
  }
  Refuse("no such code");
}

LzxDecoder::LzxDecoder(int windowBits, std::string& output) : slots_(0), output_(output) {
  constexpr std::array<std::size_t, 7> kSlots = {30, 32, 34, 36, 38, 42, 50};
  if (windowBits < 15 || windowBits > 21) Refuse("no such window");
  slots_ = kSlots[static_cast<std::size_t>(windowBits - 15)];
  Reset();
}

void LzxDecoder::Reset() {
  start_ = output_.size();
  begun_ = false;
  blockRest_ = 0;
  recent_ = {1, 1, 1};
  mainLengths_.assign(kLiterals + 8 * slots_, 0);
  lengthLengths_.assign(kLengthSymbols, 0);
}

void LzxDecoder::ReadFrame(std::string_view input, std::size_t length) {
  LzxBits bits(input);
  if (!begun_ && bits.Read(1) != 0) Refuse("translated machine code");
  begun_ = true;
  const std::size_t begin = output_.size();
  while (output_.size() < begin + length) {
    if (blockRest_ == 0) BeginBlock(bits);
    const std::size_t from = output_.size();
    limit_ = std::min(from + blockRest_, begin + kFrame);
    ReadRun(bits, std::min(limit_, begin + length));
    blockRest_ -= output_.size() - from;
  }
  output_.resize(begin + length);  // the last frame is filled up behind its end
}

void LzxDecoder::BeginBlock(LzxBits& bits) {
  kind_ = static_cast<int>(bits.Read(3));
  blockRest_ = bits.Read(16) << 8;
  blockRest_ += bits.Read(8);
  if (blockRest_ == 0) Refuse("empty block");
  if (kind_ == kUncompressed) {
    bits.SkipToBytes();
    for (std::size_t& distance : recent_) {
      const auto bytes = bits.ReadBytes(4);
      distance = 0;
      for (int at = 3; at >= 0; --at) {
        distance = distance << 8 | static_cast<unsigned char>(bytes[static_cast<std::size_t>(at)]);
      }
    }
    return;
  }
  if (kind_ != kVerbatim && kind_ != kAligned) Refuse("no such block");
  ReadTrees(bits);
}

void LzxDecoder::ReadTrees(LzxBits& bits) {
  if (kind_ == kAligned) {
    std::array<std::uint8_t, kAlignedSymbols> lengths{};
    for (auto& length : lengths) length = static_cast<std::uint8_t>(bits.Read(3));
    alignedTree_.Build(lengths.data(), lengths.size());
  }
  ReadLengths(bits, mainLengths_.data(), kLiterals);
  ReadLengths(bits, mainLengths_.data() + kLiterals, mainLengths_.size() - kLiterals);
  mainTree_.Build(mainLengths_.data(), mainLengths_.size());
  ReadLengths(bits, lengthLengths_.data(), lengthLengths_.size());
  lengthTree_.Build(lengthLengths_.data(), lengthLengths_.size());
}

// The lengths of a tree are coded with a tree of their own: 0 to 16 is the difference to the length
// that stood there before, 17 and 18 are runs of zeros, 19 is a run of one difference.
void LzxDecoder::ReadLengths(LzxBits& bits, std::uint8_t* lengths, std::size_t count) {
  std::array<std::uint8_t, kPreSymbols> preLengths{};
  for (auto& length : preLengths) length = static_cast<std::uint8_t>(bits.Read(4));
  LzxTree tree;
  tree.Build(preLengths.data(), preLengths.size());
  for (std::size_t at = 0; at < count;) {
    std::size_t symbol = tree.Read(bits);
    std::size_t run = 1;
    const bool zeros = symbol == 17 || symbol == 18;
    if (symbol == 17) run = 4 + bits.Read(4);
    if (symbol == 18) run = 20 + bits.Read(5);
    if (symbol == 19) {
      run = 4 + bits.Read(1);
      symbol = tree.Read(bits);
      if (symbol > 16) Refuse("no such difference");
    }
    if (run > count - at) Refuse("too many lengths");
    const auto length = zeros ? 0 : static_cast<std::uint8_t>((lengths[at] + 17 - symbol) % 17);
    std::fill_n(lengths + at, run, static_cast<std::uint8_t>(length));
    at += run;
  }
}

// Reads the bytes of the block up to `end` of the output. A last match may reach beyond it, but
// never beyond the block or the whole frame.
void LzxDecoder::ReadRun(LzxBits& bits, std::size_t end) {
  if (kind_ == kUncompressed) {
    const std::size_t count = end - output_.size();
    output_.append(bits.ReadBytes(count));
    if (count == blockRest_ && count % 2 != 0)
      bits.ReadBytes(1);  // the next block begins at a word
    return;
  }
  while (output_.size() < end) {
    const std::size_t symbol = mainTree_.Read(bits);
    if (symbol < kLiterals) {
      output_.push_back(static_cast<char>(symbol));
    } else {
      CopyMatch(bits, symbol - kLiterals);
    }
  }
}

void LzxDecoder::CopyMatch(LzxBits& bits, std::size_t symbol) {
  std::size_t length = symbol % 8;
  if (length == kLengthInTree) length += lengthTree_.Read(bits);
  length += kShortestMatch;
  const std::size_t distance = ReadDistance(bits, symbol / 8);
  const std::size_t size = output_.size();
  if (distance == 0 || distance > size - start_ || length > limit_ - size) Refuse("match outside");
  // Byte by byte: a match may take in what it writes itself.
  for (std::size_t i = 0; i < length; ++i) output_.push_back(output_[size + i - distance]);
}

// The slots 0 to 2 stand for the last distances, the others for a range of distances each.
std::size_t LzxDecoder::ReadDistance(LzxBits& bits, std::size_t slot) {
  if (slot < recent_.size()) {
    std::swap(recent_[0], recent_[slot]);
    return recent_[0];
  }
  const int extra = ExtraBits(slot);
  std::size_t distance = kLowestDistance[slot] - 2;
  if (kind_ == kAligned && extra >= 3) {
    distance += std::size_t{bits.Read(extra - 3)} << 3;
    distance += alignedTree_.Read(bits);
  } else {
    distance += bits.Read(extra);
  }
  recent_ = {distance, recent_[0], recent_[1]};
  return distance;
}

}  // namespace tessarin
