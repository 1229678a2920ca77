#pragma once

// The kind of a file in words, from the shared MIME-info database that every desktop has: the file
// `globs2` tells a type by the name, `<type>.xml` its words in many languages.

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "codecs/Text.h"

namespace tessarin {

class MimeTypes {
 public:
  // Folders of databases, the one that counts most first. They are read when first asked for, once.
  explicit MimeTypes(std::vector<std::filesystem::path> folders = StandardFolders());

  // The words for a file's type, such as "JPEG image", in the language of that ISO code ("de",
  // "zh_CN"), in English where the database does not have that. The name's extension says more than
  // that a type is unknown, and stands where the database has no words at all.
  Text Words(const std::string& type, TextView fileName, const std::string& isoCode);
  // The type itself, such as "image/jpeg"; "application/octet-stream" for a name that says nothing.
  const std::string& Type(TextView fileName);

  // "mime" below $XDG_DATA_HOME and each of $XDG_DATA_DIRS.
  static std::vector<std::filesystem::path> StandardFolders();

 private:
  struct Glob {
    int weight = 0;
    std::string type;
  };

  void Load();
  void LoadGlobs(const std::filesystem::path& file);
  Text ReadWords(const std::string& type, const std::string& isoCode) const;

  std::vector<std::filesystem::path> folders_;
  bool loaded_ = false;
  std::unordered_map<std::string, Glob> names_;     // whole names, in lower case
  std::unordered_map<std::string, Glob> suffixes_;  // from a point on, in lower case
  std::string wordsIsoCode_;                        // of these words:
  std::unordered_map<std::string, Text> words_;     // by type
};

}  // namespace tessarin
