#pragma once

// One file of a vdir folder: read whole, written by renaming, and watched for changes that another
// program makes.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "codecs/modDate.h"

namespace tessarin::outlook {

class VdirFile {
 public:
  explicit VdirFile(std::filesystem::path path) : path_(std::move(path)) {}

  const std::filesystem::path& path() const { return path_; }
  // The name without its extension.
  Text Stem() const { return FromUtf8(path_.stem().string()); }

  // A regular file, or a link to one.
  bool Exists() const;
  // Nothing has that name any more, not even a link that leads nowhere.
  bool IsGone() const;
  // Both throw FileError. Only regular files are opened: others, such as pipes, can make wait.
  std::string Read();
  // Nothing for a file that cannot be read.
  std::string ReadIfPossible();
  void Write(std::string_view bytes);

  // Whether the file is another than the one last read or written.
  bool HasChanged() const;
  // When the file as last read or written came to be, local time in whole seconds: the later of its
  // modification time and of the time when that was last set, since programs that fetch files from
  // elsewhere give them the time of the change there.
  DateValue Modified() const;

 private:
  // Since 1970.
  struct Moment {
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    bool operator==(const Moment&) const = default;
  };
  // What tells one version of a file from the next: a program that replaces it leaves another file
  // number, one that writes into it another time or size.
  struct Version {
    Moment modified, changed;
    std::int64_t size = -1;
    std::uint64_t number = 0;
    bool operator==(const Version&) const = default;
  };
  Version Look() const;

  std::filesystem::path path_;
  Version version_;
};

// What a folder holds that is named as an item: with that extension, in small letters or capitals,
// not beginning with a dot, and no folder. In the order of the names. Throws FileError.
std::vector<std::filesystem::path> VdirItems(const std::filesystem::path& folder,
                                             std::string_view extension);

// A random UUID, version 4.
std::string NewUid();

}  // namespace tessarin::outlook
