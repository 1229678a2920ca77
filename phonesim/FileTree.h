#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "phonesim/Bytes.h"

namespace phonesim {

/// The phone's files, kept in a real folder. Names are UTF-8. A place is the chain of folder names
/// from the phone's root; nothing outside that folder can be named: "", ".", "..", names with a
/// slash, the folder of the phone's books and symbolic links lead nowhere.
class FileTree {
 public:
  using Place = std::vector<std::string>;

  struct Entry {
    std::string name;
    bool folder = false;
    std::uintmax_t size = 0;
  };

  explicit FileTree(std::filesystem::path root) : root_(std::move(root)) {}

  static bool IsName(const std::string& name);

  bool HasFolder(const Place& folder) const;

  /// Folders first, then files, each by name; the phone's own memory "Phone" leads the root, as
  /// clients take the first storage for it. Names that no listing can hold are left out.
  std::vector<Entry> List(const Place& folder) const;

  std::optional<Bytes> Read(const Place& folder, const std::string& name) const;

  /// Makes the folder unless it is there. False when the disk refuses.
  bool Make(const Place& folder) const;

  /// False when the name is none or is a folder's.
  bool MayWrite(const Place& folder, const std::string& name) const;

  /// Replaces the whole file in one step. False when the disk refuses.
  bool Write(const Place& folder, const std::string& name, ByteView data) const;

 private:
  std::filesystem::path Real(const Place& folder) const;

  std::filesystem::path root_;
};

}  // namespace phonesim
