#pragma once

#include <string>
#include <vector>

#include "phonesim/FileTree.h"

namespace phonesim {

/// The x-obex/folder-listing object of IrOBEX for one folder, UTF-8. All but the root name a
/// parent folder.
std::string RenderFolderListing(const std::vector<FileTree::Entry>& entries, bool root);

}  // namespace phonesim
