#include "link/FolderListing.h"

#include <algorithm>
#include <pugixml.hpp>
#include <string>

#include "codecs/Faults.h"

namespace tessarin {

namespace {

// An attribute of the element, empty when it has none.
Text Attribute(const pugi::xpath_node& element, const char* name) {
  return FromUtf8(element.node().attribute(name).value());
}

}  // namespace

FolderListing ParseFolderListing(TextView xml) {
  std::string bytes(xml.size(), '\0');
  std::transform(xml.begin(), xml.end(), bytes.begin(),
                 [](char16_t unit) { return static_cast<char>(unit); });
  pugi::xml_document document;
  const auto result = document.load_buffer_inplace(bytes.data(), bytes.size(), pugi::parse_default,
                                                   pugi::encoding_utf8);
  if (!result) throw DocumentError(result.status, result.description());

  FolderListing listing;
  for (const auto& folder : document.select_nodes("//folder")) {
    listing.folders.push_back(Attribute(folder, "name"));
  }
  for (const auto& file : document.select_nodes("//file")) {
    listing.files.push_back({Attribute(file, "name"), Attribute(file, "size")});
  }
  return listing;
}

}  // namespace tessarin
