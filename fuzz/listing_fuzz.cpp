// Any text as a folder listing: it is read, or refused with a DocumentError.
#include <cstdlib>
#include <string_view>

#include "codecs/Faults.h"
#include "link/FileService.h"
#include "link/FolderListing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarin;
  const Text xml = FromLatin1({reinterpret_cast<const char*>(data), size});
  try {
    const FolderListing listing = ParseFolderListing(xml);
    for (const auto& file : listing.files) {
      const bool holdsSlash = file.name.find(u'/') != Text::npos;
      if (holdsSlash && IsSafeFileName(file.name)) std::abort();
      if (file.name.find(u'\0') != Text::npos) std::abort();
    }
  } catch (const DocumentError& error) {
    if (error.Number() == 0 || error.Message().empty()) std::abort();
  }
  return 0;
}
