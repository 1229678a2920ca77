#include "outlook/LineValue.h"

namespace tessarin::outlook {

namespace {

// CR LF and CR as LF.
Text WithPlainBreaks(TextView text) { return Replace(Replace(text, u"\r\n", u"\n"), u"\r", u"\n"); }

}  // namespace

std::string EscapeText(TextView text) {
  Text escaped;
  for (const char16_t unit : WithPlainBreaks(text)) {
    if (unit == u'\n') {
      escaped += u"\\n";
    } else if (unit == u'\\' || unit == u',' || unit == u';') {
      escaped.append(1, u'\\').append(1, unit);
    } else if ((unit >= u' ' && unit != 0x7F) || unit == u'\t') {
      escaped += unit;
    }
  }
  return ToUtf8(escaped);
}

Text UnescapeText(std::string_view value) {
  std::string plain;
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] != '\\' || at + 1 == value.size()) {
      plain += value[at];
      continue;
    }
    const char escaped = value[++at];
    plain += escaped == 'n' || escaped == 'N' ? '\n' : escaped;
  }
  return FromUtf8(plain);
}

std::vector<std::string> SplitValue(std::string_view value, char separator) {
  std::vector<std::string> pieces(1);
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (value[at] == separator) {
      pieces.emplace_back();
      continue;
    }
    pieces.back() += value[at];
    if (value[at] == '\\' && at + 1 < value.size()) pieces.back() += value[++at];
  }
  return pieces;
}

std::string JoinValue(const std::vector<std::string>& components, char separator) {
  std::string value;
  for (std::size_t i = 0; i < components.size(); ++i) {
    if (i > 0) value += separator;
    value += components[i];
  }
  return value;
}

Text InOneLine(TextView text) { return Replace(WithPlainBreaks(text), u"\n", u", "); }

}  // namespace tessarin::outlook
