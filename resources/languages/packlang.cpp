// Packs one language source into a language file: packlang <source.txt> <target.lng>.
//
// The source is UTF-8 text: a line "[table]" opens a table, a line "index=text" gives a text, "#"
// opens a comment line. In a text "\n" is a line break and "\\" a backslash. The six tables become
// the six groups of the target, texts being placed by their index:
//
//   ..\0 prompts \\0 errors \\0 interface ..\0 further1 \\0 further2 \\0 further3     (0 is a NUL)

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Table = std::map<int, std::string>;

const std::array<std::string, 6> kTables = {"prompts",  "errors",   "interface",
                                            "further1", "further2", "further3"};

std::string Unescaped(const std::string& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      ++i;
      plain += text[i] == 'n' ? '\n' : text[i];
    } else {
      plain += text[i];
    }
  }
  return plain;
}

bool IsIndex(const std::string& text) {
  return !text.empty() && text.size() < 5 &&
         text.find_first_not_of("0123456789") == std::string::npos;
}

// A text that ends so is followed by a NUL, which makes a separator of groups.
bool HoldsSeparator(const std::string& source) {
  const auto text = Unescaped(source);
  return text.ends_with("\\\\") || text.ends_with("..\\");
}

std::map<std::string, Table> ReadSource(std::istream& source) {
  std::map<std::string, Table> tables;
  Table* table = nullptr;
  std::string line;
  for (int number = 1; std::getline(source, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    const auto equals = line.find('=');
    const auto refuse = [number](const std::string& why) {
      throw std::runtime_error("line " + std::to_string(number) + why);
    };
    if (line[0] == '[') {
      const auto name = line.substr(1, line.size() - 2);
      if (std::ranges::find(kTables, name) == kTables.end()) refuse(" opens an unknown table");
      table = &tables[name];
    } else if (table == nullptr || !IsIndex(line.substr(0, equals))) {
      refuse(" is no text of a table");
    } else if (HoldsSeparator(line.substr(equals + 1))) {
      refuse(" would be taken for the start of a group");
    } else if (!table->emplace(std::stoi(line), Unescaped(line.substr(equals + 1))).second) {
      refuse(" repeats an index");
    }
  }
  return tables;
}

std::string Packed(const Table& table) {
  std::string group;
  const int last = table.empty() ? 0 : table.rbegin()->first;
  for (int index = 0; index <= last; ++index) {
    if (index > 0) group += '\0';
    const auto text = table.find(index);
    if (text != table.end()) group += text->second;
  }
  return group;
}

void Pack(const std::string& sourceName, const std::string& targetName) {
  std::ifstream source(sourceName);
  if (!source) throw std::runtime_error("cannot be read");
  auto tables = ReadSource(source);
  std::string content;
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    content += i % 3 == 0 ? "..\\" : "\\\\";
    content += '\0';
    content += Packed(tables[kTables[i]]);
  }
  std::ofstream target(targetName, std::ios::binary);
  target << content;
  if (!target.flush()) throw std::runtime_error("cannot write " + targetName);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: packlang <source.txt> <target.lng>\n";
    return 2;
  }
  try {
    Pack(argv[1], argv[2]);
  } catch (const std::exception& fault) {
    std::cerr << argv[1] << ": " << fault.what() << '\n';
    return 1;
  }
  return 0;
}
