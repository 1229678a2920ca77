#include "core/regAPI.h"

#include <charconv>
#include <cstdio>
#include <string>
#include <vector>

#include "codecs/Faults.h"
#include "codecs/modFile.h"

namespace tessarin {

namespace {

constexpr std::string_view kNumberMark = "dword:";

std::vector<std::string> ReadLines(const std::filesystem::path& file) {
  std::vector<std::string> lines;
  const std::string content = modFile::FileExists(file) ? modFile::ReadWholeFile(file) : "";
  for (std::size_t start = 0; start < content.size();) {
    const auto end = std::min(content.find('\n', start), content.size());
    lines.push_back(content.substr(start, end - start));
    if (!lines.back().empty() && lines.back().back() == '\r') lines.back().pop_back();
    start = end + 1;
  }
  return lines;
}

// Where a value stands, or would be put: `line` is its line when `found`, else the line before
// which it belongs.
struct Place {
  bool keyFound = false;
  bool found = false;
  std::size_t line = 0;
};

Place Find(const std::vector<std::string>& lines, const std::string& key, const std::string& name) {
  Place place;
  place.line = lines.size();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].starts_with('[')) {
      if (place.keyFound) break;
      place.keyFound = lines[i] == "[" + key + "]";
    } else if (place.keyFound && lines[i].starts_with(name + "=")) {
      return {true, true, i};
    }
    if (place.keyFound) place.line = i + 1;
  }
  return place;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\n') {
      quoted += "\\n";
      continue;
    }
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string Unquoted(std::string_view value) {
  if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::string(value);
  value = value.substr(1, value.size() - 2);
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '\\' && i + 1 < value.size()) {
      ++i;
      text += value[i] == 'n' ? '\n' : value[i];
    } else {
      text += value[i];
    }
  }
  return text;
}

std::string NumberText(std::string_view value) {
  std::uint32_t number = 0;
  const auto end = value.data() + value.size();
  const auto read = std::from_chars(value.data(), end, number, 16);
  return read.ec == std::errc() && read.ptr == end ? std::to_string(number) : "";
}

std::string Encoded(const std::string& value, RegType type) {
  if (type == RegType::String) return Quoted(value.substr(0, value.find('\0')));
  std::uint32_t number = 0;
  const auto end = value.data() + value.size();
  const auto read = std::from_chars(value.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) throw ConversionError();
  char digits[9];
  std::snprintf(digits, sizeof digits, "%08x", number);
  return std::string(kNumberMark) + digits;
}

}  // namespace

Text regAPI::RegGetString(TextView key, TextView valueName) const {
  try {
    const auto lines = ReadLines(file_);
    const std::string name = ToUtf8(valueName);
    const Place place = Find(lines, ToUtf8(key), name);
    if (!place.found) return {};
    const std::string value = lines[place.line].substr(name.size() + 1);
    if (value.starts_with(kNumberMark)) return FromUtf8(NumberText(value.substr(6)));
    const std::string text = Unquoted(value);
    return FromUtf8(text.substr(0, text.find('\0')));
  } catch (const FileError&) {
    return {};  // a setting that cannot be read is a setting that was never made
  }
}

void regAPI::RegSetValue(TextView key, TextView valueName, TextView value, RegType type) const {
  const std::string name = ToUtf8(valueName);
  const std::string line = name + "=" + Encoded(ToUtf8(value), type);
  auto lines = ReadLines(file_);
  const Place place = Find(lines, ToUtf8(key), name);
  const auto at = lines.begin() + static_cast<std::ptrdiff_t>(place.line);
  if (place.found) {
    *at = line;
  } else if (place.keyFound) {
    lines.insert(at, line);
  } else {
    lines.insert(lines.end(), {"[" + ToUtf8(key) + "]", line});
  }
  std::string content;
  for (const auto& each : lines) content += each + "\n";
  modFile::MakeFolder(file_.parent_path());
  modFile::WriteWholeFile(file_, content);
}

}  // namespace tessarin
