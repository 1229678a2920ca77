#include "phonesim/FileTree.h"

#include <algorithm>
#include <fstream>
#include <tuple>

#include "phonesim/Memory.h"
#include "phonesim/Utf.h"

namespace phonesim {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPartName = ".incoming";  ///< of a file before it is whole

fs::path FromUtf8(const std::string& name) { return fs::path(name); }

fs::file_type TypeOf(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type();
}

std::optional<FileTree::Entry> Describe(const fs::directory_entry& entry) {
  const std::string name = entry.path().filename().string();
  if (!FileTree::IsName(name)) return std::nullopt;
  const fs::file_type type = TypeOf(entry.path());
  if (type == fs::file_type::directory) return FileTree::Entry{name, true, 0};
  std::error_code failed;
  const std::uintmax_t size = fs::file_size(entry.path(), failed);
  if (type != fs::file_type::regular || failed) return std::nullopt;
  return FileTree::Entry{name, false, size};
}

}  // namespace

bool FileTree::IsName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name != kPartName &&
         name != kBooksFolder && name.find('/') == std::string::npos && IsPlainUtf8(name);
}

fs::path FileTree::Real(const Place& folder) const {
  fs::path path = root_;
  for (const std::string& name : folder) path /= FromUtf8(name);
  return path;
}

bool FileTree::HasFolder(const Place& folder) const {
  fs::path path = root_;
  return std::all_of(folder.begin(), folder.end(), [&path](const std::string& name) {
    path /= FromUtf8(name);
    return IsName(name) && TypeOf(path) == fs::file_type::directory;
  });
}

std::vector<FileTree::Entry> FileTree::List(const Place& folder) const {
  std::vector<Entry> entries;
  std::error_code failed;
  for (const auto& found : fs::directory_iterator(Real(folder), failed)) {
    if (auto entry = Describe(found)) entries.push_back(std::move(*entry));
  }
  const auto key = [&folder](const Entry& entry) {
    return std::tuple(!entry.folder, !folder.empty() || entry.name != "Phone", entry.name);
  };
  std::sort(entries.begin(), entries.end(),
            [&key](const Entry& a, const Entry& b) { return key(a) < key(b); });
  return entries;
}

std::optional<Bytes> FileTree::Read(const Place& folder, const std::string& name) const {
  if (!HasFolder(folder) || !IsName(name)) return std::nullopt;
  const fs::path path = Real(folder) / FromUtf8(name);
  if (TypeOf(path) != fs::file_type::regular) return std::nullopt;
  std::error_code failed;
  const std::uintmax_t size = fs::file_size(path, failed);
  if (failed) return std::nullopt;
  Bytes data(size);
  std::ifstream file(path, std::ios::binary);
  file.read(reinterpret_cast<char*>(data.data()), static_cast<std::streamsize>(data.size()));
  if (!file) return std::nullopt;
  return data;
}

bool FileTree::Make(const Place& folder) const {
  std::error_code failed;
  fs::create_directories(Real(folder), failed);
  return !failed;
}

bool FileTree::MayWrite(const Place& folder, const std::string& name) const {
  if (!HasFolder(folder) || !IsName(name)) return false;
  const fs::file_type type = TypeOf(Real(folder) / FromUtf8(name));
  return type == fs::file_type::regular || type == fs::file_type::not_found;
}

bool FileTree::Write(const Place& folder, const std::string& name, ByteView data) const {
  const fs::path part = Real(folder) / kPartName;
  std::ofstream file(part, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
  file.close();
  std::error_code failed;
  if (file) fs::rename(part, Real(folder) / FromUtf8(name), failed);
  if (!file || failed) {
    std::error_code ignored;
    fs::remove(part, ignored);
    return false;
  }
  return true;
}

}  // namespace phonesim
