#include "messages/Templates.h"

namespace tessarin {

namespace {

constexpr char16_t kFolder[] = u"\\UserData\\SMS\\Template";
constexpr char16_t kFile[] = u"\\UserData\\SMS\\Template\\ttemplate.dat";
constexpr char16_t kByteOrderMark[] = u"\uFEFF";

}  // namespace

std::vector<Text> ParseTemplates(std::string_view content) {
  Text text = FromUtf8(content);
  if (text.starts_with(kByteOrderMark)) text.erase(0, 1);
  text = Replace(Replace(text, u"\r\n", u"\n"), u"\r", u"\n");
  auto lines = Split(text, u"\n");
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

std::string FormatTemplates(const std::vector<Text>& templates) {
  std::string content;
  for (const Text& line : templates) content += ToUtf8(line) + "\r\n";
  return content;
}

std::vector<Text> LoadTemplates(const modFile& files) {
  const auto file = files.Path(kFile);
  modFile::MakeFolder(files.Path(kFolder));
  if (!modFile::FileExists(file)) modFile::WriteWholeFile(file, "");
  return ParseTemplates(modFile::ReadWholeFile(file));
}

void SaveTemplates(const modFile& files, const std::vector<Text>& templates) {
  modFile::MakeFolder(files.Path(kFolder));
  modFile::WriteWholeFile(files.Path(kFile), FormatTemplates(templates));
}

}  // namespace tessarin
