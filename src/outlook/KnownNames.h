#pragma once

// The names of the files in a vdir folder that had no UID when they were first seen. They are known
// by their names from then on, also when another program gives them a UID later: an item whose
// identity changed would be taken for a new one. They are kept, one a line, in a file beside the
// folder that has the folder's name and ".names".

#include <filesystem>
#include <set>

#include "codecs/Text.h"

namespace tessarin::outlook {

class KnownNames {
 public:
  explicit KnownNames(const std::filesystem::path& folder);

  // A file that lies in the folder. True when it is known by its name.
  bool Meet(const Text& stem, bool hasUid);
  // Keeps the names that were met, for the next reading of the folder. When that is not possible
  // the next reading goes by the UIDs.
  void Save() const;

 private:
  std::filesystem::path file_;
  std::set<Text> before_, met_;
};

}  // namespace tessarin::outlook
