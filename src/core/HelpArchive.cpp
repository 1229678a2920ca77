#include "core/HelpArchive.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "codecs/Faults.h"
#include "core/Lzx.h"

namespace tessarin {

namespace {

constexpr std::uint32_t kFileVersion = 3;
constexpr std::uint32_t kControlVersion = 2;
constexpr std::uint64_t kMostContent = 64U << 20U;  // no help is larger; a damaged one may say so
constexpr std::string_view kStreams = "::DataSpace/Storage/MSCompressed/";
constexpr std::string_view kResetTable =
    "Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable";

[[noreturn]] void Refuse(const char* reason) { throw DocumentError(1, reason); }

// `length` bytes at `offset`; the numbers come out of the file.
std::string_view Part(std::string_view whole, std::uint64_t offset, std::uint64_t length) {
  if (offset > whole.size() || length > whole.size() - offset) Refuse("cut off");
  return whole.substr(offset, length);
}

std::uint64_t Number(std::string_view whole, std::uint64_t offset, std::size_t bytes) {
  std::uint64_t number = 0;
  std::size_t shift = 0;
  for (const char byte : Part(whole, offset, bytes)) {
    number |= std::uint64_t{static_cast<unsigned char>(byte)} << shift;
    shift += 8;
  }
  return number;
}

std::uint64_t Number32(std::string_view whole, std::uint64_t offset) {
  return Number(whole, offset, 4);
}
std::uint64_t Number64(std::string_view whole, std::uint64_t offset) {
  return Number(whole, offset, 8);
}

void Expect(std::string_view whole, std::uint64_t offset, std::string_view mark) {
  if (Part(whole, offset, mark.size()) != mark) Refuse("not a help file");
}

// Takes a count from the front of `rest`.
std::uint64_t TakeCount(std::string_view& rest) {
  std::uint64_t count = 0;
  for (;;) {
    const auto group = static_cast<unsigned char>(Part(rest, 0, 1).front());
    rest.remove_prefix(1);
    if (count > UINT64_MAX >> 7U) Refuse("count too large");
    count = count << 7U | (group & 0x7FU);
    if ((group & 0x80U) == 0) return count;
  }
}

}  // namespace

HelpArchive::HelpArchive(std::string file) : file_(std::move(file)) {
  Expect(file_, 0, "ITSF");
  if (Number32(file_, 4) != kFileVersion) Refuse("unknown version");
  const std::uint64_t content = Number64(file_, 0x58);
  uncompressed_ = std::string_view(file_).substr(std::min<std::uint64_t>(content, file_.size()));
  ReadDirectory(Number64(file_, 0x48));
  Decompress();
}

void HelpArchive::ReadDirectory(std::size_t offset) {
  Expect(file_, offset, "ITSP");
  const std::uint64_t headerLength = Number32(file_, offset + 8);
  const std::uint64_t chunkLength = Number32(file_, offset + 0x10);
  const std::uint64_t chunks = Number32(file_, offset + 0x2C);
  if (chunkLength == 0) Refuse("no directory");
  for (std::uint64_t chunk = 0; chunk < chunks; ++chunk) {
    ReadChunk(Part(file_, offset + headerLength + chunk * chunkLength, chunkLength));
  }
}

// Chunks without this mark are an index of the others, which a map makes needless.
void HelpArchive::ReadChunk(std::string_view chunk) {
  constexpr std::size_t kHeader = 0x14;
  if (!chunk.starts_with("PMGL")) return;
  const std::uint64_t unused = Number32(chunk, 4);
  if (unused + kHeader > chunk.size()) Refuse("cut off");
  auto rest = chunk.substr(kHeader, chunk.size() - kHeader - unused);
  while (!rest.empty()) {
    const auto name = Part(rest, 0, TakeCount(rest));
    rest.remove_prefix(name.size());
    Place place{};
    place.section = TakeCount(rest);
    place.offset = TakeCount(rest);
    place.length = TakeCount(rest);
    directory_[std::string(name)] = place;
  }
}

std::string_view HelpArchive::Stream(std::string_view name) const {
  const auto stream = Find(std::string(kStreams).append(name));
  if (!stream) Refuse("cut off");
  return *stream;
}

void HelpArchive::Decompress() {
  const auto control = Stream("ControlData");
  const auto table = Stream(kResetTable);
  const auto content = Stream("Content");
  Expect(control, 4, "LZXC");
  const std::uint64_t resetAfter = Number32(control, 0x0C);
  const std::uint64_t window = Number32(control, 0x10) * LzxDecoder::kFrame;
  const std::uint64_t offsets = Number32(table, 0x0C);
  const std::uint64_t length = Number64(table, 0x10);
  if (Number32(control, 8) != kControlVersion || resetAfter == 0 || !std::has_single_bit(window) ||
      length > kMostContent) {
    Refuse("unknown compression");
  }
  const std::uint64_t frames = (length + LzxDecoder::kFrame - 1) / LzxDecoder::kFrame;
  LzxDecoder decoder(std::countr_zero(window), compressed_);
  for (std::uint64_t frame = 0; frame < frames; ++frame) {
    if (frame % resetAfter == 0) decoder.Reset();
    const std::uint64_t begin = Number64(table, offsets + frame * 8);
    if (begin > content.size()) Refuse("cut off");
    decoder.ReadFrame(content.substr(begin),
                      std::min<std::uint64_t>(LzxDecoder::kFrame, length - compressed_.size()));
  }
}

std::optional<std::string_view> HelpArchive::Find(std::string_view path) const {
  const auto found = directory_.find(path);
  if (found == directory_.end() || found->second.section > 1) return std::nullopt;
  const Place& place = found->second;
  const std::string_view whole = place.section == 0 ? uncompressed_ : compressed_;
  if (place.offset > whole.size() || place.length > whole.size() - place.offset) {
    return std::nullopt;
  }
  return whole.substr(place.offset, place.length);
}

}  // namespace tessarin
