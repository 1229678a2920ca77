#include "phonesim/ContentLine.h"

#include <algorithm>

#include "phonesim/ObexPacket.h"
#include "phonesim/QuotedPrintable.h"
#include "phonesim/Utf.h"
#include "phonesim/Utf7.h"

namespace phonesim {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kQuoted = "ENCODING=QUOTED-PRINTABLE";
constexpr std::string_view kCharset = "CHARSET=";

ObexFault Breach(const std::string& what) { return ObexFault(obex::kBadRequest, what); }

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.emplace_back(text.substr(0, end));
    if (end == text.size()) return parts;
    text.remove_prefix(end + 1);
  }
}

void CheckParameters(const ContentLine& line) {
  for (const std::string& parameter : line.parameters) {
    const bool known = parameter.find('=') == std::string::npos || parameter == kQuoted ||
                       parameter == "CHARSET=ISO-8859-1" || parameter == "CHARSET=UTF-7" ||
                       parameter == "CHARSET=UTF-8";
    if (!known) throw Breach("unknown parameter " + parameter);
  }
}

ContentLine ParseLine(std::string_view text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) throw Breach("line without a colon");
  ContentLine line;
  line.parameters = Split(text.substr(0, colon), ';');
  line.name = line.parameters.front();
  line.parameters.erase(line.parameters.begin());
  line.value = text.substr(colon + 1);
  CheckParameters(line);
  return line;
}

bool IsFrame(const ContentLine& line, const std::string& wanted) {
  return line.parameters.empty() && line.name + ":" + line.value == wanted;
}

std::string Join(const std::vector<std::string>& parts) {
  std::string all;
  for (const std::string& part : parts) all += (&part == &parts.front() ? "" : ";") + part;
  return all;
}

}  // namespace

bool ContentLine::Has(std::string_view parameter) const {
  return std::find(parameters.begin(), parameters.end(), parameter) != parameters.end();
}

std::string ContentLine::Text() const { return Decode(value); }

std::vector<std::string> ContentLine::Components() const {
  std::vector<std::string> components = Split(value, ';');
  for (std::string& component : components) component = Decode(component);
  return components;
}

std::string ContentLine::Decode(std::string text) const {
  if (Has(kQuoted)) text = Unquote(text);
  if (Has("CHARSET=UTF-7")) {
    text = Utf8FromUtf7(text);
  } else if (!Has("CHARSET=UTF-8")) {
    text = Utf8FromLatin1(text);
  }
  std::erase(text, '\0');
  std::erase(text, '\r');
  return text;
}

std::vector<ContentLine> SplitContentLines(std::string_view object) {
  std::vector<ContentLine> lines;
  while (!object.empty()) {
    const std::size_t end = object.find(kLineEnd);
    if (end == std::string_view::npos) throw Breach("object does not end with CR LF");
    const std::string_view text = object.substr(0, end);
    object.remove_prefix(end + kLineEnd.size());
    ContentLine* before = lines.empty() ? nullptr : &lines.back();
    if (before != nullptr && before->Has(kQuoted) && before->value.ends_with('=')) {
      before->value.pop_back();
      before->value += text;
    } else {
      lines.push_back(ParseLine(text));
    }
  }
  return lines;
}

void TakeFrame(std::vector<ContentLine>& lines, const std::vector<std::string>& head,
               const std::vector<std::string>& tail) {
  const bool fits =
      lines.size() >= head.size() + tail.size() &&
      std::equal(head.rbegin(), head.rend(),
                 std::make_reverse_iterator(lines.begin() + static_cast<long>(head.size())),
                 [](const auto& want, const auto& line) { return IsFrame(line, want); }) &&
      std::equal(tail.rbegin(), tail.rend(), lines.rbegin(),
                 [](const auto& want, const auto& line) { return IsFrame(line, want); });
  if (!fits) throw Breach("object is not framed by " + Join(head) + " and " + Join(tail));
  lines.erase(lines.end() - static_cast<long>(tail.size()), lines.end());
  lines.erase(lines.begin(), lines.begin() + static_cast<long>(head.size()));
}

std::string WriteContentLine(const std::string& name, const std::vector<std::string>& components,
                             Quoting quoting) {
  const auto empty = [](const std::string& text) { return text.empty(); };
  if (std::all_of(components.begin(), components.end(), empty)) return {};
  const bool parted = components.size() > 1;
  const bool quoted = std::any_of(components.begin(), components.end(), [=](const auto& text) {
    return NeedsQuoting(text) || (parted && text.find(';') != std::string::npos);
  });
  if (!quoted) return name + ":" + Join(components) + "\r\n";
  std::vector<std::string> values;
  values.reserve(components.size());
  for (const std::string& text : components) values.push_back(Quote(text, quoting.all));
  return FoldQuoted(name + ";ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:" + Join(values)) + "\r\n";
}

}  // namespace phonesim
