#pragma once

// The x-obex/folder-listing object (IrOBEX, folder browsing): XML with a `folder` element for each
// folder and a `file` element for each file.

#include <vector>

#include "codecs/Text.h"

namespace tessarin {

struct ListedFile {
  Text name;
  Text size;  // as the phone wrote it, in bytes
};

struct FolderListing {
  std::vector<Text> folders;  // in the phone's order
  std::vector<ListedFile> files;
};

// `xml` holds one character for each byte that the phone sent; names are UTF-8 in it. Throws
// DocumentError with the parser's number and reason when it is no XML.
FolderListing ParseFolderListing(TextView xml);

}  // namespace tessarin
