// Language files: any bytes give six tables or a bounds error, and what is packed in the file's
// format comes back as it was.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "codecs/Faults.h"
#include "core/Language.h"

namespace {

using namespace std::string_literals;

// The tables in the format of a language file.
std::string Packed(const tessarin::LanguageTables& tables) {
  std::string file;
  for (std::size_t group = 0; group < tables.size(); ++group) {
    file += group % 3 == 0 ? "..\\\0"s : "\\\\\0"s;
    for (std::size_t i = 0; i < tables[group].size(); ++i) {
      if (i > 0) file += '\0';
      file += tessarin::ToUtf8(tables[group][i]);
    }
  }
  return file;
}

// Packing joins a text's end to the separator behind it, so only texts without a backslash at their
// end, or a point before one, come back for sure.
bool IsPlain(const tessarin::LanguageTables& tables) {
  for (const auto& table : tables) {
    for (const auto& text : table) {
      if (text.find(u'\\') != text.npos || text.ends_with(u'.')) return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    const auto tables = tessarin::ParseLanguageFile({reinterpret_cast<const char*>(data), size});
    if (IsPlain(tables) && tessarin::ParseLanguageFile(Packed(tables)) != tables) std::abort();
  } catch (const tessarin::BoundsError&) {
  }
  return 0;
}
