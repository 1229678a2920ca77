// Reading and writing whole files, of modFile.h.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "codecs/Faults.h"
#include "codecs/modFile.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

// `isDone` tells how a call of the system on `path` went.
void Check(bool isDone, const fs::path& path) {
  if (!isDone) throw FileError(errno, path);
}

// An open file, closed with its owner. Its faults name `about`, which the user knows.
class OpenFile {
 public:
  OpenFile(const fs::path& path, int flags, const fs::path& about)
      : about_(about), descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~OpenFile() {
    if (IsOpen()) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return descriptor_ >= 0; }

  std::string ReadAll() const {
    std::string content;
    std::array<char, 65536> chunk{};
    while (const ssize_t count = Retried(::read, chunk.data(), chunk.size())) {
      content.append(chunk.data(), static_cast<std::size_t>(count));
    }
    return content;
  }

  void WriteAll(std::string_view content) const {
    while (!content.empty()) {
      const ssize_t count = Retried(::write, content.data(), content.size());
      content.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void SetPermissions(mode_t bits) const { Check(::fchmod(descriptor_, bits) == 0, about_); }

  // Puts everything on the disk.
  void Flush() const { Check(FlushIfPossible(), about_); }
  bool FlushIfPossible() const { return ::fsync(descriptor_) == 0; }

  void Close() { Check(::close(std::exchange(descriptor_, -1)) == 0, about_); }

 private:
  // What `call` on the file answers, a signal in between not counting.
  template <typename Call, typename Data>
  ssize_t Retried(Call call, Data data, std::size_t size) const {
    ssize_t count = -1;
    do {
      count = call(descriptor_, data, size);
    } while (count < 0 && errno == EINTR);
    Check(count >= 0, about_);
    return count;
  }

  fs::path about_;
  int descriptor_;
};

// What `path` is in the end, links followed one by one: the last may lead to a file yet to be made.
fs::path Target(fs::path path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const fs::path next = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / next;
  }
  throw FileError(ELOOP, path);
}

// The permission bits of a file that may be written, none when there is no file yet. Renaming asks
// nothing of the file that it replaces, so a device, or a file that the user protects, is refused
// here.
std::optional<mode_t> PermissionsOf(const fs::path& path) {
  constexpr mode_t kPermissionBits = 07777;
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) return std::nullopt;
  if (S_ISDIR(found.st_mode)) throw FileError(EISDIR, path);
  if (!S_ISREG(found.st_mode)) throw FileError(EINVAL, path);
  Check(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0, path);
  return found.st_mode & kPermissionBits;
}

fs::path FolderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// A name beside `target` that readers of the folder pass over: hidden, and ending in ".tmp".
fs::path NameBeside(const fs::path& target, int attempt) {
  return FolderOf(target) /
         (".tessarin-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
}

// The new file beside the one that it is to replace; gone with its owner until it has done so.
class Replacement {
 public:
  explicit Replacement(const fs::path& target) : target_(target) {
    constexpr int kMostAttempts = 1000;
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
      path_ = NameBeside(target, attempt);
      file_.emplace(path_, O_WRONLY | O_CREAT | O_EXCL, target);
      if (file_->IsOpen()) return;
      if (errno != EEXIST) break;
    }
    throw FileError(errno, target);
  }
  ~Replacement() {
    if (!isDone_) ::unlink(path_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  OpenFile& File() { return *file_; }

  void TakeItsPlace() {
    file_->Flush();
    file_->Close();
    Check(::rename(path_.c_str(), target_.c_str()) == 0, target_);
    isDone_ = true;
  }

 private:
  fs::path target_;
  fs::path path_;
  std::optional<OpenFile> file_;
  bool isDone_ = false;
};

}  // namespace

std::string modFile::ReadWholeFile(const fs::path& path) {
  const OpenFile file(path, O_RDONLY, path);
  Check(file.IsOpen(), path);
  return file.ReadAll();
}

void modFile::WriteWholeFile(const fs::path& path, std::string_view content) {
  const fs::path target = Target(path);
  const std::optional<mode_t> permissions = PermissionsOf(target);
  Replacement replacement(target);
  if (permissions) replacement.File().SetPermissions(*permissions);
  replacement.File().WriteAll(content);
  replacement.TakeItsPlace();
  // The file stands; its new name, where it cannot be put on the disk now, is left to time.
  const OpenFile folder(FolderOf(target), O_RDONLY | O_DIRECTORY, target);
  if (folder.IsOpen()) static_cast<void>(folder.FlushIfPossible());
}

}  // namespace tessarin
