#pragma once

// The container of a compiled HTML help file (.chm): a directory of paths and, mostly compressed as
// one piece, the contents of the files behind them.
//
// Numbers are little-endian; a "count" is a big-endian run of 7-bit groups whose top bit says that
// another follows.
//
//   file header     0 "ITSF"   4 version, 3   48h offset of the directory   58h offset of section 0
//   directory       0 "ITSP"   8 length of this header   10h length of a chunk   2Ch chunks
//   chunk of paths  0 "PMGL"   4 unused bytes at its end   14h entries, each of
//                   count of the path's bytes, path, counts of section, offset and length
//
// Section 0 lies in the file as it is; "::DataSpace/Storage/MSCompressed/" names the three streams
// of it that make up section 1:
//
//   ControlData     4 "LZXC"   8 version, 2   0Ch frames between resets   10h window in frames
//   ResetTable      0Ch length of this header   10h length of section 1 (8 bytes);
//                   then the offset of each frame in Content (8 bytes each)
//   Content         LZX frames

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tessarin {

// A whole help file in memory.
class HelpArchive {
 public:
  // `file` is what the help file holds. Throws DocumentError when that is damaged or no help file.
  explicit HelpArchive(std::string file);
  HelpArchive(const HelpArchive&) = delete;
  HelpArchive& operator=(const HelpArchive&) = delete;

  struct Place {
    std::uint64_t section;
    std::uint64_t offset;
    std::uint64_t length;
  };
  // By path, such as "/index.html". The lengths are the directory's word.
  const std::map<std::string, Place, std::less<>>& directory() const { return directory_; }

  // What lies behind a path; none when the path is unknown or leads out of its section. It stays as
  // long as this object.
  std::optional<std::string_view> Find(std::string_view path) const;

 private:
  void ReadDirectory(std::size_t offset);
  void ReadChunk(std::string_view chunk);
  void Decompress();
  std::string_view Stream(std::string_view name) const;

  std::string file_;
  std::map<std::string, Place, std::less<>> directory_;
  std::string_view uncompressed_;  // section 0
  std::string compressed_;         // section 1, decompressed
};

}  // namespace tessarin
