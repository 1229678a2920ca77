#include "codecs/RichText.h"

#include <algorithm>

namespace tessarin {

namespace {

// The unit as it stands in a document; a unit beyond ASCII is a signed 16-bit number there.
std::string Escaped(char16_t unit) {
  if (unit == u'\t') return "\\tab ";
  if (unit == u'\n') return "\\par\r\n";
  if (unit == u'\\' || unit == u'{' || unit == u'}') return {'\\', static_cast<char>(unit)};
  if (unit < 0x20 || unit == 0x7F) return "";
  if (unit < 0x7F) return {static_cast<char>(unit)};
  return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string EscapedText(const Text& text) {
  std::string escaped;
  for (const char16_t unit : Replace(text, u"\r\n", u"\n")) {
    escaped += Escaped(unit == u'\r' ? u'\n' : unit);
  }
  return escaped;
}

// A font's name ends at a semicolon, so none may stand in it.
std::string FontEntry(std::size_t number, const Text& name) {
  return "{\\f" + std::to_string(number) + "\\fnil " + EscapedText(Replace(name, u";", u"")) + ";}";
}

std::vector<Text> Fonts(const std::vector<RichText::Run>& runs) {
  std::vector<Text> fonts;
  for (const auto& run : runs) {
    if (std::find(fonts.begin(), fonts.end(), run.style.font) == fonts.end()) {
      fonts.push_back(run.style.font);
    }
  }
  return fonts;
}

// Font, weight and size, the last in half points.
std::string StyleWords(std::size_t font, const RichText::Style& style) {
  return "\\f" + std::to_string(font) + (style.bold ? "\\b" : "\\b0") + "\\fs" +
         std::to_string(2 * style.size) + " ";
}

}  // namespace

void RichText::Append(TextView text, const Style& style) {
  Text kept(text);
  std::erase(kept, u'\0');
  if (kept.empty()) return;
  if (!runs_.empty() && runs_.back().style == style) {
    runs_.back().text += kept;
  } else {
    runs_.push_back({style, std::move(kept)});
  }
}

std::string RichText::Document() const {
  const auto fonts = Fonts(runs_);
  std::string document = "{\\rtf1\\ansi\\deff0{\\fonttbl";
  for (std::size_t number = 0; number < fonts.size(); ++number) {
    document += FontEntry(number, fonts[number]);
  }
  document += "}\r\n\\uc1\\pard";
  for (const Run& run : runs_) {
    const auto font = std::find(fonts.begin(), fonts.end(), run.style.font) - fonts.begin();
    document += StyleWords(static_cast<std::size_t>(font), run.style) + EscapedText(run.text);
  }
  return document + "}\r\n";
}

}  // namespace tessarin
