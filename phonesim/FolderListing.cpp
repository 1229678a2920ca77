#include "phonesim/FolderListing.h"

namespace phonesim {
namespace {

std::string Escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&apos;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace

std::string RenderFolderListing(const std::vector<FileTree::Entry>& entries, bool root) {
  std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
      "<!DOCTYPE folder-listing SYSTEM \"obex-folder-listing.dtd\">\r\n"
      "<folder-listing version=\"1.0\">\r\n";
  if (!root) xml += "<parent-folder/>\r\n";
  for (const FileTree::Entry& entry : entries) {
    const std::string name = " name=\"" + Escape(entry.name) + "\"";
    xml += entry.folder ? "<folder" + name + "/>\r\n"
                        : "<file" + name + " size=\"" + std::to_string(entry.size) + "\"/>\r\n";
  }
  return xml + "</folder-listing>\r\n";
}

}  // namespace phonesim
