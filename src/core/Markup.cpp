#include "core/Markup.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tessarin {

namespace {

using namespace std::string_view_literals;

struct Entity {
  std::string_view name;
  char16_t unit;
};

constexpr std::array kEntities = std::to_array<Entity>({
    {"amp", u'&'},
    {"lt", u'<'},
    {"gt", u'>'},
    {"quot", u'"'},
    {"apos", u'\''},
    {"nbsp", u'\u00A0'},
    {"laquo", u'\u00AB'},
    {"raquo", u'\u00BB'},
    {"ndash", u'\u2013'},
    {"mdash", u'\u2014'},
    {"hellip", u'\u2026'},
    {"rarr", u'\u2192'},
});

// Tags that stand inside a word or a sentence and divide nothing.
constexpr std::array kInline = {"a"sv, "b"sv,   "code"sv, "em"sv,
                                "i"sv, "kbd"sv, "span"sv, "strong"sv};
// Elements whose text is not part of the page.
constexpr std::array kUnseen = {"head"sv, "script"sv, "style"sv};

constexpr std::string_view kBlanks = " \t\r\n\f";

template <class List>
bool Contains(const List& list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

void AppendCodePoint(Text& text, std::uint32_t code) {
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) {
    text += kReplacement;
  } else if (code < 0x10000) {
    text += static_cast<char16_t>(code);
  } else {
    text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10U));
    text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FFU));
  }
}

// Appends the character of "&name;", given without "&" and ";". False when it is not known.
bool AppendEntity(Text& text, std::string_view name) {
  if (name.starts_with('#')) {
    const bool hexadecimal = name.size() > 1 && LowerAscii(name[1]) == 'x';
    const char* begin = name.data() + (hexadecimal ? 2 : 1);
    const char* end = name.data() + name.size();
    std::uint32_t code = 0;
    const auto read = std::from_chars(begin, end, code, hexadecimal ? 16 : 10);
    if (read.ec != std::errc() || read.ptr != end) return false;
    AppendCodePoint(text, code);
    return true;
  }
  const auto known = std::find_if(kEntities.begin(), kEntities.end(),
                                  [&](const Entity& entity) { return entity.name == name; });
  if (known == kEntities.end()) return false;
  text += known->unit;
  return true;
}

bool IsBlank(char16_t unit) { return unit <= u' ' || unit == u'\u00A0'; }

void SkipBlanks(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
}

// Takes "=value" from the front of `rest`, with or without quotes.
std::string_view TakeValue(std::string_view& rest) {
  rest.remove_prefix(1);
  SkipBlanks(rest);
  const bool quoted = rest.starts_with('"') || rest.starts_with('\'');
  if (!quoted) {
    const auto value = rest.substr(0, rest.find_first_of(kBlanks));
    rest.remove_prefix(value.size());
    return value;
  }
  const std::size_t end = std::min(rest.find(rest.front(), 1), rest.size());
  const auto value = rest.substr(1, end - 1);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return value;
}

Text InOneLine(TextView text) {
  Text line;
  for (const char16_t unit : text) {
    if (!IsBlank(unit)) {
      line += unit;
    } else if (!line.empty() && line.back() != u' ') {
      line += u' ';
    }
  }
  return TrimBlanks(line);
}

}  // namespace

bool MarkupReader::Next() {
  const std::size_t begin = std::min(rest_.find('<'), rest_.size());
  textBefore_ = rest_.substr(0, begin);
  rest_.remove_prefix(begin);
  if (rest_.empty()) return false;
  const bool comment = rest_.starts_with("<!--");
  const std::string_view endMark = comment ? "-->" : ">";
  const std::size_t end = std::min(rest_.find(endMark), rest_.size());
  tag_ = rest_.substr(1, end - 1);
  rest_.remove_prefix(std::min(end + endMark.size(), rest_.size()));
  name_.clear();
  if (tag_.starts_with('!') || tag_.starts_with('?')) return true;
  const std::size_t nameEnd = std::min(tag_.find_first_of(" \t\r\n\f/", 1), tag_.size());
  name_ = tag_.substr(0, nameEnd);
  std::transform(name_.begin(), name_.end(), name_.begin(), LowerAscii);
  tag_.remove_prefix(nameEnd);
  return true;
}

std::optional<Text> MarkupReader::Attribute(std::string_view attribute) const {
  std::string_view rest = tag_;
  for (;;) {
    SkipBlanks(rest);
    if (rest.empty()) return std::nullopt;
    const auto name = rest.substr(0, rest.find_first_of(" \t\r\n\f=/"));
    rest.remove_prefix(std::max<std::size_t>(name.size(), 1));
    SkipBlanks(rest);
    const std::string_view value = rest.starts_with('=') ? TakeValue(rest) : std::string_view();
    if (std::equal(name.begin(), name.end(), attribute.begin(), attribute.end(),
                   [](char a, char b) { return LowerAscii(a) == b; })) {
      return DecodeEntities(value);
    }
  }
}

Text DecodeEntities(std::string_view html) {
  Text text;
  for (;;) {
    const std::size_t mark = std::min(html.find('&'), html.size());
    text += FromUtf8(html.substr(0, mark));
    html.remove_prefix(mark);
    if (html.empty()) return text;
    constexpr std::size_t kLongest = 12;
    const std::size_t end = html.substr(0, kLongest).find(';');
    if (end != std::string_view::npos && AppendEntity(text, html.substr(1, end - 1))) {
      html.remove_prefix(end + 1);
    } else {
      text += u'&';
      html.remove_prefix(1);
    }
  }
}

Text PlainText(std::string_view html) {
  MarkupReader reader(html);
  Text text;
  std::string unseen;  // the closing tag that ends what is not seen
  for (bool more = true; more;) {
    more = reader.Next();
    if (unseen.empty()) text += DecodeEntities(reader.TextBefore());
    if (!more) break;
    std::string_view name = reader.Name();
    if (unseen.empty() && Contains(kUnseen, name)) {
      unseen = "/" + reader.Name();
    } else if (name == unseen) {
      unseen.clear();
    }
    if (name.starts_with('/')) name.remove_prefix(1);
    if (!name.empty() && !Contains(kInline, name)) text += u' ';
  }
  return InOneLine(text);
}

Text PageTitle(std::string_view html) {
  MarkupReader reader(html);
  while (reader.Next()) {
    if (reader.Name() == "/title") return InOneLine(DecodeEntities(reader.TextBefore()));
  }
  return {};
}

}  // namespace tessarin
