#include "outlook/ContentLines.h"

#include <algorithm>
#include <functional>

#include "codecs/Text.h"

namespace tessarin::outlook {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestLine = 75;  // bytes, the line end not counting

// The place of `wanted` outside of double quotes; npos when it stands nowhere.
std::size_t FindUnquoted(std::string_view text, char wanted, std::size_t from = 0) {
  bool quoted = false;
  for (std::size_t at = from; at < text.size(); ++at) {
    if (text[at] == '"') quoted = !quoted;
    if (text[at] == wanted && !quoted) return at;
  }
  return std::string_view::npos;
}

std::size_t FindColon(std::string_view text) {
  const std::size_t unquoted = FindUnquoted(text, ':');
  return unquoted != std::string_view::npos ? unquoted : text.find(':');
}

// The first physical line, its end included.
std::string_view PhysicalLine(std::string_view bytes) {
  const std::size_t end = bytes.find('\n');
  return bytes.substr(0, end == std::string_view::npos ? end : end + 1);
}

std::string_view WithoutEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool IsFold(std::string_view bytes) { return bytes.starts_with(' ') || bytes.starts_with('\t'); }

// Takes the first line off, with the lines that are folded onto it.
ContentLine TakeLine(std::string_view& bytes) {
  ContentLine line;
  std::string_view rest = bytes;
  do {
    const std::string_view physical = PhysicalLine(rest);
    line.text += WithoutEnd(physical).substr(line.raw.empty() ? 0 : 1);
    line.raw += physical;
    rest.remove_prefix(physical.size());
  } while (IsFold(rest));
  bytes = rest;
  return line;
}

// Name and colon of `text`; false when it is no content line.
bool Analyse(ContentLine& line) {
  line.name.clear();
  line.colon = 0;
  if (line.text.find_first_not_of(" \t\r") == std::string::npos) return true;
  line.colon = FindColon(line.text);
  if (line.colon == std::string::npos || line.colon == 0) return false;
  std::string_view name = line.head();
  name = name.substr(0, name.find(';'));
  const std::size_t point = name.rfind('.');
  if (point != std::string_view::npos) name.remove_prefix(point + 1);
  line.name = UpperAscii(name);
  return !line.name.empty();
}

bool IsUtf8(std::string_view bytes) { return ToUtf8(FromUtf8(bytes)) == bytes; }

std::string Unquoted(std::string_view value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return std::string(value);
}

// Calls `each` with the name (empty where there is none), the values and the whole parameter.
using EachParameter =
    std::function<void(const std::string& name, std::string_view values, std::string_view whole)>;

void ForEachParameter(const ContentLine& line, const EachParameter& each) {
  std::string_view rest = line.head();
  std::size_t from = FindUnquoted(rest, ';');
  while (from != std::string_view::npos) {
    rest.remove_prefix(from + 1);
    from = FindUnquoted(rest, ';');
    const std::string_view whole = rest.substr(0, from);
    const std::size_t equals = FindUnquoted(whole, '=');
    const bool named = equals != std::string_view::npos;
    each(named ? UpperAscii(whole.substr(0, equals)) : "", named ? whole.substr(equals + 1) : whole,
         whole);
  }
}

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

std::string ContentLine::group() const {
  const std::string_view before = head().substr(0, head().find(';'));
  const std::size_t point = before.rfind('.');
  return point == std::string_view::npos ? "" : UpperAscii(before.substr(0, point));
}

std::string_view TrimEnd(std::string_view value) {
  return value.substr(0, value.find_last_not_of(" \t") + 1);
}

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& letter : upper) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return upper;
}

std::optional<ContentLines> ContentLines::Read(std::string_view bytes) {
  ContentLines document;
  if (bytes.starts_with(kByteOrderMark)) {
    document.mark_ = kByteOrderMark;
    bytes.remove_prefix(kByteOrderMark.size());
  }
  if (!PhysicalLine(bytes).ends_with("\r\n")) document.lineEnd_ = "\n";
  while (!bytes.empty()) {
    ContentLine line = TakeLine(bytes);
    if (!IsUtf8(line.text) || !Analyse(line)) return std::nullopt;
    document.lines_.push_back(std::move(line));
  }
  if (!document.FindBlocks() || document.blocks_.empty()) return std::nullopt;
  return document;
}

std::string ContentLines::Bytes() const {
  std::string bytes = mark_;
  for (const ContentLine& line : lines_) bytes += line.raw;
  return bytes;
}

bool ContentLines::FindBlocks() {
  blocks_.clear();
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const ContentLine& line = lines_[i];
    if (line.name == "BEGIN") {
      open.push_back(blocks_.size());
      blocks_.push_back(
          {UpperAscii(TrimEnd(line.value())), i, i, static_cast<int>(open.size()) - 1});
      continue;
    }
    if (line.name.empty()) continue;
    if (open.empty()) return false;
    if (line.name != "END") continue;
    ContentBlock& block = blocks_[open.back()];
    if (block.name != UpperAscii(TrimEnd(line.value()))) return false;
    block.end = i;
    open.pop_back();
  }
  return open.empty();
}

std::vector<std::size_t> ContentLines::OwnLines(const ContentBlock& block) const {
  std::vector<std::size_t> own;
  std::size_t line = block.begin + 1;
  for (const ContentBlock& inner : blocks_) {
    if (inner.begin < line || inner.begin > block.end) continue;
    for (; line < inner.begin; ++line) own.push_back(line);
    line = inner.end + 1;
  }
  for (; line < block.end; ++line) own.push_back(line);
  return own;
}

std::string ContentLines::Raw(std::string_view text) const {
  std::string raw;
  std::size_t room = kLongestLine;
  while (text.size() > room) {
    std::size_t cut = room;
    while (cut > 1 && IsContinuation(text[cut])) --cut;
    raw.append(text.substr(0, cut)).append(lineEnd_).append(" ");
    text.remove_prefix(cut);
    room = kLongestLine - 1;
  }
  return raw.append(text).append(lineEnd_);
}

void ContentLines::SetValue(std::size_t line, std::string_view value) {
  std::string text(lines_[line].head());
  SetText(line, text.append(":").append(value));
}

void ContentLines::SetText(std::size_t line, std::string_view text) {
  if (lines_[line].text == text) return;
  lines_[line].text = text;
  lines_[line].raw = Raw(text);
  Analyse(lines_[line]);
}

void ContentLines::Insert(std::size_t before, const std::vector<std::string>& texts) {
  std::vector<ContentLine> made(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    made[i].text = texts[i];
    made[i].raw = Raw(texts[i]);
    Analyse(made[i]);
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(before), made.begin(), made.end());
  FindBlocks();
}

void ContentLines::Reorder(const std::vector<std::size_t>& lines) {
  std::vector<ContentLine> ordered;
  for (const std::size_t line : lines) ordered.push_back(lines_[line]);
  std::vector<std::size_t> places(lines);
  std::sort(places.begin(), places.end());
  for (std::size_t i = 0; i < places.size(); ++i) lines_[places[i]] = std::move(ordered[i]);
}

void ContentLines::Erase(std::vector<std::size_t> lines) {
  std::sort(lines.rbegin(), lines.rend());
  for (const std::size_t line : lines) {
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
  }
  FindBlocks();
}

std::vector<std::string> ParameterValues(const ContentLine& line, std::string_view name) {
  std::vector<std::string> found;
  ForEachParameter(line, [&](const std::string& own, std::string_view values, std::string_view) {
    if (own != name && !(own.empty() && name == "TYPE")) return;
    // TYPE="voice,home" has its values inside the quotes.
    const std::string all = UpperAscii(values);
    std::string value;
    for (const char letter : all + ',') {
      if (letter == '"') continue;
      if (letter != ',') {
        value += letter;
        continue;
      }
      found.push_back(std::move(value));
      value.clear();
    }
  });
  return found;
}

std::string ParameterText(const ContentLine& line, std::string_view name) {
  std::string found;
  ForEachParameter(line, [&](const std::string& own, std::string_view values, std::string_view) {
    if (own == name && found.empty()) found = Unquoted(values);
  });
  return found;
}

std::string HeadWithout(const ContentLine& line, std::string_view name) {
  std::string head(line.head().substr(0, FindUnquoted(line.head(), ';')));
  ForEachParameter(line, [&](const std::string& own, std::string_view, std::string_view whole) {
    if (own != name) head.append(";").append(whole);
  });
  return head;
}

std::vector<std::string> ValuesIn(std::string_view bytes, std::string_view name) {
  std::vector<std::string> values;
  while (!bytes.empty()) {
    ContentLine line = TakeLine(bytes);
    if (Analyse(line) && line.name == name) values.emplace_back(line.value());
  }
  return values;
}

}  // namespace tessarin::outlook
