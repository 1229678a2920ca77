#include "core/HelpSearch.h"

#include <algorithm>

#include "core/Markup.h"

namespace tessarin {

namespace {

constexpr std::size_t kBefore = 24;  // units of a snippet in front of the word
constexpr std::size_t kSnippet = 120;
constexpr std::size_t kWordSearch = 12;  // how far to look for a blank to cut at
constexpr char16_t kEllipsis = u'\u2026';
constexpr char16_t kIdeographicBlank = u'\u3000';
constexpr char16_t kHardBlank = u'\u00A0';

bool HasAll(TextView text, const std::vector<Text>& lowerWords) {
  return std::all_of(lowerWords.begin(), lowerWords.end(),
                     [&](const Text& word) { return text.find(word) != TextView::npos; });
}

// A cut near `at`: behind a blank when there is one, and never inside a pair of surrogates.
std::size_t CutNear(TextView text, std::size_t at) {
  if (at == 0 || at >= text.size()) return std::min(at, text.size());
  const std::size_t blank = text.substr(0, at).rfind(u' ');
  if (blank != TextView::npos && at - blank <= kWordSearch) return blank + 1;
  const bool insidePair = text[at] >= 0xDC00 && text[at] < 0xE000;
  return insidePair ? at - 1 : at;
}

Text Snippet(TextView text, std::size_t word) {
  const std::size_t begin = CutNear(text, word > kBefore ? word - kBefore : 0);
  const std::size_t end = CutNear(text, begin + kSnippet);
  Text snippet = TrimBlanks(text.substr(begin, end - begin));
  if (begin > 0) snippet.insert(snippet.begin(), kEllipsis);
  if (end < text.size()) snippet += kEllipsis;
  return snippet;
}

}  // namespace

std::vector<Text> SearchWords(TextView question) {
  Text blanks(question);
  std::replace(blanks.begin(), blanks.end(), kIdeographicBlank, u' ');
  std::replace(blanks.begin(), blanks.end(), kHardBlank, u' ');
  auto words = Split(blanks, u" ");
  std::erase_if(words, [](const Text& word) { return word.empty(); });
  return words;
}

HelpSearch::HelpSearch(const HelpFile& file) {
  for (const std::string& path : file.pages()) {
    Page page;
    page.path = path;
    page.title = file.Title(path);
    page.text = PlainText(file.Read(path).value_or(""));
    // The heading says the title once more, which a snippet need not.
    if (page.text.starts_with(page.title)) page.text.erase(0, page.title.size());
    page.lowerTitle = ToLower(page.title);
    page.lowerText = ToLower(page.text);
    pages_.push_back(std::move(page));
  }
}

std::vector<HelpHit> HelpSearch::Find(const std::vector<Text>& words) const {
  std::vector<HelpHit> inTitle;
  std::vector<HelpHit> inText;
  if (words.empty()) return inTitle;
  std::vector<Text> lower;
  std::transform(words.begin(), words.end(), std::back_inserter(lower),
                 [](const Text& word) { return ToLower(word); });
  for (const Page& page : pages_) {
    if (!HasAll(page.lowerTitle + u' ' + page.lowerText, lower)) continue;
    const std::size_t at = page.lowerText.find(lower.front());
    auto& hits = HasAll(page.lowerTitle, lower) ? inTitle : inText;
    hits.push_back({page.path, page.title, Snippet(page.text, at == Text::npos ? 0 : at)});
  }
  inTitle.insert(inTitle.end(), inText.begin(), inText.end());
  return inTitle;
}

}  // namespace tessarin
