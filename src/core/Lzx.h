#pragma once

// LZX, the compression inside compiled HTML help files: a window of text seen before, and three
// Huffman trees over literals, match lengths and match distances.
//
// The output is cut into frames of 32,768 bytes, the last one shorter. The bits of a frame begin at
// a byte of their own, in 16-bit little-endian words read from the top bit:
//
//   after a reset:  1 bit    translation of machine code, which help files do not use
//   a block:        3 bits   kind: 1 verbatim, 2 aligned, 3 uncompressed
//                   24 bits  its length in bytes of output; a block may go on in the next frame
//                   trees as differences to those of the block before, then the coded bytes

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessarin {

class LzxBits;

// A Huffman tree made from the lengths of its codes, up to 16 bits each.
class LzxTree {
 public:
  static constexpr int kLongest = 16;

  // `lengths` has one length a symbol, 0 for a symbol that has no code. Throws DocumentError when
  // no tree has such lengths.
  void Build(const std::uint8_t* lengths, std::size_t count);
  // Throws DocumentError for bits that are no code.
  std::size_t Read(LzxBits& bits) const;

 private:
  // For each length, the first code behind those of that length, written to the left of 16 bits,
  // and what leads from such a code to its place in `symbols_`.
  std::array<std::uint32_t, kLongest + 1> limit_{};
  std::array<std::uint32_t, kLongest + 1> first_{};
  std::array<std::uint32_t, kLongest + 1> place_{};
  std::vector<std::uint16_t> symbols_;
};

class LzxDecoder {
 public:
  static constexpr std::size_t kFrame = 32768;

  // `windowBits` is 15 to 21. `output` gets the decompressed bytes and must outlive the decoder.
  LzxDecoder(int windowBits, std::string& output);

  // Forgets everything before: the next frame stands for itself.
  void Reset();
  // Appends the `length` bytes, 1 to `kFrame`, of the frame that begins with `input`. Throws
  // DocumentError when it is damaged; some of its bytes may have been appended then.
  void ReadFrame(std::string_view input, std::size_t length);

 private:
  enum BlockKind { kVerbatim = 1, kAligned = 2, kUncompressed = 3 };

  void BeginBlock(LzxBits& bits);
  void ReadTrees(LzxBits& bits);
  void ReadLengths(LzxBits& bits, std::uint8_t* lengths, std::size_t count);
  void ReadRun(LzxBits& bits, std::size_t end);
  void CopyMatch(LzxBits& bits, std::size_t symbol);
  std::size_t ReadDistance(LzxBits& bits, std::size_t slot);

  std::size_t slots_;  // of distances
  std::string& output_;
  std::size_t start_ = 0;  // where the last reset was
  bool begun_ = false;
  int kind_ = kVerbatim;
  std::size_t blockRest_ = 0;
  std::size_t limit_ = 0;                // of the present block or frame, in the output
  std::array<std::size_t, 3> recent_{};  // the last distances
  std::vector<std::uint8_t> mainLengths_;
  std::vector<std::uint8_t> lengthLengths_;
  LzxTree mainTree_, lengthTree_, alignedTree_;
};

}  // namespace tessarin
