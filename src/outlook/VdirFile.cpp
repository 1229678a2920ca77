#include "outlook/VdirFile.h"

#include <sys/stat.h>

#include <algorithm>
#include <random>

#include "codecs/Faults.h"
#include "codecs/modFile.h"
#include "outlook/ContentLines.h"
#include "outlook/LocalTime.h"

namespace tessarin::outlook {

VdirFile::Version VdirFile::Look() const {
  struct stat found {};
  if (::stat(path_.c_str(), &found) != 0) return {};
  return {{found.st_mtim.tv_sec, found.st_mtim.tv_nsec},
          {found.st_ctim.tv_sec, found.st_ctim.tv_nsec},
          found.st_size,
          found.st_ino};
}

bool VdirFile::Exists() const {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path_, ignored);
}

bool VdirFile::IsGone() const {
  std::error_code ignored;
  return !std::filesystem::exists(std::filesystem::symlink_status(path_, ignored));
}

// Looked at first: a change during the reading counts as one after it.
std::string VdirFile::Read() {
  if (!Exists()) throw FileError(ENOENT, path_);
  const Version version = Look();
  std::string bytes = modFile::ReadWholeFile(path_);
  version_ = version;
  return bytes;
}

std::string VdirFile::ReadIfPossible() {
  try {
    return Read();
  } catch (const FileError&) {
    return "";
  }
}

void VdirFile::Write(std::string_view bytes) {
  modFile::WriteWholeFile(path_, bytes);
  version_ = Look();
}

bool VdirFile::HasChanged() const { return Look() != version_; }

DateValue VdirFile::Modified() const {
  return ToLocalTime(std::max(version_.modified.seconds, version_.changed.seconds)).value_or(0);
}

std::vector<std::filesystem::path> VdirItems(const std::filesystem::path& folder,
                                             std::string_view extension) {
  std::vector<std::filesystem::path> items;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::filesystem::path name = entry->path().filename();
    if (name.string().starts_with('.')) continue;
    if (UpperAscii(name.extension().string()) != UpperAscii(extension)) continue;
    if (!modFile::FolderExists(entry->path())) items.push_back(entry->path());
  }
  if (error) throw FileError(error, folder);
  std::sort(items.begin(), items.end());
  return items;
}

std::string NewUid() {
  std::random_device random;
  std::string uid;
  constexpr char kDigits[] = "0123456789abcdef";
  for (const char place : std::string_view("xxxxxxxx-xxxx-4xxx-yxxx-xxxxxxxxxxxx")) {
    const unsigned digit = random() % 16;
    uid += place == 'x' ? kDigits[digit] : place == 'y' ? kDigits[8 + digit % 4] : place;
  }
  return uid;
}

}  // namespace tessarin::outlook
