#include "phonebook/clsT610ContactList.h"

#include "codecs/Faults.h"
#include "codecs/modFile.h"
#include "codecs/modHexStr.h"

namespace tessarin {

clsT610Contact& clsT610ContactList::item(int index) const {
  if (index < 1 || index > Count()) throw BoundsError();
  return *contacts_[static_cast<std::size_t>(index - 1)];
}

std::vector<Text> clsT610ContactList::DecodeContactStr(std::string_view line) {
  std::vector<Text> fields;
  for (std::size_t start = 0; start <= line.size();) {
    const auto end = std::min(line.find(',', start), line.size());
    fields.push_back(modHexStr::Hex4ToStr(std::string(line.substr(start, end - start))));
    start = end + 1;
  }
  return fields;
}

std::string clsT610ContactList::EncodeContactStr(const clsT610Contact& contact) {
  std::string line;
  for (int field = 0; field < GetNoOfField(); ++field) {
    if (field > 0) line += ',';
    line += modHexStr::StrToHex4(contact.GetData(field));
  }
  return line;
}

void clsT610ContactList::AssignContact(const std::vector<Text>& fields) {
  if (fields.size() < static_cast<std::size_t>(GetNoOfField())) throw BoundsError();
  auto contact = std::make_shared<clsT610Contact>();
  for (int field = 0; field < GetNoOfField(); ++field) {
    contact->LetData(fields[static_cast<std::size_t>(field)], field);
  }
  Add(std::move(contact));
}

std::vector<std::string> clsT610ContactList::LoadTSCContactList(const std::filesystem::path& file) {
  auto lines = ReadContactLines(file);
  auto line = lines.begin();
  try {
    for (; line != lines.end(); ++line) AssignContact(DecodeContactStr(*line));
  } catch (const BoundsError&) {
    lines.erase(lines.begin(), line);
    return lines;
  }
  return {};
}

void clsT610ContactList::WriteContactToFile(const std::filesystem::path& file,
                                            const std::vector<std::string>& further) const {
  std::string content;
  for (const auto& contact : contacts_) content += EncodeContactStr(*contact) + "\r\n";
  for (const auto& line : further) content += line + "\r\n";
  try {
    modFile::WriteWholeFile(file, content);
  } catch (const FileError&) {
    return;  // the old file stands as it was
  }
}

std::vector<std::string> ReadContactLines(const std::filesystem::path& file) {
  std::string content;
  try {
    content = modFile::ReadWholeFile(file);
  } catch (const FileError&) {
    return {};
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

}  // namespace tessarin
