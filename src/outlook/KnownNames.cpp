#include "outlook/KnownNames.h"

#include "codecs/Faults.h"
#include "codecs/modFile.h"

namespace tessarin::outlook {

KnownNames::KnownNames(const std::filesystem::path& folder) : file_(folder.string() + ".names") {
  if (!modFile::FileExists(file_)) return;
  try {
    for (Text& name : Split(FromUtf8(modFile::ReadWholeFile(file_)), u"\n")) {
      if (!name.empty()) before_.insert(std::move(name));
    }
  } catch (const FileError&) {
    return;  // as if none were known
  }
}

bool KnownNames::Meet(const Text& stem, bool hasUid) {
  const bool isKnown = !hasUid || before_.count(stem) != 0;
  if (isKnown) met_.insert(stem);
  return isKnown;
}

void KnownNames::Save() const {
  if (met_ == before_) return;
  Text names;
  for (const Text& name : met_) names += name + u"\n";
  try {
    modFile::WriteWholeFile(file_, ToUtf8(names));
  } catch (const FileError&) {
    return;
  }
}

}  // namespace tessarin::outlook
