#include "codecs/ListFile.h"

#include <algorithm>

#include "codecs/Faults.h"
#include "codecs/modFile.h"
#include "codecs/modHexStr.h"

namespace tessarin::ListFile {

namespace {

// A file that is not there hides nothing.
bool HidesItsLines(const std::filesystem::path& file) {
  try {
    (void)ReadLines(file);
  } catch (const FileError&) {
    return true;
  }
  return false;
}

}  // namespace

std::vector<Text> DecodeLine(std::string_view line) {
  std::vector<Text> fields;
  for (std::size_t start = 0; start <= line.size();) {
    const auto end = std::min(line.find(',', start), line.size());
    fields.push_back(modHexStr::Hex4ToStr(line.substr(start, end - start)));
    start = end + 1;
  }
  return fields;
}

std::string EncodeLine(const std::vector<Text>& fields) {
  std::string line;
  for (const Text& field : fields) line += modHexStr::StrToHex4(field) + ",";
  if (!line.empty()) line.pop_back();
  return line;
}

std::vector<std::string> ReadLines(const std::filesystem::path& file) {
  std::string content;
  try {
    content = modFile::ReadWholeFile(file);
  } catch (const FileError& fault) {
    if (fault.Reason() != std::errc::no_such_file_or_directory) throw;
  }
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < content.size();) {
    const auto end = std::min(content.find('\n', start), content.size());
    std::string line = content.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

bool WriteLines(const std::filesystem::path& file, const std::vector<std::string>& lines) {
  if (HidesItsLines(file)) return false;
  std::string content;
  for (const std::string& line : lines) content += line + "\r\n";
  try {
    modFile::WriteWholeFile(file, content);
  } catch (const FileError&) {
    return false;  // the old file stands as it was
  }
  return true;
}

bool IsSameField(TextView read, TextView saved) {
  Text texts[] = {Text(read), Text(saved)};
  for (Text& text : texts) std::erase(text, u'\0');
  return texts[0] == texts[1];
}

}  // namespace tessarin::ListFile
