#include "core/HelpFile.h"

#include <algorithm>
#include <set>
#include <utility>

#include "codecs/Faults.h"
#include "core/Markup.h"

namespace tessarin {

namespace {

constexpr std::string_view kContentsEnding = ".hhc";
constexpr std::string_view kPageEnding = ".html";
constexpr std::string_view kTop = "/";
constexpr int kDeepest = 8;

}  // namespace

HelpFile::HelpFile(std::string content) : archive_(std::move(content)) {
  ReadContents();
  CollectPages();
}

// The contents are nested lists of objects, each with a name and, mostly, a page:
//   <ul> <li><object type="text/sitemap"><param name="Name" value="..">
//                                        <param name="Local" value=".."></object> </ul>
void HelpFile::ReadContents() {
  const auto& directory = archive_.directory();
  const auto file = std::find_if(directory.begin(), directory.end(), [](const auto& entry) {
    return entry.first.ends_with(kContentsEnding);
  });
  if (file == directory.end()) throw DocumentError(3, "no contents");
  MarkupReader reader(archive_.Find(file->first).value_or(""));
  int level = -1;
  HelpEntry entry{};
  while (reader.Next()) {
    const std::string& name = reader.Name();
    if (name == "ul") ++level;
    if (name == "/ul") --level;
    if (name == "object") entry = {};
    if (name == "param") {
      const Text value = reader.Attribute("value").value_or(Text());
      const Text kind = ToLower(reader.Attribute("name").value_or(Text()));
      if (kind == u"name") entry.title = value;
      if (kind == u"local") entry.place = FollowLink(kTop, ToUtf8(value)).value_or(HelpPlace());
    }
    if (name == "/object" && !entry.title.empty()) {
      const int deepest = contents_.empty() ? 0 : std::min(contents_.back().level + 1, kDeepest);
      entry.level = std::clamp(level, 0, deepest);
      contents_.push_back(std::move(entry));
      entry = {};
    }
  }
  if (contents_.empty()) throw DocumentError(3, "no contents");
}

void HelpFile::CollectPages() {
  std::set<std::string> known;
  const auto add = [&](const std::string& path) {
    if (Read(path) && known.insert(path).second) pages_.push_back(path);
  };
  for (const HelpEntry& entry : contents_) add(entry.place.path);
  for (const auto& [path, place] : archive_.directory()) {
    if (path.ends_with(kPageEnding)) add(path);
  }
  if (pages_.empty()) throw DocumentError(3, "no pages");
  if (!Read(home_)) home_ = pages_.front();
}

Text HelpFile::Title(std::string_view path) const { return PageTitle(Read(path).value_or("")); }

}  // namespace tessarin
