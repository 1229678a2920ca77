#include "codecs/Text.h"

#include "codecs/Iconv.h"

namespace tessarin {

std::string ToUtf8(TextView text) {
  return Iconv("UTF-8", kNativeUtf16)
      .Convert(AsBytes(text), AsBytes({&kReplacement, 1}), sizeof kReplacement);
}

Text FromUtf8(std::string_view utf8) {
  return AsText(Iconv(kNativeUtf16, "UTF-8").Convert(utf8, "\xEF\xBF\xBD", 1));
}

Text FromLatin1(std::string_view bytes) {
  Text text(bytes.size(), u'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = static_cast<unsigned char>(bytes[i]);
  return text;
}

bool ContainsIgnoringCase(TextView hay, TextView needle) {
  return ToLower(hay).find(ToLower(needle)) != Text::npos;
}

Text TrimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

std::vector<Text> Split(TextView text, TextView separator) {
  std::vector<Text> pieces;
  if (!separator.empty()) {
    for (auto at = text.find(separator); at != TextView::npos; at = text.find(separator)) {
      pieces.emplace_back(text.substr(0, at));
      text.remove_prefix(at + separator.size());
    }
  }
  pieces.emplace_back(text);
  return pieces;
}

Text Replace(TextView text, TextView from, TextView to) {
  if (from.empty()) return Text(text);
  Text result;
  for (auto at = text.find(from); at != TextView::npos; at = text.find(from)) {
    result.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return result.append(text);
}

Text ToText(long long number) { return FromLatin1(std::to_string(number)); }

}  // namespace tessarin
