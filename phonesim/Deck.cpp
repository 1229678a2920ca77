#include "phonesim/Deck.h"

#include <charconv>
#include <fstream>
#include <system_error>

namespace phonesim {
namespace {

namespace fs = std::filesystem;

std::string Escape(const std::string& value) {
  std::string text;
  for (const char c : value) {
    if (c == '\r') continue;
    if (c == '\n' || c == '\\') text += '\\';
    text += c == '\n' ? 'n' : c;
  }
  return text;
}

std::string Unescape(const std::string& text) {
  std::string value;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool escape = text[at] == '\\' && at + 1 < text.size();
    if (escape) ++at;
    value += escape && text[at] == 'n' ? '\n' : text[at];
  }
  return value;
}

}  // namespace

const std::string& Field(const Fields& fields, const std::string& name) {
  static const std::string kNone;
  const auto found = fields.find(name);
  return found == fields.end() ? kNone : found->second;
}

int FieldNumber(const Fields& fields, const std::string& name) {
  const std::string& text = Field(fields, name);
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::vector<Fields> DeckFile::Read() {
  seen_ = Look();
  std::vector<Fields> records;
  std::ifstream file(path_, std::ios::binary);
  Fields record;
  for (std::string line; std::getline(file, line);) {
    const std::size_t colon = line.find(": ");
    if (colon != std::string::npos) {
      record[line.substr(0, colon)] = Unescape(line.substr(colon + 2));
    } else if (line.empty() && !record.empty()) {
      records.push_back(std::move(record));
      record.clear();
    }
  }
  if (!record.empty()) records.push_back(std::move(record));
  return records;
}

void DeckFile::Write(const std::vector<Fields>& records) {
  std::error_code failed;
  fs::create_directories(path_.parent_path(), failed);
  fs::path part = path_;
  part += ".new";
  std::ofstream file(part, std::ios::binary | std::ios::trunc);
  for (const Fields& record : records) {
    for (const auto& [name, value] : record) {
      if (!value.empty()) file << name << ": " << Escape(value) << '\n';
    }
    file << '\n';
  }
  file.close();
  if (file) fs::rename(part, path_, failed);
  seen_ = Look();
}

bool DeckFile::Changed() const { return Look() != seen_; }

DeckFile::Stamp DeckFile::Look() const {
  std::error_code failed;
  const auto time = fs::last_write_time(path_, failed);
  if (failed) return {};
  return {time, fs::file_size(path_, failed)};
}

}  // namespace phonesim
