// Help files, and their inner parts by themselves: anything is read or refused with DocumentError,
// and whatever was read lies within the file.
//
// The first byte says what the others are: a whole help file, one compressed frame, or a page.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "codecs/Faults.h"
#include "core/HelpFile.h"
#include "core/HelpSearch.h"
#include "core/Lzx.h"
#include "core/Markup.h"

namespace {

using namespace tessarin;

void ReadHelp(std::string_view content) {
  const HelpFile help{std::string(content)};
  if (!help.Read(help.home())) std::abort();
  const HelpSearch search(help);
  for (const HelpEntry& entry : help.contents()) {
    for (const HelpHit& hit : search.Find(SearchWords(entry.title))) {
      if (!help.Read(hit.path)) std::abort();
    }
  }
}

// The same frame twice, so that the second goes on in the block of the first.
void ReadFrames(std::string_view frame) {
  std::string output;
  LzxDecoder decoder(16, output);
  for (int count = 1; count <= 2; ++count) {
    decoder.ReadFrame(frame, LzxDecoder::kFrame);
    if (output.size() != LzxDecoder::kFrame * static_cast<std::size_t>(count)) std::abort();
  }
}

void ReadPage(std::string_view html) {
  const Text text = PlainText(html);
  if (text.find(u"  ") != Text::npos || text.starts_with(u' ')) std::abort();
  for (MarkupReader reader(html); reader.Next();) {
    const auto link = reader.Attribute("href");
    const auto place = FollowLink("/a/b.html", ToUtf8(link.value_or(Text())));
    if (place && place->path.find("/../") != std::string::npos) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  constexpr void (*kReaders[])(std::string_view) = {ReadHelp, ReadFrames, ReadPage};
  try {
    kReaders[*data % 3](rest);
  } catch (const DocumentError&) {
  }
  return 0;
}
