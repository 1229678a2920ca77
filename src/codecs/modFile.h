// The folders and files of the system on the computer.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "codecs/Text.h"

namespace tessarin {

// Knows where the application folder and the shipped files are, and turns the system's own path
// literals, which begin at the application folder and have backslashes ("\Pb\ContactTSC.dat"), into
// real paths. Reads and writes whole files.
class modFile {
 public:
  // `shippedFolder` is where the program's own files (languages, help, icons, animations) lie.
  modFile(std::filesystem::path applicationFolder, std::filesystem::path shippedFolder);

  // The real path of a literal; empty text gives the application folder itself.
  std::filesystem::path Path(TextView literal) const;

  // The real path of something that the program ships: the application folder's own version when
  // there is one, else the shipped one (which is not tested).
  std::filesystem::path ShippedPath(TextView literal) const;

  // Makes, where missing, the folders "\Cal" and "\Pb" and in them, empty, "CalendarMobile.dat",
  // "ContactTSC.dat" and "ContactMobile.dat". An existing file is left as it is. Throws FileError.
  void CheckDataFiles() const;

  // True for a file (or a link to one), false for a folder or nothing.
  static bool FileExists(const std::filesystem::path& path);

  // True for a folder (or a link to one), false for a file or nothing.
  static bool FolderExists(const std::filesystem::path& path);

  // Makes the folder and those above it; one that exists is fine. Throws FileError.
  static void MakeFolder(const std::filesystem::path& path);

  // Throws FileError.
  static std::string ReadWholeFile(const std::filesystem::path& path);

  // Puts `content` in place of what the file held, or makes the file. At any moment, a crash
  // included, the file is whole, old or new: a new file beside it is written, flushed and renamed
  // over it. The old file's permission bits stay; a symbolic link stays, its target is replaced.
  // Throws FileError, which leaves the old file and nothing else behind.
  static void WriteWholeFile(const std::filesystem::path& path, std::string_view content);

 private:
  std::filesystem::path applicationFolder_;
  std::filesystem::path shippedFolder_;
};

// Where the user's data are kept: `programFolder` itself when a file "portable" lies in it, else
// "Tessarin" in $XDG_DATA_HOME, or in ~/.local/share when that is not set to a full path.
std::filesystem::path DefaultApplicationFolder(const std::filesystem::path& programFolder);

// "Tessarin" in $XDG_CONFIG_HOME, or in ~/.config when that is not set to a full path.
std::filesystem::path ConfigurationFolder();

}  // namespace tessarin
