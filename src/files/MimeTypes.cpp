#include "files/MimeTypes.h"

#include <cstdlib>
#include <fstream>
#include <pugixml.hpp>
#include <sstream>
#include <string_view>

namespace tessarin {

namespace fs = std::filesystem;

namespace {

const std::string kUnknown = "application/octet-stream";

std::string Environment(const char* name, const std::string& otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

// Entries of one kind: a heavier glob takes the place of a lighter one.
template <class Map, class Glob>
void Enter(Map& map, const std::string& key, Glob glob) {
  auto& known = map[key];
  if (glob.weight > known.weight) known = std::move(glob);
}

// Empty also for a hidden file's name that has no further point.
Text Extension(TextView name) {
  const auto point = name.rfind(u'.');
  return point == TextView::npos || point == 0 ? Text() : ToUpper(name.substr(point + 1));
}

}  // namespace

std::vector<fs::path> MimeTypes::StandardFolders() {
  const std::string home = Environment("HOME", "/");
  std::vector<fs::path> folders = {fs::path(Environment("XDG_DATA_HOME", home + "/.local/share")) /
                                   "mime"};
  std::istringstream others(Environment("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
  for (std::string folder; std::getline(others, folder, ':');) {
    if (!folder.empty()) folders.push_back(fs::path(folder) / "mime");
  }
  return folders;
}

MimeTypes::MimeTypes(std::vector<fs::path> folders) : folders_(std::move(folders)) {}

void MimeTypes::Load() {
  if (loaded_) return;
  loaded_ = true;
  for (const fs::path& folder : folders_) LoadGlobs(folder / "globs2");
}

// Lines of `weight:type:glob`. Of the globs, whole names and "*.suffix" count; the database has
// some thirty others, none for what phones hold.
void MimeTypes::LoadGlobs(const fs::path& file) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string weight, type, glob;
    std::getline(fields, weight, ':');
    std::getline(fields, type, ':');
    std::getline(fields, glob, ':');
    if (line.starts_with('#') || glob.empty()) continue;
    const bool isSuffix = glob.starts_with("*.");
    const std::string fixed = ToUtf8(ToLower(FromUtf8(isSuffix ? glob.substr(1) : glob)));
    if (fixed.find_first_of("*?[") != std::string::npos) continue;
    Enter(isSuffix ? suffixes_ : names_, fixed,
          Glob{static_cast<int>(std::strtol(weight.c_str(), nullptr, 10)), type});
  }
}

// The longest suffix that is known decides: "a.tar.gz" is one before ".gz" is.
const std::string& MimeTypes::Type(TextView fileName) {
  Load();
  const std::string name = ToUtf8(ToLower(fileName));
  if (const auto whole = names_.find(name); whole != names_.end()) return whole->second.type;
  for (auto point = name.find('.'); point != std::string::npos; point = name.find('.', point + 1)) {
    const auto suffix = suffixes_.find(name.substr(point));
    if (suffix != suffixes_.end()) return suffix->second.type;
  }
  return kUnknown;
}

Text MimeTypes::Words(const std::string& type, TextView fileName, const std::string& isoCode) {
  const Text extension = Extension(fileName);
  if (type == kUnknown && !extension.empty()) return extension;
  if (isoCode != wordsIsoCode_) words_.clear();
  wordsIsoCode_ = isoCode;
  const auto [place, isNew] = words_.try_emplace(type);
  if (isNew) place->second = ReadWords(type, isoCode);
  return place->second.empty() ? extension : place->second;
}

Text MimeTypes::ReadWords(const std::string& type, const std::string& isoCode) const {
  for (const fs::path& folder : folders_) {
    pugi::xml_document document;
    if (!document.load_file((folder / (type + ".xml")).c_str())) continue;
    Text english;
    for (const auto& comment : document.document_element().children("comment")) {
      const std::string_view language = comment.attribute("xml:lang").value();
      if (language == isoCode) return FromUtf8(comment.child_value());
      if (language.empty()) english = FromUtf8(comment.child_value());
    }
    if (!english.empty()) return english;
  }
  return {};
}

}  // namespace tessarin
