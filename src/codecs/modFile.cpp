#include "codecs/modFile.h"

#include <cstdlib>
#include <utility>

#include "codecs/Faults.h"

namespace tessarin {

namespace fs = std::filesystem;

namespace {

struct DataFile {
  const char16_t* folder;
  const char16_t* name;
};

constexpr DataFile kDataFiles[] = {
    {u"\\Cal", u"\\CalendarMobile.dat"},
    {u"\\Pb", u"\\ContactTSC.dat"},
    {u"\\Pb", u"\\ContactMobile.dat"},
};

constexpr const char* kProgramName = "Tessarin";

// `root` with the steps of `literal` below it.
fs::path Below(const fs::path& root, TextView literal) {
  fs::path path = root;
  for (const Text& step : Split(literal, u"\\")) {
    if (!step.empty()) path /= ToUtf8(step);
  }
  return path;
}

// The folder that an XDG variable names; one that is not a full path is to be ignored.
fs::path XdgFolder(const char* variable, const char* belowHome) {
  const char* value = std::getenv(variable);
  if (value != nullptr && fs::path(value).is_absolute()) return value;
  const char* home = std::getenv("HOME");
  return fs::path(home != nullptr ? home : "/") / belowHome;
}

}  // namespace

modFile::modFile(fs::path applicationFolder, fs::path shippedFolder)
    : applicationFolder_(std::move(applicationFolder)), shippedFolder_(std::move(shippedFolder)) {}

fs::path modFile::Path(TextView literal) const { return Below(applicationFolder_, literal); }

fs::path modFile::ShippedPath(TextView literal) const {
  std::error_code ignored;
  fs::path own = Path(literal);
  return fs::exists(own, ignored) ? own : Below(shippedFolder_, literal);
}

void modFile::CheckDataFiles() const {
  for (const DataFile& file : kDataFiles) {
    const fs::path folder = Path(file.folder);
    MakeFolder(folder);
    const fs::path path = Below(folder, file.name);
    if (!FileExists(path)) WriteWholeFile(path, "");
  }
}

bool modFile::FileExists(const fs::path& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::exists(status) && !fs::is_directory(status);
}

bool modFile::FolderExists(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

void modFile::MakeFolder(const fs::path& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error) throw FileError(error, path);
}

fs::path DefaultApplicationFolder(const fs::path& programFolder) {
  if (modFile::FileExists(programFolder / "portable")) return programFolder;
  return XdgFolder("XDG_DATA_HOME", ".local/share") / kProgramName;
}

fs::path ConfigurationFolder() { return XdgFolder("XDG_CONFIG_HOME", ".config") / kProgramName; }

}  // namespace tessarin
