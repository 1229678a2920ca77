#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace phonesim {

/// One record of the phone's memory: names and their UTF-8 values. An empty value is no value.
using Fields = std::map<std::string, std::string>;

/// The value of a name, empty when there is none.
const std::string& Field(const Fields& fields, const std::string& name);

/// Numbers as values; a missing or wrong one reads as 0.
int FieldNumber(const Fields& fields, const std::string& name);

/// Records in a text file that people can read and edit: a line "name: value" a field, a blank line
/// between records. In a value "\n" is a line break and "\\" a backslash.
class DeckFile {
 public:
  explicit DeckFile(std::filesystem::path path) : path_(std::move(path)) {}

  std::vector<Fields> Read();

  /// Replaces the file in one step, and makes its folder. A full disk leaves the old one.
  void Write(const std::vector<Fields>& records);

  /// True when somebody else wrote the file since it was last read or written here.
  bool Changed() const;

 private:
  using Stamp = std::pair<std::filesystem::file_time_type, std::uintmax_t>;
  Stamp Look() const;

  std::filesystem::path path_;
  Stamp seen_{};
};

}  // namespace phonesim
