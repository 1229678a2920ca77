#pragma once

// The search of the help.

#include <string>
#include <vector>

#include "core/HelpFile.h"

namespace tessarin {

struct HelpHit {
  std::string path;
  Text title;
  Text snippet;  // what stands around the first of the words
};

// The words of a question, divided by blanks.
std::vector<Text> SearchWords(TextView question);

// Knows the text of every page of a help file.
class HelpSearch {
 public:
  explicit HelpSearch(const HelpFile& file);

  // The pages that hold all of `words`, upper and lower case being equal, parts of words too: first
  // those with all of them in the title, and else in the order of the contents. Without words there
  // are none.
  std::vector<HelpHit> Find(const std::vector<Text>& words) const;

 private:
  struct Page {
    std::string path;
    Text title;
    Text text;
    Text lowerTitle;
    Text lowerText;
  };
  std::vector<Page> pages_;
};

}  // namespace tessarin
