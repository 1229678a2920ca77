// Any bytes as a file of templates: what is read from it is written back and read again the same.
#include "fuzz/Pieces.h"
#include "messages/Templates.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessarin;
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  const auto templates = ParseTemplates(content);
  for (const Text& line : templates) Require(line.find_first_of(u"\r\n") == Text::npos);
  const bool beginsWithMark = !templates.empty() && templates.front().starts_with(u"\uFEFF");
  Require(beginsWithMark || ParseTemplates(FormatTemplates(templates)) == templates);
  return 0;
}
