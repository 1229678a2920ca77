#pragma once

// One help file: its table of contents and its pages.

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
  // `content` is what the help file holds. Throws DocumentError when it is damaged, or has no
  // table of contents or no pages.
  explicit HelpFile(std::string content);

  // The table of contents from top to bottom. An entry is at most one level below the one before.
  const std::vector<HelpEntry>& contents() const { return contents_; }
  // The paths of all pages: those of the contents in their order, then the others.
  const std::vector<std::string>& pages() const { return pages_; }

  // The page to begin with: "/index.html", or the first page where there is no such.
  const std::string& home() const { return home_; }

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
  std::string home_ = "/index.html";
};

}  // namespace tessarin
