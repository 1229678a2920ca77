#include "messages/Templates.h"

#include <algorithm>

namespace tessarin {

namespace {

constexpr char16_t kFolder[] = u"\\UserData\\SMS\\Template";
constexpr char16_t kFile[] = u"\\UserData\\SMS\\Template\\ttemplate.dat";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Up to the line's end, which is taken off `content` as well.
std::string_view TakeLine(std::string_view& content) {
  const std::string_view line = content.substr(0, content.find_first_of("\r\n"));
  content.remove_prefix(line.size());
  content.remove_prefix(content.starts_with("\r\n") ? 2 : std::min<std::size_t>(content.size(), 1));
  return line;
}

bool IsUtf8(std::string_view bytes) { return ToUtf8(FromUtf8(bytes)) == bytes; }

std::string BytesOf(const Text& text) {
  std::string bytes;
  for (const char16_t unit : text) bytes += static_cast<char>(unit);
  return bytes;
}

}  // namespace

TemplateFile ParseTemplates(std::string_view content) {
  if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
  TemplateFile file;
  while (!content.empty()) {
    const std::string_view line = TakeLine(content);
    const bool isForeign = !IsUtf8(line);
    file.templates.push_back(isForeign ? FromLatin1(line) : FromUtf8(line));
    if (isForeign) file.foreign.insert(file.templates.back());
  }
  return file;
}

std::string FormatTemplates(const TemplateFile& file) {
  std::string content;
  for (const Text& line : file.templates) {
    content += (file.foreign.contains(line) ? BytesOf(line) : ToUtf8(line)) + "\r\n";
  }
  return content;
}

TemplateFile LoadTemplates(const modFile& files) {
  const auto file = files.Path(kFile);
  modFile::MakeFolder(files.Path(kFolder));
  if (!modFile::FileExists(file)) modFile::WriteWholeFile(file, "");
  return ParseTemplates(modFile::ReadWholeFile(file));
}

void SaveTemplates(const modFile& files, const TemplateFile& file) {
  modFile::MakeFolder(files.Path(kFolder));
  modFile::WriteWholeFile(files.Path(kFile), FormatTemplates(file));
}

}  // namespace tessarin
