#pragma once

// One help file: its table of contents and its pages.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/Text.h"
#include "core/HelpArchive.h"
#include "core/HelpPlace.h"

namespace tessarin {

struct HelpEntry {
  Text title;
  HelpPlace place;  // an empty path for a heading without a page
  int level;        // 0 at the top
};

class HelpFile {
 public:
  // Reads the whole file. Throws FileError when it cannot be read, DocumentError when it is damaged
  // or has no contents.
  explicit HelpFile(const std::filesystem::path& file);

  // The table of contents from top to bottom. An entry is at most one level below the one before.
  const std::vector<HelpEntry>& contents() const { return contents_; }
  // The paths of all pages: those of the contents in their order, then the others.
  const std::vector<std::string>& pages() const { return pages_; }

  // A page (in UTF-8) or a picture; none when there is none of that path. It stays as long as this
  // object.
  std::optional<std::string_view> Read(std::string_view path) const { return archive_.Find(path); }
  // Empty when there is no such page or it has no title.
  Text Title(std::string_view path) const;

 private:
  void ReadContents();
  void CollectPages();

  HelpArchive archive_;
  std::vector<HelpEntry> contents_;
  std::vector<std::string> pages_;
};

}  // namespace tessarin
