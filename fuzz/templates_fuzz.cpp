// Any bytes as a file of templates: what is read from it is written back and read again the same.
#include "fuzz/Pieces.h"
#include "messages/Templates.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarin;
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  const TemplateFile file = ParseTemplates(content);
  for (const Text& line : file.templates) Require(line.find_first_of(u"\r\n") == Text::npos);
  const std::string written = FormatTemplates(file);
  Require(written.starts_with("\xEF\xBB\xBF") || ParseTemplates(written) == file);
  return 0;
}
